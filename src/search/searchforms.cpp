#include "search/searchforms.h"

#include "search/bookbrowser.h"
#include "search/bookbrowserkind.h"
#include "search/frmbooklisting.h"
#include "search/frmsearch.h"
#include "shell/formregistry.h"
#include "shell/mainframe.h"

using namespace Qt::StringLiterals;

void RegisterSearchForms(MainFrame &frame)
{
    frame.forms().registerForm(u"frmSearch"_s, FormRegistry::Placement::Child,
                               [&frame] { return new FrmSearch(frame); });
    frame.forms().registerForm(u"frmBookListing"_s, FormRegistry::Placement::Child,
                               [&frame] { return new FrmBookListing(frame); });
    for (const BookBrowserKind &kind : BookBrowserKinds()) {
        frame.forms().registerForm(kind.formName, FormRegistry::Placement::Child,
                                   [&kind, &frame] { return new BookBrowser(kind, frame); });
    }
}
