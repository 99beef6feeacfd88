#include "console.h"

#include <algorithm>
#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

QTextStream &err()
{
    static QTextStream stream(stderr);
    return stream;
}

bool stderrIsTerminal()
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(stderr));
#else
    return isatty(STDERR_FILENO);
#endif
}

void ProgressLine::show(const QString &text)
{
    err() << '\r' << text.leftJustified(m_width) << Qt::flush;
    m_width = std::max(m_width, int(text.size()));
}

void ProgressLine::wipe()
{
    if (m_width > 0)
        err() << '\r' << QString(m_width, u' ') << '\r' << Qt::flush;
    m_width = 0;
}
