#include "transfer/csvimport.h"

#include "catalogue/cataloguefile.h"
#include "catalogue/cataloguewriter.h"
#include "catalogue/generator.h"
#include "catalogue/scopeddatabase.h"
#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/transactionguard.h"
#include "transfer/bookrowreader.h"
#include "transfer/catalogueentries.h"
#include "transfer/csvreader.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <variant>

using namespace Qt::StringLiterals;

namespace CsvImport {
namespace {

constexpr int ProgressEvery = 1000;

struct ReadFile
{
    QList<ImportedBook> books;
    Summary summary;
};

QString lineReport(int line, const QString &text)
{
    return u"line %1: %2"_s.arg(line).arg(text);
}

// Every record of the file read into books; the rows the catalogue would refuse reported.
ReadFile readBooks(const QString &csvPath, const Options &options)
{
    QFile file(csvPath);
    if (!file.open(QIODevice::ReadOnly))
        throw CatalogueFileError(u"cannot read %1: %2"_s.arg(csvPath, file.errorString()));
    const TextEncoding::Decoded decoded = TextEncoding::decode(file.readAll());
    ReadFile read;
    read.summary.encoding = decoded.encoding;
    read.summary.delimiter = CsvReader::detectDelimiter(decoded.text);
    CsvReader reader(decoded.text, read.summary.delimiter);
    if (reader.atEnd())
        throw CatalogueFileError(u"%1 is empty"_s.arg(csvPath));
    const BookRowReader rows(reader.next().fields);
    read.summary.unreadColumns = rows.unreadColumns();
    while (!reader.atEnd()) {
        const auto book = rows.read(reader.next());
        if (const auto *refused = std::get_if<RefusedRow>(&book)) {
            ++read.summary.skipped;
            if (options.report)
                options.report(lineReport(refused->line, refused->reason + u"; row skipped"_s));
            continue;
        }
        const ImportedBook &imported = std::get<ImportedBook>(book);
        if (options.report) {
            for (const QString &kept : imported.keptInNotes)
                options.report(lineReport(imported.line, kept + u" is not in the book form's list; kept in the notes"_s));
        }
        read.books << imported;
    }
    return read;
}

// The keys the program holds are 16-bit: a book past that could never be shown.
void checkKey(qint64 id, const ImportedBook &book)
{
    if (id > Generator::MaxBooks) {
        throw CatalogueFileError(u"line %1: the book would be number %2, past the %3 the program can hold"_s
                                     .arg(book.line).arg(id).arg(Generator::MaxBooks));
    }
}

void addBooks(const QList<ImportedBook> &books, CatalogueEntries &entries, CatalogueWriter *writer,
              const Options &options)
{
    int done = 0;
    for (const ImportedBook &book : books) {
        BookRow row = book.row;
        row.publisherId = entries.publisher(book.publisher, book.place);
        const qint64 bookId = writer ? writer->addBook(row) : 0;
        checkKey(bookId, book);
        // A name given twice, or two that the catalogue finds equal, is one link.
        QSet<qint64> authors;
        for (const PersonName &name : book.authors) {
            const qint64 author = entries.author(name);
            if (!authors.contains(author) && writer)
                writer->linkAuthor(bookId, author);
            authors.insert(author);
        }
        QSet<qint64> topics;
        for (const QString &description : book.topics) {
            const qint64 topic = entries.topic(description);
            if (!topics.contains(topic) && writer)
                writer->linkTopic(bookId, topic);
            topics.insert(topic);
        }
        if (options.progress && (++done % ProgressEvery == 0 || done == books.size()))
            options.progress(done, int(books.size()));
    }
}

void countEntries(const CatalogueEntries &entries, Summary &summary)
{
    summary.newAuthors = entries.newAuthors();
    summary.newTopics = entries.newTopics();
    summary.newPublishers = entries.newPublishers();
}

void intoExistingCatalogue(const QString &cataloguePath, const ReadFile &read, const Options &options,
                           Summary &summary)
{
    Connection connection;
    try {
        connection.open(ConnectionString::forCatalogue(cataloguePath));
        if (options.dryRun) {
            CatalogueEntries entries(nullptr);
            entries.loadAll(connection.database());
            addBooks(read.books, entries, nullptr, options);
            countEntries(entries, summary);
            return;
        }
        TransactionGuard transaction(connection);
        CatalogueWriter writer(connection.database(), CatalogueWriter::SeedRows::Keep);
        CatalogueEntries entries(&writer);
        entries.loadAll(connection.database());
        addBooks(read.books, entries, &writer, options);
        transaction.commit();
        countEntries(entries, summary);
    } catch (const ProviderError &error) {
        throw CatalogueFileError(u"%1: %2"_s.arg(cataloguePath, error.description));
    }
}

// A new catalogue holds exactly the books imported: the first author, topic and book take
// the places of the rows every new catalogue starts with.
void intoNewCatalogue(const QString &cataloguePath, const ReadFile &read, const Options &options,
                      Summary &summary)
{
    summary.newCatalogue = true;
    if (options.dryRun) {
        ScopedDatabase memory(u":memory:"_s);
        QSqlDatabase db = memory.db();
        CatalogueFile::applySchema(db);
        CatalogueEntries entries(nullptr);
        entries.loadPublishers(db);
        addBooks(read.books, entries, nullptr, options);
        countEntries(entries, summary);
        return;
    }
    CatalogueFile::create(cataloguePath, false, [&](QSqlDatabase &db) {
        CatalogueWriter writer(db);
        CatalogueEntries entries(&writer);
        entries.loadPublishers(db);
        addBooks(read.books, entries, &writer, options);
        countEntries(entries, summary);
    });
}

} // namespace

Summary run(const QString &csvPath, const QString &cataloguePath, const Options &options)
{
    QElapsedTimer timer;
    timer.start();
    ReadFile read = readBooks(csvPath, options);
    Summary &summary = read.summary;
    if (QFileInfo::exists(cataloguePath))
        intoExistingCatalogue(cataloguePath, read, options, summary);
    else
        intoNewCatalogue(cataloguePath, read, options, summary);
    summary.books = int(read.books.size());
    summary.milliseconds = timer.elapsed();
    return summary;
}

} // namespace CsvImport
