#include "forms/search/searchforms.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/search/bookbrowser.h"
#include "forms/search/bookbrowserkind.h"
#include "forms/search/frmbooklisting.h"
#include "forms/search/frmsearch.h"

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
