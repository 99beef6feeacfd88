#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>

// One SQLite connection of Qt's, under a name of its own, for the lifetime of the object and
// removed afterwards, so that no two users of a catalogue file ever share a handle. The
// program's connections, the catalogue tool's and the session's watch are all made of one.
class PrivateConnection
{
public:
    PrivateConnection() = default;
    ~PrivateConnection();
    PrivateConnection(const PrivateConnection &) = delete;
    PrivateConnection &operator=(const PrivateConnection &) = delete;

    // Opens the file with the driver's connect options ("QSQLITE_BUSY_TIMEOUT=2000",
    // "QSQLITE_OPEN_READONLY"); answers the driver's error when it cannot (nothing is left
    // open then), an invalid error when it did.
    QSqlError open(const QString &path, const QString &connectOptions = {});
    void close();
    bool isOpen() const { return !m_name.isEmpty(); }
    QSqlDatabase database() const;

private:
    QString m_name;
};
