// How quickly a catalogue of 30,000 books is exported to CSV and imported back into a new
// catalogue, beside SQLite itself reading the same rows and inserting them into a new file.

#include "benchcatalogue.h"

#include "catalogue/cataloguefile.h"
#include "catalogue/scopeddatabase.h"
#include "transfer/catalogueexport.h"
#include "transfer/csvimport.h"

#include <QCoreApplication>
#include <QFile>
#include <QSqlQuery>
#include <QSqlRecord>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// What an export reads: every book with its publisher, and every link with its name.
const QStringList exportedRows{
    u"SELECT b.*, p.PublisherName, p.PublisherPlace FROM tblBook b "
    "LEFT JOIN tblPublisher p ON p.PublisherID = b.BookPublisherId ORDER BY b.BookID"_s,
    u"SELECT ba.BookID, a.AuthorSurname, a.AuthorFirstName FROM tblBookAuthor ba "
    "JOIN tblAuthor a ON a.AuthorID = ba.AuthorID ORDER BY ba.BookID"_s,
    u"SELECT bt.BookID, t.TopicDescription FROM tblBookTopic bt "
    "JOIN tblTopic t ON t.TopicID = bt.TopicID ORDER BY bt.BookID"_s,
};

// What an import writes, in the order it must go in.
const QStringList importedTables{u"tblPublisher"_s, u"tblAuthor"_s, u"tblTopic"_s, u"tblBook"_s,
                                 u"tblBookAuthor"_s, u"tblBookTopic"_s};

using Rows = QList<QVariantList>;

Rows rowsOf(const QSqlDatabase &db, const QString &table)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.exec(u"SELECT * FROM "_s + table);
    Rows rows;
    while (query.next()) {
        QVariantList row;
        for (int c = 0; c < query.record().count(); ++c)
            row << query.value(c);
        rows << row;
    }
    return rows;
}

// The same rows as the import writes, put into a new catalogue by one prepared INSERT per
// table, keys and all: the least a new catalogue of these books costs.
void insertRaw(const QString &path, const QList<std::pair<QString, Rows>> &tables)
{
    CatalogueFile::create(path, true /* overwrite */, [&](QSqlDatabase &db) {
        CatalogueFile::exec(db, u"DELETE FROM tblBook"_s);
        CatalogueFile::exec(db, u"DELETE FROM tblAuthor"_s);
        CatalogueFile::exec(db, u"DELETE FROM tblTopic"_s);
        CatalogueFile::exec(db, u"DELETE FROM tblPublisher"_s);
        for (const auto &[table, rows] : tables) {
            QSqlQuery insert(db);
            const QStringList marks(rows.constFirst().size(), u"?"_s);
            insert.prepare(u"INSERT INTO %1 VALUES (%2)"_s.arg(table, marks.join(u", "_s)));
            for (const QVariantList &row : rows) {
                for (const QVariant &value : row)
                    insert.addBindValue(value);
                insert.exec();
            }
        }
    });
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const int books = argc > 1 ? std::max(1, std::atoi(argv[1])) : 30000;
    const BenchCatalogue catalogue(books);
    QTemporaryDir dir;
    const QString csvPath = dir.filePath(u"books.csv"_s);
    const QString importedPath = dir.filePath(u"QuireshelfCatalog01.mdb"_s);

    QList<std::pair<QString, Rows>> tables;
    const double readMs = bestMilliseconds(3, [&] {
        ScopedDatabase file(catalogue.path(), ScopedDatabase::Mode::ReadOnly);
        for (const QString &statement : exportedRows)
            readAll(file.db(), statement);
    });
    CatalogueExport::Options exportOptions;
    exportOptions.overwrite = true;
    const double exportMs = bestMilliseconds(3, [&] { CatalogueExport::write(catalogue.path(), csvPath, exportOptions); });
    reportFigure("export to CSV (raw: reading the same rows)", exportMs, readMs, "ms");

    {
        ScopedDatabase file(catalogue.path(), ScopedDatabase::Mode::ReadOnly);
        for (const QString &table : importedTables)
            tables.append({table, rowsOf(file.db(), table)});
    }
    const double insertMs = bestMilliseconds(3, [&] { insertRaw(dir.filePath(u"raw.mdb"_s), tables); });
    const double importMs = bestMilliseconds(3, [&] {
        QFile::remove(importedPath);
        CsvImport::run(csvPath, importedPath, {});
    });
    reportFigure("import into a new catalogue (raw: inserting them)", importMs, insertMs, "ms");
    CsvImport::Options dryRun;
    dryRun.dryRun = true;
    const double dryMs = bestMilliseconds(3, [&] { CsvImport::run(csvPath, catalogue.path(), dryRun); });
    reportFigure("dry run against the catalogue itself", dryMs, readMs, "ms");
    std::printf("%d books, %lld bytes of CSV\n", books, QFile(csvPath).size());
    return 0;
}
