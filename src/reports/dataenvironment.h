#pragma once

#include "data/connection.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class Recordset;
class ShapedRecordset;

// deShelvane: the named connections and commands the reports and labels read through. The
// connections start with their design-time strings, which name no file; they are pointed at
// the open catalogue before any command runs, and open when a command first needs them.
class DataEnvironment
{
public:
    DataEnvironment();
    ~DataEnvironment();
    DataEnvironment(const DataEnvironment &) = delete;
    DataEnvironment &operator=(const DataEnvironment &) = delete;

    QStringList connectionNames() const;
    // Throws ProviderError for a name the environment does not have.
    QString connectionString(const QString &connection) const;
    // Takes effect the next time the connection opens.
    void setConnectionString(const QString &connection, const QString &connectionString);

    QStringList commandNames() const;
    // "rs" followed by the command's name.
    QString recordsetName(const QString &command) const;
    QString commandText(const QString &command) const;
    // The source a record set is re-pointed at, as the single label does with rscmdOneLabel.
    void setCommandText(const QString &command, const QString &text);
    bool isShaped(const QString &command) const;

    // Runs a plain command afresh on its connection. Throws ProviderError.
    std::unique_ptr<Recordset> run(const QString &command);
    // Runs a shaping command afresh through the shaping interpreter. Throws ProviderError.
    std::unique_ptr<ShapedRecordset> runShaped(const QString &command);

    // Closes every open connection, as re-organising the catalogue file requires; a later
    // command opens its connection again.
    void close();
    bool hasOpenConnection() const;

private:
    struct NamedConnection
    {
        QString name;
        QString connectionString;
        std::unique_ptr<Connection> connection;
    };
    struct Command
    {
        QString name;
        QString connection;
        CommandType type;
        QString text;
        bool shaped;
    };

    NamedConnection &namedConnection(const QString &name);
    const NamedConnection &namedConnection(const QString &name) const;
    Command &command(const QString &name);
    const Command &command(const QString &name) const;
    Connection &openConnectionOf(const Command &command);

    std::vector<NamedConnection> m_connections;
    std::vector<Command> m_commands;
};

// A new deShelvane whose four connections name the catalogue at `cataloguePath`.
std::unique_ptr<DataEnvironment> PrepareDataEnvironment(const QString &cataloguePath);
