#include "forms/printing/printingforms.h"

#include "forms/printing/frmcataloguecontrol.h"
#include "forms/printing/reportcommands.h"

#include "app/formregistry.h"
#include "app/mainframe.h"

using namespace Qt::StringLiterals;

void RegisterPrintingForms(MainFrame &frame)
{
    frame.forms().registerForm(u"frmCatalogueControl"_s, FormRegistry::Placement::Child,
                               [&frame] { return new FrmCatalogueControl(frame); });
    new ReportCommands(frame);
}
