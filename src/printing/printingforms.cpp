#include "printing/printingforms.h"

#include "printing/frmcataloguecontrol.h"
#include "printing/reportcommands.h"

#include "shell/formregistry.h"
#include "shell/mainframe.h"

using namespace Qt::StringLiterals;

void RegisterPrintingForms(MainFrame &frame)
{
    frame.forms().registerForm(u"frmCatalogueControl"_s, FormRegistry::Placement::Child,
                               [&frame] { return new FrmCatalogueControl(frame); });
    new ReportCommands(frame);
}
