#include "data/privateconnection.h"

#include <QAtomicInteger>

using namespace Qt::StringLiterals;

namespace {

QString uniqueName()
{
    static QAtomicInteger<quint64> serial;
    return u"shelvane-connection-"_s + QString::number(serial.fetchAndAddRelaxed(1));
}

} // namespace

PrivateConnection::~PrivateConnection()
{
    close();
}

QSqlError PrivateConnection::open(const QString &path, const QString &connectOptions)
{
    close();
    const QString name = uniqueName();
    QSqlError error;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
        db.setDatabaseName(path);
        db.setConnectOptions(connectOptions);
        if (db.open())
            m_name = name;
        else
            error = db.lastError();
    }
    if (m_name.isEmpty())
        QSqlDatabase::removeDatabase(name);
    return error;
}

void PrivateConnection::close()
{
    if (m_name.isEmpty())
        return;
    {
        QSqlDatabase db = QSqlDatabase::database(m_name, false);
        db.close();
    }
    QSqlDatabase::removeDatabase(m_name);
    m_name.clear();
}

QSqlDatabase PrivateConnection::database() const
{
    return QSqlDatabase::database(m_name, false);
}
