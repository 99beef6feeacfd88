#include "figures/figureforms.h"

#include "figures/frmbookstats.h"
#include "figures/frmprices.h"
#include "shell/formregistry.h"
#include "shell/mainframe.h"

using namespace Qt::StringLiterals;

void RegisterFigureForms(MainFrame &frame)
{
    frame.forms().registerForm(u"frmBookStats"_s, FormRegistry::Placement::Child, [&frame] {
        return new FrmBookStats(frame.forms(), frame.session());
    });
    frame.forms().registerForm(u"frmPrices"_s, FormRegistry::Placement::Child, [&frame] {
        return new FrmPrices(frame.forms(), frame.session());
    });
}
