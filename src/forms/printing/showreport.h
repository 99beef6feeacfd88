#pragma once

#include "reports/reportdocument.h"

class MainFrame;
class QWidget;

// Opens a loaded report in a report window of the frame, named after the report: shown not
// modally, counted among the loaded forms and unloaded with them. When a window of that
// name is open already it is only brought forward.
QWidget *ShowReportWindow(MainFrame &frame, ReportDocument document);
