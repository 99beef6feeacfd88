#pragma once

#include "data/privateconnection.h"

#include <QSqlDatabase>
#include <QString>

// The catalogue tool's own SQLite connection to a file it makes, checks or copies: a handle
// of its own for the lifetime of the object, without the program's checks of a catalogue.
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
    PrivateConnection m_handle;
};
