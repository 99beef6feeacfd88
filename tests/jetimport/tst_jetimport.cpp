// The import of an older Jet catalogue: every table brought across value by value, and the
// figures the forms show of it the same as the older catalogue's.
#include "catalogue/scopeddatabase.h"
#include "jetfixtures.h"
#include "jetimport/catalogueimport.h"
#include "jetimport/jetfile.h"

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
