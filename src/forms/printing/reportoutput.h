#pragma once

class QWidget;
class ReportPaginator;

// Sending a laid-out report to a device the user picks, with a progress dialog that can
// be cancelled for a long report.

// The print dialog, then the chosen pages to the chosen printer.
void PrintReport(QWidget *parent, ReportPaginator &report);
// A file dialog for the PDF's name, then every page to it. A cancelled or failed export
// leaves no file under that name.
void ExportReportToPdf(QWidget *parent, ReportPaginator &report);
