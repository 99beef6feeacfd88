#include "support/heldcatalogue.h"

using namespace Qt::StringLiterals;

HeldCatalogue::HeldCatalogue(const QString &path, Lock lock)
{
    m_holder.start(QString::fromUtf8(CATALOGUE_HOLDER_PROGRAM),
                   {path, lock == Lock::Exclusive ? u"exclusive"_s : u"write"_s});
    // The holder answers at once, either way.
    QByteArray said;
    while (!said.contains('\n') && m_holder.waitForReadyRead(30000))
        said += m_holder.readAllStandardOutput();
    if (said.trimmed() != "holding")
        m_problem = u"The catalogue holder did not take its lock: "_s + QString::fromUtf8(said)
            + QString::fromUtf8(m_holder.readAllStandardError());
}

HeldCatalogue::~HeldCatalogue()
{
    m_holder.closeWriteChannel();
    if (!m_holder.waitForFinished(30000))
        m_holder.kill();
}
