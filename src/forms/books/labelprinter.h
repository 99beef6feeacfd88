#pragma once

#include <QString>

#include <functional>

// The book form's "Print Label" hands the book number it shows to whoever prints single
// labels; the printing area installs itself here when the program starts.
using SingleLabelPrinter = std::function<void(const QString &bookNumber)>;

void SetSingleLabelPrinter(SingleLabelPrinter printer);
void PrintSingleLabel(const QString &bookNumber);
