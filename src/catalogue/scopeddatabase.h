#pragma once

#include <QSqlDatabase>
#include <QString>

// A private SQLite connection for the lifetime of the object, removed afterwards, so that
// the tool's connections never meet each other or a caller's.
class ScopedDatabase
{
public:
    enum class Mode { ReadWrite, ReadOnly };

    // Throws CatalogueFileError with SQLite's message when it cannot open `path`.
    explicit ScopedDatabase(const QString &path, Mode mode = Mode::ReadWrite);
    ~ScopedDatabase();
    ScopedDatabase(const ScopedDatabase &) = delete;
    ScopedDatabase &operator=(const ScopedDatabase &) = delete;

    QSqlDatabase db() const;

private:
    QString m_name;
};
