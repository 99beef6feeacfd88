#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

// A command line the tool cannot act on; reported with the usage text, exit status 2.
struct UsageError
{
    QString message;
};

struct Option
{
    QString name;      // "--books"
    QString valueName; // "N"; empty for a flag such as "--force"
    QString help;
    bool required = false;
};

// "[--force] PATH" and the like, read against the options one command accepts.
struct Arguments
{
    QString path;       // the first of the paths
    QStringList paths;  // one for each name the command was asked to read
    bool help = false;
    QHash<QString, QString> given; // option name to its value (empty for a flag)

    bool has(const QString &option) const { return given.contains(option); }

    // The option's value as a whole number from `low` to `high`; throws UsageError.
    qint64 number(const QString &option, qint64 low, qint64 high) const;
};

// Reads the arguments after the command's name: one path for each of `pathNames`, in order,
// and options anywhere; "--help" anywhere asks for the command's help and nothing else is
// then required. Throws UsageError.
Arguments parseArguments(const QStringList &args, const QList<Option> &options,
                         const QStringList &pathNames = {QStringLiteral("PATH")});

// "PATH --books N [--seed S] [--force]"
QString synopsis(const QList<Option> &options, const QStringList &pathNames = {QStringLiteral("PATH")});

// One command of the tool: its name, its one-line summary and --help text, its options and
// the paths it reads, and what runs it (answering the exit status).
struct Command
{
    QString name;
    QString summary;
    QString description;
    QList<Option> options;
    int (*run)(const Arguments &);
    QStringList paths = {QStringLiteral("PATH")};
};
