#pragma once

#include <QString>

// A run-time error as the program reports it: "Run-time error '6':" and its description.
// Thrown where a handler has no error trap of its own; the shell catches it at the event
// boundary, abandons the handler and shows the report.
struct RuntimeError
{
    int number = 0;
    QString description;
};

// Counts, positions and keys are held in 16 bits, as the forms always have; a value that
// does not fit raises run-time error 6 "Overflow" instead of wrapping silently.
qint16 toInt16(qint64 value);
