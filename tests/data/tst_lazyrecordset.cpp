#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/lazyrows.h"
#include "data/providererror.h"
#include "data/recordset.h"
#include "manytopics.h"
#include "support/testcatalogue.h"

#include <QLocale>
#include <QSqlQuery>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

// An ordered select over one table with a key: read lazily.
const QString LazySource = u"select * from tblTopic order by TopicDescription"_s;
// The same rows, in the same order, through a sub-select that makes the record set read them
// all when it opens.
const QString FullSource = u"select * from tblTopic where TopicID in (select TopicID from "
                           "tblTopic) order by TopicDescription"_s;

constexpr int Topics = 700;

QString describe(const QVariant &value)
{
    return value.isNull() ? u"Null"_s : value.toString();
}

// What a form could see of the record set now.
QString state(const Recordset &rs)
{
    QString text = u"pos %1 count %2 bof %3 eof %4 mode %5"_s.arg(rs.absolutePosition())
                       .arg(rs.recordCount())
                       .arg(rs.bof())
                       .arg(rs.eof())
                       .arg(int(rs.editMode()));
    if (rs.currentRow() >= 0)
        for (int field = 0; field < rs.fieldCount(); ++field)
            text += u' ' + describe(rs.value(field));
    return text;
}

// Every row, as valueAt gives it.
QStringList listing(const Recordset &rs)
{
    QStringList rows;
    for (int row = 0; row < rs.recordCount(); ++row) {
        QStringList values;
        for (int field = 0; field < rs.fieldCount(); ++field)
            values << describe(rs.valueAt(row, field));
        rows << values.join(u'|');
    }
    return rows;
}

// Runs one step of a script ("next", "move 5", "find TopicDescription = 'x'", "set
// TopicNotes new text", ...) and answers what the record set shows afterwards.
QString step(Recordset &rs, const QString &command, Recordset::Bookmark &mark)
{
    const QString verb = command.section(u' ', 0, 0);
    const QString rest = command.section(u' ', 1);
    std::optional<bool> found;
    try {
        if (verb == u"first")
            rs.moveFirst();
        else if (verb == u"last")
            rs.moveLast();
        else if (verb == u"next")
            rs.moveNext();
        else if (verb == u"previous")
            rs.movePrevious();
        else if (verb == u"move")
            rs.move(rest.toInt());
        else if (verb == u"to")
            rs.moveTo(rest.toInt());
        else if (verb == u"find")
            found = rs.find(rest);
        else if (verb == u"findnext")
            found = rs.find(rest, 1, true);
        else if (verb == u"findback")
            found = rs.find(rest, 0, false);
        else if (verb == u"mark")
            mark = rs.bookmark();
        else if (verb == u"back")
            rs.setBookmark(mark);
        else if (verb == u"set")
            rs.setValue(rest.section(u' ', 0, 0), rest.section(u' ', 1));
        else if (verb == u"add")
            rs.addNew();
        else if (verb == u"update")
            rs.update();
        else if (verb == u"cancel")
            rs.cancelUpdate();
        else if (verb == u"delete")
            rs.deleteCurrent();
        else if (verb == u"requery")
            rs.requery();
        else
            qFatal("unknown step %s", qPrintable(command));
    } catch (const ProviderError &error) {
        return u"error "_s + QString::number(error.number) + u' ' + state(rs);
    }
    return found ? u"found "_s + QString::number(*found) + u' ' + state(rs) : state(rs);
}

} // namespace

// The lazy record set shows what a record set that reads every row shows, step by step.
class TestLazyRecordset : public QObject
{
    Q_OBJECT

    struct Opened
    {
        std::unique_ptr<TestCatalogue> catalogue;
        std::unique_ptr<Connection> connection;
        std::unique_ptr<Recordset> rs;
    };

    static Opened open(const QString &source)
    {
        Opened opened;
        opened.catalogue = std::make_unique<TestCatalogue>(TestCatalogue::Content::Sample);
        AddManyTopics(opened.catalogue->db(), Topics);
        opened.connection = std::make_unique<Connection>();
        opened.connection->open(ConnectionString::forCatalogue(opened.catalogue->path()));
        opened.rs = opened.connection->execute(source);
        return opened;
    }

    static QStringList run(const QString &source, const QStringList &script, QStringList *rows,
                           QStringList *table)
    {
        Opened opened = open(source);
        QStringList seen{state(*opened.rs)};
        Recordset::Bookmark mark = 0;
        for (const QString &command : script)
            seen << command + u": "_s + step(*opened.rs, command, mark);
        *rows = listing(*opened.rs);
        QSqlQuery query(opened.catalogue->db());
        query.exec(u"select TopicID, TopicDescription, TopicNotes from tblTopic order by TopicID"_s);
        while (query.next())
            *table << describe(query.value(0)) + u'|' + describe(query.value(1)) + u'|'
                    + describe(query.value(2));
        return seen;
    }

private Q_SLOTS:
    void sameAsAFullRead_data()
    {
        QTest::addColumn<QStringList>("script");
        QTest::newRow("walk forward past the end")
            << QStringList{u"next"_s, u"next"_s, u"move 63"_s, u"next"_s, u"last"_s, u"next"_s,
                           u"next"_s};
        QTest::newRow("walk back past the start")
            << QStringList{u"last"_s, u"previous"_s, u"move -64"_s, u"previous"_s, u"first"_s,
                           u"previous"_s, u"previous"_s, u"next"_s};
        QTest::newRow("jumps") << QStringList{u"to 500"_s, u"move -300"_s, u"move 10000"_s,
                                              u"to -5"_s, u"move 3"_s, u"to 699"_s, u"move 0"_s};
        QTest::newRow("find by description")
            << QStringList{u"find TopicDescription = 'Topic 250'"_s,
                           u"findnext TopicDescription = 'Topic 250'"_s,
                           u"findback TopicDescription = 'topic 007'"_s,
                           u"find TopicDescription = 'Nothing like it'"_s, u"last"_s,
                           u"findback TopicNotes = 'Notes 2'"_s, u"find not a criterion"_s};
        QTest::newRow("find by key") << QStringList{u"find TopicID = 300"_s, u"last"_s,
                                                    u"findback TopicID = 12"_s,
                                                    u"find TopicID = 99999"_s};
        QTest::newRow("bookmarks") << QStringList{u"to 400"_s, u"mark"_s, u"first"_s, u"back"_s,
                                                  u"next"_s};
        QTest::newRow("edit and move on")
            << QStringList{u"to 350"_s, u"set TopicNotes Changed here"_s, u"next"_s,
                           u"previous"_s, u"set TopicDescription Aardvark"_s, u"update"_s,
                           u"to 600"_s, u"set TopicNotes Dropped"_s, u"cancel"_s};
        QTest::newRow("add, then cancel one")
            << QStringList{u"to 200"_s, u"add"_s, u"set TopicDescription Zebra"_s, u"move 0"_s,
                           u"last"_s, u"add"_s, u"set TopicNotes never kept"_s, u"cancel"_s,
                           u"next"_s, u"requery"_s, u"last"_s};
        QTest::newRow("delete in the middle and at the end")
            << QStringList{u"to 130"_s, u"delete"_s, u"next"_s, u"delete"_s, u"previous"_s,
                           u"last"_s, u"delete"_s, u"next"_s, u"last"_s, u"delete"_s,
                           u"previous"_s};
        QTest::newRow("requery after changes")
            << QStringList{u"to 640"_s, u"set TopicDescription Topic 001"_s, u"update"_s,
                           u"requery"_s, u"find TopicDescription = 'Topic 001'"_s,
                           u"findnext TopicDescription = 'Topic 001'"_s};
    }

    void sameAsAFullRead()
    {
        QFETCH(QStringList, script);
        QStringList lazyRows, fullRows, lazyTable, fullTable;
        const QStringList lazy = run(LazySource, script, &lazyRows, &lazyTable);
        const QStringList full = run(FullSource, script, &fullRows, &fullTable);
        QCOMPARE(lazy, full);
        QCOMPARE(lazyRows, fullRows);
        QCOMPARE(lazyTable, fullTable);
    }

    // Only the keys are read at open; the rows a visit needs are read then.
    void readsOnlyThePagesVisited()
    {
        Opened opened = open(LazySource);
        Recordset &rs = *opened.rs;
        QCOMPARE(rs.recordCount(),
                 opened.catalogue->scalar(u"select count(*) from tblTopic"_s).toInt());
        const int pages = (rs.recordCount() + LazyRows::PageRows - 1) / LazyRows::PageRows;
        const int lastPage = rs.recordCount() - (pages - 1) * LazyRows::PageRows;
        QCOMPARE(rs.rowsRead(), 0);
        rs.value(1);
        QCOMPARE(rs.rowsRead(), LazyRows::PageRows);
        rs.moveLast();
        rs.value(1);
        QCOMPARE(rs.rowsRead(), LazyRows::PageRows + lastPage);
        rs.moveFirst();
        rs.movePrevious();
        rs.moveNext();
        rs.valueAt(LazyRows::PageRows - 1, 0);
        QCOMPARE(rs.rowsRead(), LazyRows::PageRows + lastPage);
        rs.moveTo(LazyRows::PageRows); // the next page, then a scan reads twice as many
        rs.value(1);
        QCOMPARE(rs.rowsRead(), 3 * LazyRows::PageRows + lastPage);
    }

    // Between two page reads another connection changes one row and deletes another: the
    // rows stay where they were, a changed row not yet read shows its new values, a deleted
    // one keeps its key with every other field Null, and the rows already read are as read.
    void anotherConnectionBetweenPageReads()
    {
        Opened opened = open(LazySource);
        Recordset &rs = *opened.rs;
        const int count = rs.recordCount();
        const QVariant firstNotes = rs.value(u"TopicNotes"_s);
        const int changedRow = 400;
        const int deletedRow = 500;
        const QVariant changedKey = rs.valueAt(changedRow, 0);
        const QVariant deletedKey = rs.valueAt(deletedRow, 0);
        const QString firstKey = rs.value(0).toString();

        QSqlQuery other(opened.catalogue->db());
        QVERIFY(other.exec(u"update tblTopic set TopicNotes = 'Changed elsewhere' where TopicID = "_s
                           + changedKey.toString()));
        QVERIFY(other.exec(u"update tblTopic set TopicNotes = 'Not seen' where TopicID = "_s
                           + firstKey));
        QVERIFY(other.exec(u"delete from tblTopic where TopicID = "_s + deletedKey.toString()));
        QVERIFY(other.exec(u"insert into tblTopic (TopicDescription) values ('AAA new')"_s));

        QCOMPARE(rs.recordCount(), count);
        QCOMPARE(rs.value(u"TopicNotes"_s), firstNotes);
        rs.moveTo(changedRow);
        QCOMPARE(rs.value(0), changedKey);
        QCOMPARE(rs.value(u"TopicNotes"_s).toString(), u"Changed elsewhere"_s);
        QVERIFY(rs.find(u"TopicID = "_s + deletedKey.toString()));
        QCOMPARE(rs.absolutePosition(), deletedRow + 1);
        QCOMPARE(rs.value(0), deletedKey);
        QVERIFY(rs.value(u"TopicDescription"_s).isNull());
        QVERIFY(rs.value(u"TopicNotes"_s).isNull());
        rs.moveNext();
        QCOMPARE(rs.absolutePosition(), deletedRow + 2);

        rs.requery();
        QCOMPARE(rs.recordCount(), count);
        QCOMPARE(rs.value(u"TopicDescription"_s).toString(), u"AAA new"_s);
        QVERIFY(!rs.find(u"TopicID = "_s + deletedKey.toString()));
    }

    // A lazy record set sorts its keys itself when they are ordered by one text column; its
    // rows come in the order SQLite gives the same select, in every locale the program may
    // run in: Nulls first (last when descending), ties by key, letter case and accents as
    // the locale's dictionary has them.
    void textOrderAsSqlitesInEveryLocale_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("order");
        for (const QString &locale : {u"en_GB"_s, u"de_DE"_s, u"sv_SE"_s, u"C"_s}) {
            for (const QString &order :
                 {u"TopicDescription"_s, u"TopicDescription desc"_s, u"TopicNotes"_s,
                  u"tblTopic.TopicNotes DESC"_s}) {
                QTest::newRow(qPrintable(locale + u", "_s + order)) << locale << order;
            }
        }
    }

    void textOrderAsSqlitesInEveryLocale()
    {
        QFETCH(QString, locale);
        QFETCH(QString, order);
        QLocale::setDefault(QLocale(locale));
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QSqlQuery insert(catalogue.db());
        insert.prepare(u"insert into tblTopic (TopicDescription, TopicNotes) values (?, ?)"_s);
        const QStringList texts{u"Åberg"_s, u"Abba"_s, u"abba"_s, u"Zorn"_s, u"Ödman"_s,
                                u"Öl"_s, u"Ostern"_s, u"Müller"_s, u"Mueller"_s, u"Maße"_s,
                                u"Masse"_s, u"Zoe\u0308"_s, u"Zoë"_s, u"\U0001F4DA Books"_s,
                                u""_s, u" "_s, u"1984"_s, u"naïve"_s, u"naive"_s};
        for (int i = 0; i < texts.size(); ++i) {
            insert.addBindValue(texts.at(i));
            insert.addBindValue(i % 4 == 0 ? QVariant() : QVariant(texts.at(texts.size() - 1 - i)));
            QVERIFY(insert.exec());
        }
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        const QString lazy = u"select * from tblTopic order by "_s + order;
        QVERIFY(LazyRows::forSelect(lazy).has_value());
        const auto lazyRows = connection.execute(lazy);
        const auto fullRows = connection.execute(
            u"select * from tblTopic where TopicID in (select TopicID from tblTopic) order by "_s
            + order);
        QCOMPARE(listing(*lazyRows), listing(*fullRows));
        QLocale::setDefault(QLocale::c());
    }

    // Only what can be read by key, in a fixed order, is read lazily.
    void whichSelectsAreLazy_data()
    {
        QTest::addColumn<QString>("select");
        QTest::addColumn<bool>("lazy");
        QTest::newRow("ordered table") << u"SELECT * FROM tblBook ORDER BY BookDescription"_s << true;
        QTest::newRow("fields, where") << u"select BookID, BookDescription from tblBook where "
                                          "BookPrice > 2 order by BookDescription desc"_s
                                       << true;
        QTest::newRow("no order") << u"select * from tblBook"_s << false;
        QTest::newRow("join") << u"select tblBook.* from tblBook inner join tblCriteriaHits on "
                                 "tblCriteriaHits.BookID = tblBook.BookID order by BookID"_s
                              << false;
        QTest::newRow("comma join") << u"select tblBook.* from tblBook, tblCriteriaHits where "
                                       "tblCriteriaHits.BookID = tblBook.BookID order by BookID"_s
                                    << false;
        QTest::newRow("limit") << u"select * from tblBook order by BookID limit 5"_s << false;
        QTest::newRow("sub-select") << u"select * from tblBook where BookID in (select BookID "
                                       "from tblCriteriaHits) order by BookID"_s
                                    << false;
        QTest::newRow("distinct") << u"select distinct BookPrice from tblBook order by 1"_s << false;
        QTest::newRow("computed order") << u"select * from tblBook order by length(BookNotes)"_s
                                        << false;
    }

    void whichSelectsAreLazy()
    {
        QFETCH(QString, select);
        QFETCH(bool, lazy);
        QCOMPARE(LazyRows::forSelect(select).has_value(), lazy);
    }
};

QTEST_GUILESS_MAIN(TestLazyRecordset)
#include "tst_lazyrecordset.moc"
