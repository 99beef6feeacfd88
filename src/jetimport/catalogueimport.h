#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class JetTables;

// Brings a catalogue of the older Jet format across into a new catalogue file: every table
// read once, in one transaction, keeping every key, link and value. The new file is written
// under a temporary name and renamed into place at the end, so a failure leaves nothing
// under the requested name.
namespace CatalogueImport {

// What to do with a row that breaks a rule of the new catalogue.
enum class OnProblem {
    Repair, // the obvious repair: a missing publisher becomes "UnKnown", a dangling or repeated link is left out
    Stop,   // the import stops and writes nothing
};

struct TableCount
{
    QString table;
    qint64 rows = 0;
};

struct Options
{
    bool overwrite = false;
    OnProblem onProblem = OnProblem::Repair;
    // Called with each problem as it is found, one line each, before it is repaired.
    std::function<void(const QString &problem)> problem;
    // Called now and then while a table is read, and once when it is done.
    std::function<void(const QString &table, qint64 done, qint64 total)> progress;
};

struct Summary
{
    QList<TableCount> tables; // in the order imported
    QStringList problems;      // as reported while importing
    qint64 milliseconds = 0;   // reading and writing, without the check
    QStringList checkProblems; // what the check of the new file found; empty when sound

    qint64 rows() const;
};

// Imports the Jet file at `jetPath` into a new catalogue at `path`. Throws CatalogueFileError
// with a one-line message when the file cannot be read, is no catalogue, the new file cannot
// be written, or a problem stops the import.
Summary run(const QString &jetPath, const QString &path, const Options &options = {});

// The same from tables already open; `sourceName` names them in messages.
Summary run(const JetTables &source, const QString &sourceName, const QString &path, const Options &options = {});

// The tables imported, in order; the last two are the program's working tables, imported
// when the old file has them.
QStringList tables();

} // namespace CatalogueImport
