#include "forms/figures/figureforms.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/figures/frmbookstats.h"
#include "forms/figures/frmprices.h"

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
