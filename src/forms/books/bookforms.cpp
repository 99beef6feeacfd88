#include "forms/books/bookforms.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/books/frmbookmaintenance.h"
#include "forms/books/linkpicker.h"
#include "forms/books/linksides.h"

using namespace Qt::StringLiterals;

void RegisterBookForms(MainFrame &frame)
{
    frame.forms().registerForm(u"frmBookMaintenance"_s, FormRegistry::Placement::Child,
                               [&frame] { return new FrmBookMaintenance(frame); });
    for (const LinkSideTexts &side : LinkSides()) {
        const LinkSide which = side.side;
        frame.forms().registerForm(side.dialog, FormRegistry::Placement::Window,
                                   [&frame, which] { return new LinkPicker(which, frame); });
    }
}
