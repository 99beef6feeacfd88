// shelvane-catalog: makes and checks Shelvane catalogue files.
#include "catalogue/cataloguefile.h"

#include <QCoreApplication>
#include <QStringList>
#include <QTextStream>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int ExitUsage = 2;

QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

QTextStream &err()
{
    static QTextStream stream(stderr);
    return stream;
}

const QString usage = uR"(Usage: shelvane-catalog COMMAND [OPTIONS] PATH

Commands:
  create PATH      make an empty catalogue holding only the rows every catalogue needs
  --help           show this text

Run "shelvane-catalog COMMAND --help" for a command's options.
)"_s;

struct Arguments
{
    QString path;
    bool force = false;
};

// Reads "[--force] PATH"; anything else is a usage error.
bool parsePathArguments(const QStringList &args, Arguments &parsed, QString &problem)
{
    for (const QString &arg : args) {
        if (arg == u"--force"_s) {
            parsed.force = true;
        } else if (arg.startsWith(u"--"_s)) {
            problem = u"unknown option %1"_s.arg(arg);
            return false;
        } else if (parsed.path.isEmpty()) {
            parsed.path = arg;
        } else {
            problem = u"unexpected argument %1"_s.arg(arg);
            return false;
        }
    }
    if (parsed.path.isEmpty()) {
        problem = u"no PATH given"_s;
        return false;
    }
    return true;
}

int usageError(const QString &problem)
{
    err() << "shelvane-catalog: " << problem << "\n\n" << usage;
    return ExitUsage;
}

int runCreate(const QStringList &args)
{
    if (args.contains(u"--help"_s)) {
        out() << "Usage: shelvane-catalog create [--force] PATH\n\n"
                 "Makes an empty catalogue: the tables, the stored queries and the rows every\n"
                 "catalogue needs. --force replaces an existing file.\n";
        return 0;
    }
    Arguments parsed;
    QString problem;
    if (!parsePathArguments(args, parsed, problem))
        return usageError(problem);
    CatalogueFile::create(parsed.path, parsed.force);
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QStringList args = QCoreApplication::arguments().mid(1);
    if (args.isEmpty())
        return usageError(u"no command given"_s);
    const QString command = args.takeFirst();
    if (command == u"--help"_s || command == u"-h"_s || command == u"help"_s) {
        out() << usage;
        return 0;
    }
    try {
        if (command == u"create"_s)
            return runCreate(args);
        return usageError(u"unknown command %1"_s.arg(command));
    } catch (const CatalogueFileError &e) {
        err() << "shelvane-catalog: " << e.message() << '\n';
        return 1;
    }
}
