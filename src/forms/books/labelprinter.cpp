#include "forms/books/labelprinter.h"

namespace {

SingleLabelPrinter &installed()
{
    static SingleLabelPrinter printer;
    return printer;
}

} // namespace

void SetSingleLabelPrinter(SingleLabelPrinter printer)
{
    installed() = std::move(printer);
}

void PrintSingleLabel(const QString &bookNumber)
{
    if (installed())
        installed()(bookNumber);
}
