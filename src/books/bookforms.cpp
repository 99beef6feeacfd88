#include "books/bookforms.h"

#include "books/frmbookmaintenance.h"
#include "books/linkpicker.h"
#include "books/linksides.h"
#include "shell/formregistry.h"
#include "shell/mainframe.h"

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
