#pragma once

#include <QString>

#include <functional>

// The report of an error no handler traps: "Run-time error '<number>':", a blank line and the
// description, titled with the program's title, OK only. The caller abandons what it was doing.
void ReportRuntimeError(int number, const QString &description);

// Runs one event handler as the program's handlers run: a run-time or provider error that
// escapes it ends the handler there and is reported, and the program goes on. Qt's own code
// must never be unwound by an exception, so every handler that can fail runs through here.
void RunHandler(const std::function<void()> &handler);
