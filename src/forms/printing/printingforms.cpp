#include "forms/printing/printingforms.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/printing/frmcataloguecontrol.h"
#include "forms/printing/reportcommands.h"

using namespace Qt::StringLiterals;

void RegisterPrintingForms(MainFrame &frame)
{
    frame.registerForm({.name = u"frmCatalogueControl"_s,
                        .factory = [&frame] { return new FrmCatalogueControl(frame); },
                        .helpTopic = 19,
                        .menuEntry = u"mnuCatalogueControl"_s,
                        .printable = true});
    new ReportCommands(frame);
}
