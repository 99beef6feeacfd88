#pragma once

#include <QString>
#include <QStringList>

// shelvane-catalog run as a person runs it: its exit status and what it said.
struct ToolRun
{
    int status = -1; // -1 when it did not end by itself
    QString out;
    QString err;
};

// Runs `program` (the catalogue tool unless told otherwise) with the program's settings in a
// folder of the test's own, never the machine's.
ToolRun runTool(const QStringList &arguments,
                const QString &program = qEnvironmentVariable("SHELVANE_TOOL"));
