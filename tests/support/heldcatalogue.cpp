#include "support/heldcatalogue.h"

#include <QHash>

using namespace Qt::StringLiterals;

HeldCatalogue::HeldCatalogue(const QString &path, Lock lock)
{
    static const QHash<Lock, QString> holds{{Lock::Write, u"write"_s},
                                            {Lock::Exclusive, u"exclusive"_s},
                                            {Lock::Open, u"open"_s},
                                            {Lock::Replacing, u"replacing"_s}};
    m_holder.start(QString::fromUtf8(CATALOGUE_HOLDER_PROGRAM), {path, holds.value(lock)});
    // The holder answers at once, either way.
    QByteArray said;
    while (!said.contains('\n') && m_holder.waitForReadyRead(30000))
        said += m_holder.readAllStandardOutput();
    if (said.trimmed() != "holding")
        m_problem = u"The catalogue holder did not take its lock: "_s + QString::fromUtf8(said)
            + QString::fromUtf8(m_holder.readAllStandardError());
}

void HeldCatalogue::letGo()
{
    m_holder.closeWriteChannel();
}

void HeldCatalogue::die()
{
    m_holder.kill();
    m_holder.waitForFinished(30000);
}

HeldCatalogue::~HeldCatalogue()
{
    m_holder.closeWriteChannel();
    if (!m_holder.waitForFinished(30000))
        m_holder.kill();
}
