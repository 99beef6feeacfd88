#pragma once

#include <QSqlDatabase>
#include <QString>

#include <functional>
#include <stdexcept>

// A failure of the catalogue tool, with the one-line message a user is shown.
class CatalogueFileError : public std::runtime_error
{
public:
    explicit CatalogueFileError(const QString &message)
        : std::runtime_error(message.toStdString()), m_message(message) {}
    QString message() const { return m_message; }

private:
    QString m_message;
};

namespace CatalogueFile {

// What to put into a new catalogue after its tables and required rows exist. Runs inside
// the transaction that creates the file.
using Filler = std::function<void(QSqlDatabase &db)>;

// Makes a catalogue at `path`: tables, views and required rows, then whatever `fill` adds.
// The file is written under a temporary name and renamed at the end, so a failure never
// leaves a half-made catalogue under the requested name. Refuses to replace an existing
// file unless `overwrite`. Throws CatalogueFileError.
void create(const QString &path, bool overwrite, const Filler &fill = {});

// Runs one statement, throwing CatalogueFileError with SQLite's message on failure.
void exec(QSqlDatabase &db, const QString &statement);

// Runs the schema's statements on `db`: tables, views and required rows.
void applySchema(QSqlDatabase &db);

// The statements of the catalogue's schema file, in order.
QStringList schemaStatements();

} // namespace CatalogueFile
