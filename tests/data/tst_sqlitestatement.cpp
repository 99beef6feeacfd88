#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/jetsql.h"
#include "data/providererror.h"
#include "data/rowstore.h"
#include "data/sqlitestatement.h"
#include "support/testcatalogue.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A value with its type, so that a number and its text never compare equal.
QString described(const QVariant &value)
{
    return QString::fromLatin1(value.typeName() ? value.typeName() : "invalid")
        + (value.isNull() ? u" null"_s : u" "_s + value.toString());
}

struct Read
{
    QStringList names;
    QList<QStringList> rows;
};

Read throughTheDriver(const QSqlDatabase &db, const QString &statement)
{
    Read read;
    QSqlQuery query(db);
    query.setForwardOnly(true);
    if (!query.exec(statement))
        qFatal("%s", qPrintable(query.lastError().text()));
    for (int c = 0; c < query.record().count(); ++c)
        read.names << query.record().fieldName(c);
    while (query.next()) {
        QStringList row;
        for (int c = 0; c < read.names.size(); ++c)
            row << described(query.value(c));
        read.rows << row;
    }
    return read;
}

Read straight(Connection &connection, const QString &statement)
{
    Read read;
    SqliteStatement query(connection, statement);
    read.names = query.columnNames();
    while (query.next()) {
        QStringList row;
        for (int c = 0; c < query.columnCount(); ++c)
            row << described(query.value(c));
        read.rows << row;
    }
    return read;
}

// Every row as a row store holds it, from the driver's values and from the cells.
QList<QStringList> stored(const RowStore &store)
{
    QList<QStringList> rows;
    for (int r = 0; r < store.rowCount(); ++r) {
        QStringList row;
        for (const QVariant &value : store.row(r))
            row << described(value);
        rows << row;
    }
    return rows;
}

} // namespace

// Statements read straight from SQLite give the values, the column names and the errors
// that Qt's SQLite driver gives, and rows stored from either are the same.
class TestSqliteStatement : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<Connection> m_connection;

private Q_SLOTS:
    void init()
    {
        m_catalogue = std::make_unique<TestCatalogue>(TestCatalogue::Content::Sample);
        QSqlQuery make(m_catalogue->db());
        QVERIFY(make.exec(u"create table tblMixed (Id integer primary key, Anything, Named text)"_s));
        QVERIFY(make.exec(
            u"insert into tblMixed (Anything, Named) values (12, 'twelve'), (2.5, ''), "
            "('Écoles – “quoted”', null), (x'00ff10', 'blob'), (null, 'Ærø'), (-7, '7'), "
            "(9007199254740993, 'big')"_s));
        m_connection = std::make_unique<Connection>();
        m_connection->open(ConnectionString::forCatalogue(m_catalogue->path()));
    }
    void cleanup()
    {
        m_connection.reset();
        m_catalogue.reset();
    }

    void sameAsTheDriver_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::newRow("every kind of value") << u"select * from tblMixed order by Id"_s;
        QTest::newRow("books") << u"select * from tblBook order by BookID"_s;
        QTest::newRow("names and aliases")
            << u"select tblAuthor.AuthorID, AuthorSurname as \"Sur name\", "
               "AuthorFirstName || ' ' || AuthorSurname, 1 + 1 from tblAuthor"_s;
        QTest::newRow("a join, collated")
            << JetSql::toCollatedSqlite(
                   u"select tblTopic.TopicDescription, tblBook.BookDescription from tblTopic, "
                   "tblBook, tblBookTopic where tblBook.BookID = tblBookTopic.BookID and "
                   "tblBookTopic.TopicID = tblTopic.TopicID order by 1, 2"_s);
        QTest::newRow("no rows") << u"select * from tblBook where BookID < 0"_s;
        QTest::newRow("a stored query") << u"select * from qryBookDets"_s;
    }

    void sameAsTheDriver()
    {
        QFETCH(QString, statement);
        const Read expected = throughTheDriver(m_connection->database(), statement);
        const Read read = straight(*m_connection, statement);
        QCOMPARE(read.names, expected.names);
        QCOMPARE(read.rows, expected.rows);
    }

    void storedCellsAreStoredValues_data() { sameAsTheDriver_data(); }

    void storedCellsAreStoredValues()
    {
        QFETCH(QString, statement);
        SqliteStatement query(*m_connection, statement);
        RowStore fromCells;
        RowStore fromValues;
        fromCells.reset(query.columnCount());
        fromValues.reset(query.columnCount());
        while (query.next()) {
            QVariantList values;
            for (int c = 0; c < query.columnCount(); ++c)
                values << query.value(c);
            fromValues.appendRow(values);
            fromCells.appendRow(query.cells());
        }
        QCOMPARE(stored(fromCells), stored(fromValues));
        // Written over again, row by row, in the other order.
        for (int r = 0; r < fromCells.rowCount(); ++r)
            fromCells.setRow(r, fromValues.row(fromValues.rowCount() - 1 - r));
        QList<QStringList> reversed = stored(fromValues);
        std::reverse(reversed.begin(), reversed.end());
        QCOMPARE(stored(fromCells), reversed);
    }

    void refusedAsByTheDriver_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<int>("number");
        QTest::newRow("syntax") << u"select * from tblBook where"_s << ProviderErrorNumber::Syntax;
        QTest::newRow("no such table") << u"select * from tblNothing"_s
                                       << ProviderErrorNumber::Syntax;
        QTest::newRow("no such column") << u"select Nothing from tblBook"_s
                                        << ProviderErrorNumber::Syntax;
        QTest::newRow("an apostrophe") << u"select * from tblBook where BookDescription = 'it's'"_s
                                       << ProviderErrorNumber::Syntax;
    }

    void refusedAsByTheDriver()
    {
        QFETCH(QString, statement);
        QFETCH(int, number);
        QSqlQuery query(m_connection->database());
        QVERIFY(!query.exec(statement));
        const ProviderError expected = ProviderError::fromSqlError(query.lastError());
        try {
            SqliteStatement refused(*m_connection, statement);
            QFAIL("the statement was accepted");
        } catch (const ProviderError &error) {
            QCOMPARE(error.number, number);
            QCOMPARE(error.number, expected.number);
            QCOMPARE(error.description, expected.description);
            QCOMPARE(m_connection->errors().value(0).description, expected.description);
        }
        QVERIFY(!SqliteStatement::tryPrepare(*m_connection, statement));
    }

    // A failure while the rows are read, not when the statement is prepared.
    void failsWhileReading()
    {
        SqliteStatement query(*m_connection, u"select abs(-9223372036854775807 - Id) from tblMixed"_s);
        try {
            while (query.next()) {
            }
            QFAIL("every row was read");
        } catch (const ProviderError &error) {
            QCOMPARE(error.number, ProviderErrorNumber::General);
            QCOMPARE(error.description, u"integer overflow"_s);
        }
    }

    void boundText()
    {
        SqliteStatement query(*m_connection,
                              u"select count(*) from json_each(?) where value > 1"_s);
        query.bind(1, u"[1, 2, 3]"_s);
        QVERIFY(query.next());
        QCOMPARE(query.integer(0), 2);
        QVERIFY(query.isInteger(0));
        QVERIFY(!query.next());
    }
};

QTEST_GUILESS_MAIN(TestSqliteStatement)
#include "tst_sqlitestatement.moc"
