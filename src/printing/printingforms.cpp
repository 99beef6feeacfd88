#include "printing/printingforms.h"

#include "shell/formregistry.h"
#include "shell/mainframe.h"

void RegisterPrintingForms(MainFrame &frame)
{
    Q_UNUSED(frame);
}
