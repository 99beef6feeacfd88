#include "search/searchforms.h"

#include "search/frmsearch.h"
#include "shell/formregistry.h"
#include "shell/mainframe.h"

using namespace Qt::StringLiterals;

void RegisterSearchForms(MainFrame &frame)
{
    frame.forms().registerForm(u"frmSearch"_s, FormRegistry::Placement::Child,
                               [&frame] { return new FrmSearch(frame); });
}
