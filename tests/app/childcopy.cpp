#include "childcopy.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr int Patience = 30000;

} // namespace

ChildCopy::ChildCopy(const QString &catalogue, const QStringList &options)
{
    m_process.start(QCoreApplication::applicationDirPath() + u"/sessionchild"_s,
                    QStringList{catalogue} + options);
}

ChildCopy::~ChildCopy()
{
    kill();
}

QString ChildCopy::said()
{
    while (!m_process.canReadLine() && m_process.waitForReadyRead(Patience)) {
    }
    return QString::fromUtf8(m_process.readLine()).trimmed();
}

QString ChildCopy::tell(const QString &command)
{
    m_process.write((command + u'\n').toUtf8());
    return said();
}

bool ChildCopy::diedOfASignal()
{
    if (m_process.state() != QProcess::NotRunning)
        m_process.waitForFinished(Patience);
    return m_process.state() == QProcess::NotRunning
        && m_process.exitStatus() == QProcess::CrashExit;
}

void ChildCopy::kill()
{
    m_process.kill();
    m_process.waitForFinished(Patience);
}
