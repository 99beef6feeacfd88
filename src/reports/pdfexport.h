#pragma once

#include <QString>

#include <functional>

class ReportPaginator;

// Writes a report to a PDF file, A4 pages as laid out. The file is written beside its final
// name and renamed when complete, so a failure or a cancel leaves no partial file under
// that name (and an older file there untouched).
namespace PdfExport {

enum class Outcome { Written, Cancelled, Failed };

// Called after each page with the pages written so far; answering false cancels.
using Progress = std::function<bool(int pagesWritten)>;

Outcome write(ReportPaginator &report, const QString &path, const Progress &progress,
              QString *error);

} // namespace PdfExport
