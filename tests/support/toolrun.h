#pragma once

#include <QString>
#include <QStringList>

// A program run to its end, as a person runs it from a shell: its exit status (-1 when it
// did not end normally within a minute) and what it wrote.
struct Run
{
    int status = -1;
    QString out;
    QString err;
};

// The catalogue tool the build made (SHELVANE_TOOL), or another program, with the program's
// settings in a folder of the test's own.
Run runTool(const QStringList &arguments, const QString &program = qEnvironmentVariable("SHELVANE_TOOL"));
