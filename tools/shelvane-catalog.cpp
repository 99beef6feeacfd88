// shelvane-catalog: makes, checks, imports, backs up and restores Shelvane catalogue files.
#include "catalogue/cataloguebackups.h"
#include "catalogue/cataloguecheck.h"
#include "catalogue/cataloguefile.h"
#include "catalogue/cataloguerestore.h"
#include "catalogue/generator.h"
#include "catalogue/samplecollection.h"
#include "commandline.h"
#include "console.h"
#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/providererror.h"
#include "data/runtimeerror.h"
#include "jetimport/catalogueimport.h"
#include "reports/cataloguereports.h"
#include "reports/dataenvironment.h"
#include "reports/labelreports.h"
#include "reports/labeltable.h"
#include "reports/numberformat.h"
#include "reports/pdfexport.h"
#include "reports/reportpaginator.h"
#include "transfercommands.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int ExitFailure = 1;
constexpr int ExitUsage = 2;
constexpr int ExitCannotImport = 2;
const QString program = u"shelvane-catalog"_s;

const Option force{u"--force"_s, {}, u"replace an existing file (not one Shelvane has open)"_s};

const Option strict{u"--strict"_s, {}, u"stop at the first problem instead of repairing it"_s};

void printCheck(const QString &path, const QStringList &problems)
{
    for (const QString &problem : problems)
        out() << problem << '\n';
    if (problems.isEmpty())
        out() << path << ": catalogue is sound\n";
}

void printSummary(const CatalogueImport::Summary &summary)
{
    for (const CatalogueImport::TableCount &count : summary.tables)
        out() << "  " << count.table.leftJustified(22) << QString::number(count.rows).rightJustified(8) << (count.rows == 1 ? " row\n" : " rows\n");
    out() << "  " << u"problems"_s.leftJustified(22) << QString::number(summary.problems.size()).rightJustified(8) << '\n';
    const double seconds = summary.milliseconds / 1000.0;
    const qint64 perSecond = summary.milliseconds > 0 ? summary.rows() * 1000 / summary.milliseconds : summary.rows() * 1000;
    out() << "  " << u"time"_s.leftJustified(22) << QString::number(seconds, 'f', 2).rightJustified(8) << " s ("
          << perSecond << " rows a second)\n";
}

int runImport(const Arguments &args)
{
    const QString &jetPath = args.paths[0];
    const QString &path = args.paths[1];
    ProgressLine progress;
    CatalogueImport::Options options;
    options.overwrite = args.has(force.name);
    options.onProblem = args.has(strict.name) ? CatalogueImport::OnProblem::Stop : CatalogueImport::OnProblem::Repair;
    options.problem = [&](const QString &problem) {
        progress.wipe();
        out() << problem << '\n' << Qt::flush;
    };
    if (stderrIsTerminal()) {
        options.progress = [&](const QString &table, qint64 done, qint64 total) {
            progress.show(u"importing %1: %2 of %3 rows"_s.arg(table).arg(done).arg(total));
        };
    }
    try {
        const CatalogueImport::Summary summary = CatalogueImport::run(jetPath, path, options);
        progress.wipe();
        out() << path << ": imported from " << jetPath << '\n';
        printSummary(summary);
        printCheck(path, summary.checkProblems);
        return summary.checkProblems.isEmpty() ? 0 : ExitFailure;
    } catch (const CatalogueFileError &e) {
        progress.wipe();
        err() << program << ": " << e.message() << '\n';
        return ExitCannotImport;
    }
}

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
    printCheck(args.path, problems);
    return problems.isEmpty() ? 0 : ExitFailure;
}

int runBackup(const Arguments &args)
{
    if (!QFileInfo(args.path).isFile())
        throw CatalogueFileError(u"%1: no such catalogue file"_s.arg(args.path));
    const CatalogueBackups::Made made = args.has(u"--to"_s)
        ? CatalogueBackups::make(args.path, args.given.value(u"--to"_s))
        : CatalogueBackups::keep(args.path);
    if (!made.ok())
        throw CatalogueFileError(u"%1: no backup could be made in %2: %3"_s.arg(
            args.path, QDir::toNativeSeparators(made.folder), made.problem));
    out() << args.path << ": backed up to " << QDir::toNativeSeparators(made.path) << '\n';
    return 0;
}

int runRestore(const Arguments &args)
{
    const QString &backup = args.paths[0];
    const QString &catalogue = args.paths[1];
    const CatalogueRestore::Restored restored = CatalogueRestore::run(backup, catalogue);
    out() << catalogue << ": restored from " << backup << '\n';
    if (restored.keptUnchecked)
        out() << "the catalogue it replaced failed its check; it is kept as it was in "
              << QDir::toNativeSeparators(restored.keptAs) << '\n';
    else if (!restored.keptAs.isEmpty())
        out() << "the catalogue it replaced is kept in " << QDir::toNativeSeparators(restored.keptAs) << '\n';
    return 0;
}

// A report that cannot be made: one line on the error stream, exit status 2.
struct ReportError
{
    QString message;
};

CatalogueListing listingChosen(const QString &by)
{
    const QList<std::pair<QString, CatalogueListing>> listings{
        {u"title"_s, CatalogueListing::ByTitle},
        {u"author"_s, CatalogueListing::ByAuthor},
        {u"topic"_s, CatalogueListing::ByTopic}};
    for (const auto &[name, listing] : listings) {
        if (name == by)
            return listing;
    }
    throw ReportError{u"--by must be title, author, topic or labels, not \"%1\""_s.arg(by)};
}

// The label sheet reads the working table, which is filled afresh first, as File › Print
// Labels does.
ReportDocument loadLabelSheet(const QString &cataloguePath, DataEnvironment &deShelvane)
{
    {
        Connection connection;
        connection.open(ConnectionString::forCatalogue(cataloguePath));
        ProgressLine progress;
        LabelCopyProgress copying;
        if (stderrIsTerminal()) {
            copying = [&progress](int copied, int total) {
                progress.show(u"copying labels: %1 of %2"_s.arg(copied).arg(total));
                return true;
            };
        }
        FillLabelTable(connection, copying);
        progress.wipe();
    }
    return LoadLabelSheet(deShelvane);
}

// The report the user chose, laid out as the report window shows it.
ReportDocument loadReport(const QString &by, const QString &cataloguePath)
{
    if (!QFileInfo(cataloguePath).isFile())
        throw ReportError{u"%1: no such catalogue file"_s.arg(cataloguePath)};
    const bool labels = by == u"labels";
    const CatalogueListing listing = labels ? CatalogueListing::ByTitle : listingChosen(by);
    try {
        const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(cataloguePath);
        ReportDocument document = labels
            ? loadLabelSheet(cataloguePath, *deShelvane)
            : LoadCatalogueListing(listing, *deShelvane, cataloguePath);
        // As the report window does when it becomes active, with the session's price format.
        document.definition.applyPriceFormat(PriceFormat(QLocale()));
        return document;
    } catch (const ProviderError &e) {
        throw ReportError{u"%1: %2"_s.arg(cataloguePath, e.description)};
    } catch (const RuntimeError &e) {
        throw ReportError{u"%1: %2"_s.arg(cataloguePath, e.description)};
    }
}

int runReport(const Arguments &args)
{
    const QString output = args.given.value(u"--pdf"_s);
    QElapsedTimer timer;
    timer.start();
    ReportDocument document = loadReport(args.given.value(u"--by"_s), args.path);
    const QString caption = document.definition.caption;
    const std::unique_ptr<ReportPaginator> report = document.paginate();
    const bool terminal = stderrIsTerminal();
    // Pages go to the file in order and are not looked at again: a long report is never
    // held whole.
    const PdfExport::Progress progress = [&report, terminal](int pages) {
        report->releasePagesBefore(pages);
        if (terminal)
            err() << "\rwriting pages: " << pages << Qt::flush;
        return true;
    };
    QString error;
    if (PdfExport::write(*report, output, progress, &error) != PdfExport::Outcome::Written)
        throw ReportError{error};
    if (terminal)
        err() << '\n';
    const int pages = report->pagesLaidOut();
    out() << output << ": " << caption << ", " << pages
          << (pages == 1 ? " page" : " pages") << " in "
          << QString::number(timer.elapsed() / 1000.0, 'f', 2) << " s\n";
    return 0;
}

const QList<Command> commands = QList<Command>{
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
    {u"import"_s, u"bring a catalogue of the older Jet (.mdb) format across"_s,
     u"Reads every table of a catalogue kept in the older Jet format (OLD) and writes a\n"
     "new catalogue (NEW) with the same books, authors, topics, publishers, links and\n"
     "owner's details: every number, key and text as it was, NULL kept apart from an\n"
     "empty text, prices to the ten-thousandth. Stored queries are not read: the new\n"
     "catalogue has its own.\n"
     "\n"
     "A row that breaks a rule of the new catalogue is reported on a line of its own and\n"
     "repaired: a book whose publisher is missing gets the publisher UnKnown (added if\n"
     "there is none), a book without a price gets 0, a link to a missing book, author or\n"
     "topic is left out and a link given twice is kept once, surplus owner's details\n"
     "are left out. With --strict the first such row stops the import instead. Rows\n"
     "without a key, or sharing one, always stop it.\n"
     "\n"
     "Ends with a check of the new catalogue and a summary: rows per table, problems,\n"
     "time. Exits with 2, leaving no file under NEW, when OLD cannot be read or is no\n"
     "catalogue, NEW exists already (without --force) or Shelvane has it open, the\n"
     "import stops or the new file cannot be written; with 1 when the check finds a\n"
     "problem."_s,
     {strict, force}, runImport, {u"OLD"_s, u"NEW"_s}},
    {u"backup"_s, u"make a checked copy of a catalogue, safe while Shelvane has it open"_s,
     u"Copies the catalogue with SQLite's online backup, so the copy is whole even while\n"
     "Shelvane has the catalogue open and is writing to it, and checks the copy. The\n"
     "copy is named after the catalogue with the date and time, for instance\n"
     "\"QuireshelfCatalog01 2024-05-01 14-03-59.mdb\", and goes into the folder Backups\n"
     "beside the catalogue, where Shelvane keeps its own backups and only the newest 10\n"
     "are kept (section Backups, key Keep of Shelvane's settings); or into FOLDER with\n"
     "--to, where nothing is ever removed. Prints the copy's name. Exits with 1, leaving\n"
     "no file, when the copy cannot be made."_s,
     {{u"--to"_s, u"FOLDER"_s, u"the folder to put the copy in (made if missing)"_s}},
     runBackup, {u"CATALOGUE"_s}},
    {u"restore"_s, u"put a backup back in a catalogue's place"_s,
     u"Replaces the catalogue at CATALOGUE with the catalogue kept in BACKUP. The backup\n"
     "must pass the check. The catalogue it replaces is first kept as a backup itself,\n"
     "in the folder Backups beside it; a catalogue that fails its check is kept as it\n"
     "is, its name ending in \"unchecked\". The backup's copy is written beside the\n"
     "catalogue and takes its name in one step once it is on the disk, so a failure\n"
     "leaves the catalogue as it was. Refused while a copy of Shelvane has the catalogue\n"
     "open: close it there first. Exits with 1, changing nothing, when refused."_s,
     {}, runRestore, {u"BACKUP"_s, u"CATALOGUE"_s}},
    {u"report"_s, u"write a catalogue listing or the label sheet to a PDF file"_s,
     u"Writes one of the printed catalogue listings of the catalogue at PATH to a PDF\n"
     "file, the same pages the program's report window shows: by title, by author, or\n"
     "by topic; or the sheet of every book's label, which first fills the catalogue's\n"
     "label table afresh as Print Labels does. Needs no display. The file appears only\n"
     "when it is complete."_s,
     {{u"--by"_s, u"REPORT"_s, u"title, author, topic or labels"_s, true},
      {u"--pdf"_s, u"OUT.pdf"_s, u"the PDF file to write"_s, true}},
     runReport},
} + transferCommands();

QString usageLine(const Command &command)
{
    return u"Usage: %1 %2 %3\n"_s.arg(program, command.name, synopsis(command.options, command.paths));
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
        text += u"  %1%2\n"_s.arg(command.name.leftJustified(12), command.summary);
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
        const Arguments parsed = parseArguments(args, command.options, command.paths);
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
    } catch (const ReportError &e) {
        err() << program << ": " << e.message << '\n';
        return ExitUsage;
    }
}

} // namespace

int main(int argc, char *argv[])
{
    // Only a report draws pages: it needs fonts, never a display. Its help draws nothing, and
    // says nothing of a graphical system that is not there.
    const auto asksForHelp = [&] {
        for (int i = 2; i < argc; ++i) {
            if (qstrcmp(argv[i], "--help") == 0 || qstrcmp(argv[i], "-h") == 0)
                return true;
        }
        return false;
    };
    const bool drawsPages = argc > 1 && qstrcmp(argv[1], "report") == 0 && !asksForHelp();
    if (drawsPages)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::unique_ptr<QCoreApplication> app =
        drawsPages ? std::make_unique<QGuiApplication>(argc, argv)
                   : std::make_unique<QCoreApplication>(argc, argv);
    // The backups read the settings the program keeps.
    QCoreApplication::setOrganizationName(u"Shelvane"_s);
    QCoreApplication::setApplicationName(u"prjQuireshelf"_s);
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
