#pragma once

#include <QString>

// The report of an error no handler traps: "Run-time error '<number>':", a blank line and the
// description, titled with the program's title, OK only. The caller abandons what it was doing.
void ReportRuntimeError(int number, const QString &description);
