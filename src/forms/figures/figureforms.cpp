#include "forms/figures/figureforms.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/figures/frmbookstats.h"
#include "forms/figures/frmprices.h"

using namespace Qt::StringLiterals;

void RegisterFigureForms(MainFrame &frame)
{
    frame.registerForm({.name = u"frmBookStats"_s,
                        .factory = [&frame] { return new FrmBookStats(frame.forms(), frame.session()); },
                        .helpTopic = 17,
                        .menuEntry = u"mnuStats"_s,
                        .printable = true});
    frame.registerForm({.name = u"frmPrices"_s,
                        .factory = [&frame] { return new FrmPrices(frame.forms(), frame.session()); },
                        .helpTopic = 18,
                        .menuEntry = u"mnuCollectionValue"_s,
                        .printable = true});
}
