#include "forms/books/bookforms.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/books/frmbookmaintenance.h"
#include "forms/books/linkpicker.h"
#include "forms/books/linksides.h"

using namespace Qt::StringLiterals;

void RegisterBookForms(MainFrame &frame)
{
    frame.registerForm(
        {.name = BookFormName,
         .factory = [&frame] { return new FrmBookMaintenance(frame); },
         .helpTopic = 6,
         .addPrompt = FixedWording(u"Add New Book"_s,
                                   u"Enter Book details then confirm or cancel, then \r\n"_s
                                       + u"allocate topic(s) and author(s).\r\n\r\n"_s
                                       + MandatoryNote),
         .deletePrompt = FixedWording(
             u"Delete Book"_s,
             u"Delete will remove connections with the associated topics and \r\n"_s
                 + u"authors, and remove the current book. Are you sure you wish to \r\n"_s
                 + u"continue"_s),
         .menuEntry = u"mnuBooks"_s,
         .printable = true,
         .loadedWithCatalogue = true});
    for (const LinkSideTexts &side : LinkSides()) {
        const LinkSide which = side.side;
        frame.registerForm({.name = side.dialog,
                            .placement = FormPlacement::Window,
                            .factory = [&frame, which] { return new LinkPicker(which, frame); },
                            .helpTopic = side.helpTopic});
    }
}
