#pragma once

#include <QString>
#include <QTextStream>

// What shelvane-catalog writes to: the results on the output stream, errors and progress on
// the error stream.
QTextStream &out();
QTextStream &err();
bool stderrIsTerminal();

// One line of progress on a terminal, rewritten in place and wiped before anything else is
// printed, so that only the problems and the summary stay on the screen.
class ProgressLine
{
public:
    void show(const QString &text);
    void wipe();

private:
    int m_width = 0;
};
