#include "forms/search/searchforms.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/search/bookbrowser.h"
#include "forms/search/bookbrowserkind.h"
#include "forms/search/frmbooklisting.h"
#include "forms/search/frmsearch.h"

using namespace Qt::StringLiterals;

namespace {

// The search's add prompt offers the books it found.
PromptText searchResults(int booksFound)
{
    return {u"Search Results"_s,
            u"The search found "_s + QString::number(booksFound) + u" Books, \r\n\r\n"_s
                + u"Would you like to see the results?"_s};
}

} // namespace

void RegisterSearchForms(MainFrame &frame)
{
    // The search may be asked for again while it is open; its entry stays on.
    frame.registerForm({.name = u"frmSearch"_s,
                        .factory = [&frame] { return new FrmSearch(frame); },
                        .helpTopic = 13,
                        .addPrompt = searchResults,
                        .menuEntry = u"mnuSearch"_s,
                        .disablesEntryWhileLoaded = false,
                        .printable = true});
    frame.registerForm({.name = u"frmBookListing"_s,
                        .factory = [&frame] { return new FrmBookListing(frame); },
                        .helpTopic = 14,
                        .menuEntry = u"mnuBookList"_s,
                        .printable = true});
    for (const BookBrowserKind &kind : BookBrowserKinds()) {
        frame.registerForm({.name = kind.formName,
                            .factory = [&kind, &frame] { return new BookBrowser(kind, frame); },
                            .helpTopic = kind.helpTopic,
                            .menuEntry = kind.menuEntry,
                            .printable = true});
    }
}
