// The import of an older Jet catalogue: every table brought across value by value, rows that
// break the new catalogue's rules repaired or stopping the import, bad files refused.
#include "catalogue/cataloguefile.h"
#include "catalogue/scopeddatabase.h"
#include "jetfixtures.h"
#include "jetimport/catalogueimport.h"
#include "jetimport/jetfile.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSet>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString catalogueFixture = u"QuireshelfCatalog01.mdb"_s;

// A value as the test compares it: its kind and its exact content.
QString jetText(const JetValue &value, JetColumn::Type type, bool nullIsEmpty)
{
    if (isNull(value))
        return nullIsEmpty ? u"text:"_s : u"NULL"_s;
    if (const auto *text = std::get_if<QString>(&value))
        return u"text:"_s + *text;
    if (const auto *number = std::get_if<qint64>(&value))
        return u"integer:"_s + QString::number(*number);
    if (const auto *yes = std::get_if<bool>(&value))
        return u"integer:"_s + (*yes ? u"1"_s : u"0"_s);
    if (const auto *money = std::get_if<JetCurrency>(&value))
        return u"currency:%1 as %2"_s.arg(money->toString(), QString::number(double(money->tenThousandths) / 10000.0, 'g', 17));
    return u"unexpected %1"_s.arg(int(type));
}

QString sqliteText(const QVariant &value, JetColumn::Type type)
{
    if (value.isNull())
        return u"NULL"_s;
    switch (value.typeId()) {
    case QMetaType::QString:
        return u"text:"_s + value.toString();
    case QMetaType::LongLong:
    case QMetaType::Int:
        return u"integer:"_s + value.toString();
    case QMetaType::Double:
        if (type == JetColumn::Type::Currency) {
            const double amount = value.toDouble();
            return u"currency:%1 as %2"_s.arg(JetCurrency{qRound64(amount * 10000)}.toString(), QString::number(amount, 'g', 17));
        }
        return u"real:"_s + QString::number(value.toDouble(), 'g', 17);
    default:
        return u"unexpected "_s + QString::fromLatin1(value.typeName());
    }
}

// Every row of a table, one string each, sorted: the same for two tables with the same rows.
QStringList jetRows(const JetFile &file, const QString &table)
{
    const QList<JetColumn> columns = file.columns(table);
    QStringList rows;
    file.readRows(table, [&](const JetRow &row) {
        QStringList values;
        for (qsizetype i = 0; i < row.size(); ++i)
            values << jetText(row[i], columns[i].type, table == u"tblCatalogueControl"_s);
        rows << values.join(u" | "_s);
    });
    rows.sort();
    return rows;
}

QStringList sqliteRows(const QSqlDatabase &db, const QString &table, const QList<JetColumn> &columns)
{
    QStringList names;
    for (const JetColumn &column : columns)
        names << column.name;
    QSqlQuery query(db);
    if (!query.exec(u"SELECT %1 FROM %2"_s.arg(names.join(u", "_s), table)))
        return {u"cannot read "_s + table};
    QStringList rows;
    while (query.next()) {
        QStringList values;
        for (qsizetype i = 0; i < columns.size(); ++i)
            values << sqliteText(query.value(int(i)), columns[i].type);
        rows << values.join(u" | "_s);
    }
    rows.sort();
    return rows;
}

// The fixture's tables with a few rows added or changed, as an older catalogue that broke
// the rules might hold them.
class EditedTables : public JetTables
{
public:
    explicit EditedTables(const JetFile &file) : m_file(file) {}

    void add(const QString &table, const JetRow &row) { m_added[table] << row; }
    void edit(const QString &table, std::function<void(JetRow &)> change) { m_edits[table] = std::move(change); }
    void empty(const QString &table) { m_emptied << table; }
    void leaveOut(const QString &table) { m_left << table; }

    bool hasTable(const QString &name) const override { return !m_left.contains(name) && m_file.hasTable(name); }
    QList<JetColumn> columns(const QString &table) const override { return m_file.columns(table); }
    qint64 rowCount(const QString &table) const override
    {
        return (m_emptied.contains(table) ? 0 : m_file.rowCount(table)) + m_added.value(table).size();
    }
    void readRows(const QString &table, const std::function<void(const JetRow &)> &handle) const override
    {
        if (!m_emptied.contains(table)) {
            m_file.readRows(table, [&](const JetRow &row) {
                JetRow edited = row;
                if (m_edits.contains(table))
                    m_edits[table](edited);
                handle(edited);
            });
        }
        for (const JetRow &row : m_added.value(table))
            handle(row);
    }

private:
    const JetFile &m_file;
    QHash<QString, QList<JetRow>> m_added;
    QHash<QString, std::function<void(JetRow &)>> m_edits;
    QSet<QString> m_emptied;
    QSet<QString> m_left;
};

JetRow firstRow(const JetFile &file, const QString &table)
{
    JetRow first;
    file.readRows(table, [&](const JetRow &row) {
        if (first.isEmpty())
            first = row;
    });
    return first;
}

// A book like the fixture's first, under another number and with another publisher.
JetRow bookWithPublisher(const JetFile &file, qint64 id, const JetValue &publisher)
{
    JetRow book = firstRow(file, u"tblBook"_s);
    book[0] = id;
    book[6] = publisher;
    return book;
}

QStringList filesIn(const QTemporaryDir &dir)
{
    return QDir(dir.path()).entryList(QDir::Files | QDir::Hidden);
}

QVariant scalar(const QString &path, const QString &sql)
{
    ScopedDatabase file(path, ScopedDatabase::Mode::ReadOnly);
    QSqlQuery query(file.db());
    if (!query.exec(sql) || !query.next())
        return {};
    return query.value(0);
}

// The one-line error an import ends with; empty when it went through.
QString errorOf(const std::function<void()> &import)
{
    try {
        import();
    } catch (const CatalogueFileError &e) {
        return e.message();
    }
    return {};
}

QString importError(const QString &jetPath, const QString &path)
{
    return errorOf([&] { CatalogueImport::run(jetPath, path); });
}

} // namespace

class TestJetImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsEveryValueOfEveryTable()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);
        const CatalogueImport::Summary summary = CatalogueImport::run(jetFixture(catalogueFixture), path);

        const JetFile jet(jetFixture(catalogueFixture));
        ScopedDatabase imported(path, ScopedDatabase::Mode::ReadOnly);
        for (const QString &table : CatalogueImport::tables()) {
            const QStringList expected = jetRows(jet, table);
            QCOMPARE(expected.size(), jet.rowCount(table));
            QCOMPARE(sqliteRows(imported.db(), table, jet.columns(table)), expected);
        }
        QCOMPARE(summary.problems, QStringList());
        QCOMPARE(summary.checkProblems, QStringList());
        QStringList counts;
        for (const CatalogueImport::TableCount &count : summary.tables)
            counts << u"%1 %2"_s.arg(count.table).arg(count.rows);
        QCOMPARE(counts, (QStringList{u"tblPublisher 12"_s, u"tblAuthor 40"_s, u"tblTopic 15"_s, u"tblBook 120"_s,
                                      u"tblBookAuthor 213"_s, u"tblBookTopic 159"_s, u"tblCatalogueControl 1"_s,
                                      u"tblCriteriaHits 0"_s, u"tblLabelTable 0"_s}));
        QCOMPARE(summary.rows(), 560);
    }

    // What the comparison above relies on the fixture to hold, so that it proves something.
    void theFixtureHoldsTheHardCases()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        QSet<QString> seen;
        for (const QString &table : CatalogueImport::tables()) {
            jet.readRows(table, [&](const JetRow &row) {
                for (const JetValue &value : row) {
                    if (isNull(value))
                        seen << u"NULL"_s;
                    if (const auto *text = std::get_if<QString>(&value)) {
                        if (text->isEmpty())
                            seen << u"empty text"_s;
                        for (const QString &part : {u"\r\n"_s, u"é"_s, u"ë"_s, u"Ø"_s, u"£"_s, u"O'Brien"_s, u"&"_s, u"\""_s}) {
                            if (text->contains(part))
                                seen << part;
                        }
                    }
                    if (const auto *money = std::get_if<JetCurrency>(&value)) {
                        if (money->tenThousandths % 100 != 0)
                            seen << u"four decimals"_s;
                        if (money->tenThousandths >= 10000000)
                            seen << u"thousands"_s;
                    }
                }
            });
        }
        for (const QString &expected : {u"NULL"_s, u"empty text"_s, u"\r\n"_s, u"é"_s, u"ë"_s, u"Ø"_s, u"£"_s, u"O'Brien"_s,
                                        u"&"_s, u"\""_s, u"four decimals"_s, u"thousands"_s})
            QVERIFY2(seen.contains(expected), qPrintable(expected));
    }

    void keepsTheFirstBookAsItWas()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);
        CatalogueImport::run(jetFixture(catalogueFixture), path);

        QCOMPARE(scalar(path, u"SELECT BookDescription FROM tblBook WHERE BookID = 1"_s).toString(), u"Travels in Égypte"_s);
        QCOMPARE(scalar(path, u"SELECT BookPrice FROM tblBook WHERE BookID = 1"_s).toDouble(), 2222.15);
        QCOMPARE(scalar(path, u"SELECT BookNotes FROM tblBook WHERE BookID = 2"_s).toString(),
                 u"Inscribed copy; foxing to prelims — \"fine\"\r\nBought at auction £435"_s);
        QVERIFY(scalar(path, u"SELECT BookWhenSold FROM tblBook WHERE BookID = 1"_s).isNull());
        QCOMPARE(scalar(path, u"SELECT BookWhenPublished FROM tblBook WHERE BookID = 3"_s).toInt(), 0);
        QCOMPARE(scalar(path, u"SELECT Addr5 FROM tblCatalogueControl"_s).toString(), u""_s);
        QCOMPARE(scalar(path, u"SELECT CatalogueName FROM tblCatalogueControl"_s).toString(), u"The Ashworth Library"_s);
        // The new catalogue's own stored queries read the imported rows.
        QCOMPARE(scalar(path, u"SELECT BookDets1 FROM qryReport01 WHERE Expr1 = 1"_s).toString(), u"Travels in Égypte"_s);
        // New rows are numbered after the imported ones.
        QCOMPARE(scalar(path, u"SELECT seq FROM sqlite_sequence WHERE name = 'tblBook'"_s).toInt(), 120);
    }

    // The figures the statistics form shows and a search's hits, worked out from the values
    // read out of the Jet file, are those of the imported catalogue.
    void statisticsAndSearchesGiveWhatTheJetValuesGive()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);
        CatalogueImport::run(jetFixture(catalogueFixture), path);
        const JetFile jet(jetFixture(catalogueFixture));

        const auto column = [&jet](const QString &table, const QString &name) {
            const QList<JetColumn> columns = jet.columns(table);
            for (qsizetype i = 0; i < columns.size(); ++i) {
                if (columns[i].name.compare(name, Qt::CaseInsensitive) == 0)
                    return int(i);
            }
            return -1;
        };
        const int id = column(u"tblBook"_s, u"BookID"_s);
        const int price = column(u"tblBook"_s, u"BookPrice"_s);
        const int year = column(u"tblBook"_s, u"BookWhenPublished"_s);
        const int publisherOfBook = column(u"tblBook"_s, u"BookPublisherId"_s);
        QVERIFY(id >= 0 && price >= 0 && year >= 0 && publisherOfBook >= 0);
        qint64 books = 0, total = 0, dearest = 0, cheapest = std::numeric_limits<qint64>::max();
        qint64 oldest = std::numeric_limits<qint64>::max();
        QHash<qint64, QSet<qint64>> booksOfPublisher;
        jet.readRows(u"tblBook"_s, [&](const JetRow &row) {
            ++books;
            const qint64 amount = std::get<JetCurrency>(row[price]).tenThousandths;
            total += amount;
            dearest = std::max(dearest, amount);
            cheapest = std::min(cheapest, amount);
            if (const auto *published = std::get_if<qint64>(&row[year]); published && *published != 0)
                oldest = std::min(oldest, *published);
            booksOfPublisher[std::get<qint64>(row[publisherOfBook])] << std::get<qint64>(row[id]);
        });

        // The statistics form's two statements, as it runs them.
        ScopedDatabase imported(path, ScopedDatabase::Mode::ReadOnly);
        QSqlQuery figures(imported.db());
        QVERIFY(figures.exec(u"select count(*) as TotalNoBooks, sum(BookPrice) as TotalValue, "
                             "max(BookPrice) as Expensive, min(BookPrice) as Cheapest from tblBook"_s));
        QVERIFY(figures.next());
        QCOMPARE(figures.value(0).toLongLong(), books);
        QCOMPARE(qRound64(figures.value(1).toDouble() * 10000), total);
        QCOMPARE(qRound64(figures.value(2).toDouble() * 10000), dearest);
        QCOMPARE(qRound64(figures.value(3).toDouble() * 10000), cheapest);
        QCOMPARE(scalar(path, u"select   min(BookWhenPublished) as Oldest from tblBook "
                              "where BookWhenPublished <> 0"_s).toLongLong(),
                 oldest);

        // A search by publisher, as the search form builds it, finds that publisher's books.
        const int publisherId = column(u"tblPublisher"_s, u"PublisherID"_s);
        const int publisherName = column(u"tblPublisher"_s, u"PublisherName"_s);
        int searched = 0;
        jet.readRows(u"tblPublisher"_s, [&](const JetRow &row) {
            const QString name = std::get<QString>(row[publisherName]);
            if (name.contains(u'\''))
                return; // the search's statement cannot carry an apostrophe
            QSqlQuery hits(imported.db());
            QVERIFY(hits.exec(u"Select distinct tblBook.BookID from tblBook  ,tblPublisher  where "
                              "tblBook.BookPublisherID = tblPublisher.PublisherID and "
                              "tblPublisher.PublisherName = '"_s + name + u"'"_s));
            QSet<qint64> found;
            while (hits.next())
                found << hits.value(0).toLongLong();
            QCOMPARE(found, booksOfPublisher.value(std::get<qint64>(row[publisherId])));
            ++searched;
        });
        QVERIFY(searched > 5);
    }

    void repairsRowsThatBreakTheRules()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        const JetRow link = firstRow(jet, u"tblBookAuthor"_s);
        const qint64 linkedBook = std::get<qint64>(link[0]);
        const qint64 linkedAuthor = std::get<qint64>(link[1]);
        EditedTables tables(jet);
        tables.add(u"tblBook"_s, bookWithPublisher(jet, 500, qint64(999)));
        tables.add(u"tblBook"_s, bookWithPublisher(jet, 501, JetValue()));
        tables.add(u"tblBookAuthor"_s, {qint64(999), qint64(1)});
        tables.add(u"tblBookAuthor"_s, {qint64(1), qint64(999)});
        tables.add(u"tblBookAuthor"_s, link);
        tables.add(u"tblBookTopic"_s, {qint64(2), JetValue()});
        QStringList reported;
        CatalogueImport::Options options;
        options.problem = [&](const QString &problem) { reported << problem; };

        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);
        const CatalogueImport::Summary summary = CatalogueImport::run(tables, u"old.mdb"_s, path, options);

        const QStringList expected{
            u"tblBook: BookID 500 names publisher 999, which does not exist; it is given publisher UnKnown (PublisherID 1)"_s,
            u"tblBook: BookID 501 names no publisher; it is given publisher UnKnown (PublisherID 1)"_s,
            u"tblBookAuthor: BookID 999, AuthorID 1: there is no such book; the link is left out"_s,
            u"tblBookAuthor: BookID 1, AuthorID 999: there is no such author; the link is left out"_s,
            u"tblBookAuthor: BookID %1, AuthorID %2: linked twice; the link is kept once"_s.arg(linkedBook).arg(linkedAuthor),
            u"tblBookTopic: BookID 2, TopicID NULL: there is no such topic; the link is left out"_s,
        };
        QCOMPARE(reported, expected);
        QCOMPARE(summary.problems, expected);
        QCOMPARE(summary.checkProblems, QStringList());
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblBook"_s).toInt(), 122);
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblBook WHERE BookID IN (500, 501) AND BookPublisherId = 1"_s).toInt(), 2);
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblBookAuthor"_s).toInt(), 213);
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblBookTopic"_s).toInt(), 159);
    }

    void addsTheUnknownPublisherWhenThereIsNone()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        EditedTables tables(jet);
        tables.edit(u"tblPublisher"_s, [](JetRow &row) {
            if (std::get<QString>(row[1]) == u"UnKnown"_s)
                row[1] = QString(u"Not known"_s);
        });
        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);

        const CatalogueImport::Summary summary = CatalogueImport::run(tables, u"old.mdb"_s, path);

        QCOMPARE(summary.problems, QStringList{u"tblPublisher: there is no publisher named UnKnown; one is added"_s});
        QCOMPARE(summary.checkProblems, QStringList());
        QCOMPARE(summary.tables.first().rows, 13);
        QCOMPARE(scalar(path, u"SELECT PublisherID FROM tblPublisher WHERE PublisherName = 'UnKnown'"_s).toInt(), 13);
    }

    void repairsMissingPricesAndOwnerRows()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        EditedTables tables(jet);
        tables.edit(u"tblBook"_s, [](JetRow &book) {
            if (std::get<qint64>(book[0]) == 3)
                book[7] = JetValue();
        });
        tables.add(u"tblCatalogueControl"_s, firstRow(jet, u"tblCatalogueControl"_s));
        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);

        const CatalogueImport::Summary summary = CatalogueImport::run(tables, u"old.mdb"_s, path);

        QCOMPARE(summary.problems,
                 (QStringList{u"tblBook: BookID 3 has no price; it is given 0"_s,
                              u"tblCatalogueControl: row 2 is one more than the single row of the owner's details; it is left out"_s}));
        QCOMPARE(summary.checkProblems, QStringList());
        QCOMPARE(scalar(path, u"SELECT BookPrice FROM tblBook WHERE BookID = 3"_s).toDouble(), 0.0);
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblCatalogueControl"_s).toInt(), 1);
    }

    void writesEmptyOwnerDetailsWhenThereAreNone()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        EditedTables tables(jet);
        tables.empty(u"tblCatalogueControl"_s);
        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);

        const CatalogueImport::Summary summary = CatalogueImport::run(tables, u"old.mdb"_s, path);

        QCOMPARE(summary.problems, QStringList{u"tblCatalogueControl: there are no owner's details; empty ones are written"_s});
        QCOMPARE(summary.checkProblems, QStringList());
        QCOMPARE(scalar(path, u"SELECT CatalogueName || Email FROM tblCatalogueControl"_s).toString(), u""_s);
    }

    void aMissingTableIsNamed()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        EditedTables tables(jet);
        tables.leaveOut(u"tblBookTopic"_s);
        QTemporaryDir dir;

        QCOMPARE(errorOf([&] { CatalogueImport::run(tables, u"old.mdb"_s, dir.filePath(u"new.mdb"_s)); }),
                 u"old.mdb is not a whole catalogue: it has no table tblBookTopic"_s);
        QCOMPARE(filesIn(dir), QStringList());
    }

    void stopsAtTheFirstProblemWhenAsked()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        EditedTables tables(jet);
        tables.add(u"tblBook"_s, bookWithPublisher(jet, 500, qint64(999)));
        tables.add(u"tblBookAuthor"_s, {qint64(999), qint64(1)});
        CatalogueImport::Options options;
        options.onProblem = CatalogueImport::OnProblem::Stop;
        QStringList reported;
        options.problem = [&](const QString &problem) { reported << problem; };
        QTemporaryDir dir;

        QCOMPARE(errorOf([&] { CatalogueImport::run(tables, u"old.mdb"_s, dir.filePath(u"new.mdb"_s), options); }),
                 u"the import stopped at a problem of old.mdb; nothing was written"_s);
        QCOMPARE(reported.size(), 1);
        QVERIFY(reported[0].startsWith(u"tblBook: BookID 500 "_s));
        QCOMPARE(filesIn(dir), QStringList());
    }

    void aRepeatedKeyStopsTheImport()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        EditedTables tables(jet);
        tables.add(u"tblAuthor"_s, firstRow(jet, u"tblAuthor"_s));
        QTemporaryDir dir;

        QCOMPARE(errorOf([&] { CatalogueImport::run(tables, u"old.mdb"_s, dir.filePath(u"new.mdb"_s)); }),
                 u"old.mdb: two rows of tblAuthor have AuthorID 1"_s);
        QCOMPARE(filesIn(dir), QStringList());
    }

    void badFilesEndWithAnErrorAndNoFile_data()
    {
        QTest::addColumn<QString>("fixture");
        QTest::addColumn<qint64>("size");
        QTest::addColumn<QString>("error");
        QTest::newRow("cut short") << catalogueFixture << qint64(70 * 4096)
                                   << u"old.mdb cannot be read: table tblBook holds 77 of its 120 rows: the file is damaged or cut short"_s;
        QTest::newRow("not Jet") << u"README.md"_s << qint64(-1) << u"old.mdb is not a Jet database"_s;
        QTest::newRow("Jet without the catalogue's tables")
            << u"access2000-types.mdb"_s << qint64(-1) << u"old.mdb is not a catalogue: it has none of a catalogue's tables"_s;
    }

    void badFilesEndWithAnErrorAndNoFile()
    {
        QFETCH(QString, fixture);
        QFETCH(qint64, size);
        QFETCH(QString, error);
        QTemporaryDir input;
        const QString old = jetFixtureCopy(input, fixture, size);
        QVERIFY(!old.isEmpty());
        QTemporaryDir output;

        QCOMPARE(importError(old, output.filePath(u"new.mdb"_s)), input.path() + u'/' + error);
        QCOMPARE(filesIn(output), QStringList());
    }

    void anExistingCatalogueIsReplacedOnlyWhenAsked()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);
        CatalogueFile::create(path, false);

        QCOMPARE(importError(jetFixture(catalogueFixture), path), path + u" exists already (use --force to replace it)"_s);
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblAuthor"_s).toInt(), 1);

        CatalogueImport::Options options;
        options.overwrite = true;
        CatalogueImport::run(jetFixture(catalogueFixture), path, options);
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblAuthor"_s).toInt(), 40);
        QCOMPARE(filesIn(dir), QStringList{u"new.mdb"_s});
    }

    void reportsProgressForEveryTable()
    {
        QTemporaryDir dir;
        QStringList finished;
        CatalogueImport::Options options;
        options.progress = [&](const QString &table, qint64 done, qint64 total) {
            if (done == total)
                finished << table;
        };
        CatalogueImport::run(jetFixture(catalogueFixture), dir.filePath(u"new.mdb"_s), options);
        QCOMPARE(finished, CatalogueImport::tables());
    }
};

QTEST_GUILESS_MAIN(TestJetImport)
#include "tst_jetimport.moc"
