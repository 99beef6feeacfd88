#include "figures/figureforms.h"

#include "shell/formregistry.h"
#include "shell/mainframe.h"

void RegisterFigureForms(MainFrame &frame)
{
    Q_UNUSED(frame);
}
