#include "forms/registerforms.h"

#include "forms/books/bookforms.h"
#include "forms/figures/figureforms.h"
#include "forms/printing/printingforms.h"
#include "forms/reference/registerreferenceforms.h"
#include "forms/search/searchforms.h"

void RegisterAllForms(MainFrame &frame)
{
    RegisterReferenceForms(frame);
    RegisterBookForms(frame);
    RegisterSearchForms(frame);
    RegisterFigureForms(frame);
    RegisterPrintingForms(frame);
}
