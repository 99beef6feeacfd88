#include "search/searchforms.h"

#include "shell/formregistry.h"
#include "shell/mainframe.h"

void RegisterSearchForms(MainFrame &frame)
{
    Q_UNUSED(frame);
}
