#include "transfercommands.h"

#include "catalogue/cataloguecheck.h"
#include "catalogue/cataloguefile.h"
#include "console.h"
#include "transfer/catalogueexport.h"
#include "transfer/csvimport.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr int ExitRowsSkipped = 1;
constexpr int ExitCannotImport = 2;

QString counted(int count, const QString &one, const QString &many)
{
    return u"%1 %2"_s.arg(count).arg(count == 1 ? one : many);
}

std::function<void(int, int)> progressOn(ProgressLine &line, const QString &what)
{
    if (!stderrIsTerminal())
        return {};
    return [&line, what](int done, int total) { line.show(u"%1: %2 of %3"_s.arg(what).arg(done).arg(total)); };
}

int runExport(const Arguments &args)
{
    const QString output = args.given.value(u"--csv"_s);
    ProgressLine progress;
    CatalogueExport::Options options;
    options.overwrite = args.has(u"--force"_s);
    options.progress = progressOn(progress, u"writing books"_s);
    const CatalogueExport::Summary summary = CatalogueExport::write(args.path, output, options);
    progress.wipe();
    out() << output << ": " << counted(summary.books, u"book"_s, u"books"_s) << " from " << args.path << " in "
          << QString::number(summary.milliseconds / 1000.0, 'f', 2) << " s\n";
    return 0;
}

QString delimiterName(QChar delimiter)
{
    return delimiter == u';' ? u"semicolons"_s : delimiter == u'\t' ? u"tabs"_s : u"commas"_s;
}

void printImportSummary(const CsvImport::Summary &summary, bool dryRun)
{
    const QString verb = dryRun ? u"would be "_s : QString();
    out() << "  " << u"books %1imported"_s.arg(verb).leftJustified(30) << QString::number(summary.books).rightJustified(7) << '\n'
          << "  " << u"rows skipped"_s.leftJustified(30) << QString::number(summary.skipped).rightJustified(7) << '\n'
          << "  " << u"new authors"_s.leftJustified(30) << QString::number(summary.newAuthors).rightJustified(7) << '\n'
          << "  " << u"new topics"_s.leftJustified(30) << QString::number(summary.newTopics).rightJustified(7) << '\n'
          << "  " << u"new publishers"_s.leftJustified(30) << QString::number(summary.newPublishers).rightJustified(7) << '\n'
          << "  " << u"time"_s.leftJustified(30) << QString::number(summary.milliseconds / 1000.0, 'f', 2).rightJustified(7)
          << " s\n";
}

int runImportCsv(const Arguments &args)
{
    const QString &csvPath = args.paths[0];
    const QString &cataloguePath = args.paths[1];
    const bool dryRun = args.has(u"--dry-run"_s);
    ProgressLine progress;
    CsvImport::Options options;
    options.dryRun = dryRun;
    options.report = [&](const QString &line) {
        progress.wipe();
        out() << line << '\n' << Qt::flush;
    };
    options.progress = progressOn(progress, u"adding books"_s);
    CsvImport::Summary summary;
    try {
        summary = CsvImport::run(csvPath, cataloguePath, options);
    } catch (const CatalogueFileError &e) {
        progress.wipe();
        err() << "shelvane-catalog: " << e.message() << '\n';
        return ExitCannotImport;
    }
    progress.wipe();
    if (!summary.unreadColumns.isEmpty())
        out() << "columns not read: " << summary.unreadColumns.join(u", "_s) << '\n';
    out() << (dryRun ? u"dry run, nothing written: "_s : QString()) << cataloguePath << ": "
          << (summary.newCatalogue ? u"new catalogue, books from "_s : u"books added from "_s) << csvPath << " ("
          << TextEncoding::nameOf(summary.encoding) << ", " << delimiterName(summary.delimiter) << ")\n";
    printImportSummary(summary, dryRun);
    if (!dryRun) {
        const QStringList problems = CatalogueCheck::problemsIn(cataloguePath);
        for (const QString &problem : problems)
            out() << problem << '\n';
        if (problems.isEmpty())
            out() << cataloguePath << ": catalogue is sound\n";
        else
            return ExitRowsSkipped;
    }
    return summary.skipped > 0 ? ExitRowsSkipped : 0;
}

} // namespace

QList<Command> transferCommands()
{
    return {
        {u"export"_s, u"write every book of a catalogue to a CSV file"_s,
         u"Writes every book of the catalogue at PATH to a CSV file that any spreadsheet\n"
         "reads: one row per book with every field of the book form, its authors and\n"
         "topics (each joined with \"; \" in dictionary order), its publisher's name and\n"
         "place, and its book number, under a header row of plain English column names.\n"
         "UTF-8, fields quoted as RFC 4180 has it, years as plain numbers, money with a\n"
         "point for decimals, Yes and No. The file appears only when it is complete."_s,
         {{u"--csv"_s, u"OUT.csv"_s, u"the CSV file to write"_s, true},
          {u"--force"_s, {}, u"replace an existing file"_s}},
         runExport},
        {u"import-csv"_s, u"bring the books of a CSV file into a catalogue"_s,
         u"Adds the books of a CSV file (CSV) to a catalogue (CATALOGUE): a new one made\n"
         "for them when there is no such file, or an existing one, in which nothing that\n"
         "is there is changed. Columns are found by their header, in any order and letter\n"
         "case: the names the export writes, and the usual ones of other catalogue\n"
         "programs and reading sites (title, author or authors, additional authors,\n"
         "publisher, place, year or date published, price or value, pages, condition,\n"
         "cover or binding, notes, topics or subjects or tags, ISBN, kept in the notes).\n"
         "Several authors or topics in one field are parted by \";\" (tags also by \",\").\n"
         "An author is \"Surname, First\" or \"First Surname\". Authors, topics and\n"
         "publishers are matched to the catalogue's own as the program compares names\n"
         "(letter case ignored), else added. The delimiter (comma, semicolon or tab) and\n"
         "the encoding (UTF-8 with or without BOM, Windows-1252) are detected.\n"
         "\n"
         "A row the catalogue would refuse (no title, a price that is not a number, a year\n"
         "that is not a year, ...) is reported with its line number and skipped; a\n"
         "condition or cover outside the book form's lists is kept in the notes. Ends\n"
         "with a summary and a check of the catalogue. Exits with 1 when a row was skipped,\n"
         "with 2, writing nothing, when the file or the catalogue cannot be read or written."_s,
         {{u"--dry-run"_s, {}, u"read and report everything, write nothing"_s}},
         runImportCsv,
         {u"CSV"_s, u"CATALOGUE"_s}},
    };
}
