#include "printing/printingforms.h"

#include "printing/reportcommands.h"

#include "shell/formregistry.h"
#include "shell/mainframe.h"

void RegisterPrintingForms(MainFrame &frame)
{
    new ReportCommands(frame);
}
