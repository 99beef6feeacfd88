// shelvane-catalog: makes and checks Shelvane catalogue files.
#include "catalogue/cataloguecheck.h"
#include "catalogue/cataloguefile.h"
#include "catalogue/generator.h"
#include "catalogue/samplecollection.h"
#include "commandline.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>

#include <cstdio>
#include <limits>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr int ExitFailure = 1;
constexpr int ExitUsage = 2;
const QString program = u"shelvane-catalog"_s;

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

bool stderrIsTerminal()
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(stderr));
#else
    return isatty(STDERR_FILENO);
#endif
}

const Option force{u"--force"_s, {}, u"replace an existing file"_s};

int runCreate(const Arguments &args)
{
    CatalogueFile::create(args.path, args.has(force.name));
    out() << args.path << ": empty catalogue made\n";
    return 0;
}

int runSample(const Arguments &args)
{
    CatalogueFile::create(args.path, args.has(force.name), SampleCollection::fill);
    out() << args.path << ": sample collection made\n";
    return 0;
}

int runGenerate(const Arguments &args)
{
    Generator::Options options;
    options.books = int(args.number(u"--books"_s, 1, Generator::MaxBooks));
    if (args.has(u"--seed"_s))
        options.seed = quint64(args.number(u"--seed"_s, 0, std::numeric_limits<qint64>::max()));
    if (stderrIsTerminal()) {
        options.progress = [](int written, int total) {
            err() << "\rwriting books: " << written << " of " << total << (written == total ? "\n" : "")
                  << Qt::flush;
        };
    }
    QElapsedTimer timer;
    timer.start();
    CatalogueFile::create(args.path, args.has(force.name),
                          [&](QSqlDatabase &db) { Generator::fill(db, options); });
    out() << args.path << ": " << options.books << (options.books == 1 ? " book" : " books") << " made in "
          << QString::number(timer.elapsed() / 1000.0, 'f', 2) << " s\n";
    return 0;
}

int runCheck(const Arguments &args)
{
    const QStringList problems = CatalogueCheck::problemsIn(args.path);
    for (const QString &problem : problems)
        out() << problem << '\n';
    if (!problems.isEmpty())
        return ExitFailure;
    out() << args.path << ": catalogue is sound\n";
    return 0;
}

struct Command
{
    QString name;
    QString summary;
    QString description;
    QList<Option> options;
    int (*run)(const Arguments &);
};

const QList<Command> commands = {
    {u"create"_s, u"make an empty catalogue holding only the rows every catalogue needs"_s,
     u"Makes an empty catalogue: the tables, the stored queries and the rows every\n"
     "catalogue needs."_s,
     {force}, runCreate},
    {u"sample"_s, u"make a demo collection of about 60 books"_s,
     u"Makes a demo catalogue: about 60 books with their authors, topics and\n"
     "publishers, and the owner's details, always the same."_s,
     {force}, runSample},
    {u"generate"_s, u"make a large made-up catalogue for benchmarks"_s,
     u"Makes a large catalogue of made-up books, the same one for the same seed: about\n"
     "one author for three books, a topic for thirty and a publisher for ten; each book\n"
     "has one to three authors and one or two topics."_s,
     {{u"--books"_s, u"N"_s, u"number of books, 1 to 32767"_s, true},
      {u"--seed"_s, u"S"_s, u"seed of the made-up content, a whole number (default 1)"_s},
      force},
     runGenerate},
    {u"check"_s, u"report every problem found in a catalogue file"_s,
     u"Checks a catalogue file: its tables and their columns in order, the stored\n"
     "queries, keys and relationships, the rows every catalogue needs, and SQLite's\n"
     "integrity and foreign key checks. Prints each problem on a line of its own and\n"
     "exits with 1 when there is any."_s,
     {}, runCheck},
};

QString usageLine(const Command &command)
{
    return u"Usage: %1 %2 %3\n"_s.arg(program, command.name, synopsis(command.options));
}

QString commandHelp(const Command &command)
{
    QString text = usageLine(command) + u'\n' + command.description + u"\n\nOptions:\n"_s;
    for (const Option &option : command.options)
        text += u"  %1%2\n"_s.arg(QString(option.name + u' ' + option.valueName).leftJustified(14), option.help);
    return text + u"  %1%2\n"_s.arg(u"--help"_s.leftJustified(14), u"show this text"_s);
}

QString programUsage()
{
    QString text = u"Usage: %1 COMMAND [OPTIONS] PATH\n\nCommands:\n"_s.arg(program);
    for (const Command &command : commands)
        text += u"  %1%2\n"_s.arg(command.name.leftJustified(10), command.summary);
    return text + u"\nRun \"%1 COMMAND --help\" for a command's options.\n"_s.arg(program);
}

int usageError(const QString &problem, const QString &usage)
{
    err() << program << ": " << problem << "\n\n" << usage;
    return ExitUsage;
}

int runCommand(const Command &command, const QStringList &args)
{
    try {
        const Arguments parsed = parseArguments(args, command.options);
        if (parsed.help) {
            out() << commandHelp(command);
            return 0;
        }
        return command.run(parsed);
    } catch (const UsageError &e) {
        return usageError(e.message, usageLine(command)
                                         + u"Run \"%1 %2 --help\" for more.\n"_s.arg(program, command.name));
    } catch (const CatalogueFileError &e) {
        err() << program << ": " << e.message() << '\n';
        return ExitFailure;
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QStringList args = QCoreApplication::arguments().mid(1);
    if (args.isEmpty())
        return usageError(u"no command given"_s, programUsage());
    const QString name = args.takeFirst();
    if (name == u"--help"_s || name == u"-h"_s || name == u"help"_s) {
        out() << programUsage();
        return 0;
    }
    for (const Command &command : commands) {
        if (command.name == name)
            return runCommand(command, args);
    }
    return usageError(u"unknown command \"%1\""_s.arg(name), programUsage());
}
