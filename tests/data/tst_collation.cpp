// Text as the owner reads it: lists in a dictionary's order of the locale, and equality and
// LIKE that ignore the case of every letter, while the file stays plain SQLite.
#include "catalogue/cataloguecheck.h"
#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/jetsql.h"
#include "data/recordset.h"
#include "support/testcatalogue.h"

#include <QLocale>
#include <QProcess>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString quoted(const QString &text)
{
    return u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'';
}

// The values of one field of every row a statement gives, in order.
QStringList columnOf(Connection &connection, const QString &statement, const QString &field,
                     CommandType type = CommandType::Text)
{
    QStringList values;
    for (auto rs = connection.execute(statement, type); !rs->eof(); rs->moveNext())
        values.append(rs->value(field).toString());
    return values;
}

void addBooks(Connection &connection, const QStringList &titles)
{
    for (const QString &title : titles)
        connection.execute(u"insert into tblBook (BookDescription) values ("_s + quoted(title)
                           + u")"_s);
}

// The names of the text columns of every table in the file, read without the program.
QList<std::pair<QString, QString>> textColumns(const TestCatalogue &catalogue)
{
    QList<std::pair<QString, QString>> columns;
    QSqlQuery tables(catalogue.db());
    tables.exec(u"SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'"_s);
    while (tables.next()) {
        const QString table = tables.value(0).toString();
        QSqlQuery info(catalogue.db());
        info.exec(u"PRAGMA table_info(\"%1\")"_s.arg(table));
        while (info.next())
            if (info.value(2).toString().startsWith(u"TEXT"_s, Qt::CaseInsensitive))
                columns.append({table, info.value(1).toString()});
    }
    return columns;
}

} // namespace

class TestCollation : public QObject
{
    Q_OBJECT

private:
    TestCatalogue m_catalogue;
    std::unique_ptr<Connection> m_connection;

    // A connection opened while `locale` is the default one, as the program's would be.
    Connection &openIn(const QString &locale)
    {
        QLocale::setDefault(QLocale(locale));
        m_connection = std::make_unique<Connection>();
        m_connection->open(ConnectionString::forCatalogue(m_catalogue.path()));
        m_connection->execute(u"delete from tblBook"_s);
        return *m_connection;
    }

private Q_SLOTS:
    void cleanup()
    {
        m_connection.reset();
        QLocale::setDefault(QLocale::c());
    }

    void listsFollowTheLocale_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("en_GB accented letters file with their plain ones")
            << u"en_GB"_s
            << QStringList{u"Abbey Walk"_s, u"Éditions du Pont-Neuf"_s, u"Edwards"_s,
                           u"Hélène"_s, u"Hugh"_s, u"Walker"_s};
        QTest::newRow("en_GB lower case, then capitals, then accents")
            << u"en_GB"_s
            << QStringList{u"bronte"_s, u"Bronte"_s, u"brontë"_s, u"Brontë"_s, u"Brontes"_s};
        QTest::newRow("en_GB Irish names")
            << u"en_GB"_s
            << QStringList{u"Ó Conaire"_s, u"Ó Faoláin"_s, u"Ó Súilleabháin"_s, u"O'Brien"_s,
                           u"Óg"_s, u"Olden"_s};
        QTest::newRow("de_DE sharp s reads as ss")
            << u"de_DE"_s
            << QStringList{u"Masse"_s, u"Maße"_s, u"Mast"_s, u"Straße"_s, u"Strasser"_s};
        QTest::newRow("de_DE umlauts file with their vowels")
            << u"de_DE"_s
            << QStringList{u"Mueller"_s, u"Muller"_s, u"Müller"_s, u"Mutter"_s, u"Öl"_s,
                           u"Ostern"_s, u"Übel"_s, u"Zucker"_s};
        QTest::newRow("C, which names no language, keeps SQLite's own order")
            << u"C"_s
            << QStringList{u"Bronte"_s, u"bronte"_s, u"de Cervantes"_s, u"Walker"_s,
                           u"Éditions du Pont-Neuf"_s};
        QTest::newRow("sv_SE files Å and Ö after Z")
            << u"sv_SE"_s
            << QStringList{u"Abba"_s, u"Zorn"_s, u"Åberg"_s, u"Ödman"_s};
    }
    void listsFollowTheLocale()
    {
        QFETCH(QString, locale);
        QFETCH(QStringList, expected);
        Connection &connection = openIn(locale);
        // Written in reverse and sorted order, so that only the collation decides.
        QStringList reversed = expected;
        std::reverse(reversed.begin(), reversed.end());
        addBooks(connection, reversed);
        QStringList sorted = expected;
        std::sort(sorted.begin(), sorted.end());
        addBooks(connection, sorted);

        QStringList twice;
        for (const QString &title : expected)
            twice << title << title;
        QCOMPARE(columnOf(connection, u"select * from tblBook order by bookdescription"_s,
                          u"BookDescription"_s),
                 twice);
        QStringList descending = twice;
        std::reverse(descending.begin(), descending.end());
        QCOMPARE(columnOf(connection,
                          u"select BookID,bookdescription from tblbook order by tblBook.BookDescription desc"_s,
                          u"BookDescription"_s),
                 descending);
        // The reports read the stored queries, which are ordered the same way.
        QStringList reported = columnOf(connection, u"qryReport01"_s, u"BookDets1"_s,
                                        CommandType::StoredProcedure);
        QCOMPARE(reported, twice);
    }

    void orderedTermsAreCollated_data()
    {
        QTest::addColumn<QString>("jet");
        QTest::addColumn<QString>("sqlite");
        QTest::newRow("a column")
            << u"select * from tblBook order by bookdescription"_s
            << u"select * from tblBook order by bookdescription COLLATE LOCALE"_s;
        QTest::newRow("qualified, descending, then a key")
            << u"select * from tblBook order by tblBook.BookDescription DESC, BookID"_s
            << u"select * from tblBook order by tblBook.BookDescription COLLATE LOCALE DESC, BookID COLLATE LOCALE"_s;
        QTest::newRow("a concatenation")
            << u"select * from tblAuthor order by AuthorSurname & AuthorFirstName"_s
            << u"select * from tblAuthor order by (ifnull(AuthorSurname,'') || ifnull(AuthorFirstName,'')) COLLATE LOCALE"_s;
        QTest::newRow("inside a subquery")
            << u"select * from (select * from tblTopic order by TopicDescription) t"_s
            << u"select * from (select * from tblTopic order by TopicDescription COLLATE LOCALE) t"_s;
        QTest::newRow("equality with a text")
            << u"select * from tblAuthor where AuthorSurname = 'élise' and AuthorID <> 3"_s
            << u"select * from tblAuthor where AuthorSurname = 'élise' COLLATE UNICODE_NOCASE and AuthorID <> 3"_s;
        QTest::newRow("text first, not equal, double quotes")
            << u"select * from tblTopic where \"Maps\" <> TopicDescription"_s
            << u"select * from tblTopic where 'Maps' COLLATE UNICODE_NOCASE <> TopicDescription"_s;
        QTest::newRow("part of a concatenation is left alone")
            << u"select * from t where a & b = 'xy' & c"_s
            << u"select * from t where ifnull(a,'') || ifnull(b,'') = ifnull('xy','') || ifnull(c,'')"_s;
        QTest::newRow("a text an apostrophe broke is left alone")
            << u"select * from tblAuthor where AuthorSurname = 'O'Brien' and AuthorID = 3"_s
            << u"select * from tblAuthor where AuthorSurname = 'O'Brien' and AuthorID = 3"_s;
        QTest::newRow("ordering comparisons in the lists' order")
            << u"select count(*) from t where a >= 'b' and 'c' > a and a<'d'"_s
            << u"select count(*) from t where a >= 'b' COLLATE LOCALE and 'c' COLLATE LOCALE > a and a<'d' COLLATE LOCALE"_s;
    }
    void orderedTermsAreCollated()
    {
        QFETCH(QString, jet);
        QFETCH(QString, sqlite);
        QCOMPARE(JetSql::toCollatedSqlite(jet), sqlite);
    }

    void searchPatternsIgnoreCaseOfEveryLetter_data()
    {
        QTest::addColumn<QString>("condition");
        QTest::addColumn<QStringList>("expected");
        // As the search form writes them for "é*", "E*" and an exact title.
        QTest::newRow("é*") << u"tblBook.BookDescription  like 'é%'"_s
                            << QStringList{u"école des femmes"_s, u"Éloge de l'ombre"_s};
        QTest::newRow("É*") << u"tblBook.BookDescription  like 'É%'"_s
                            << QStringList{u"école des femmes"_s, u"Éloge de l'ombre"_s};
        QTest::newRow("E*") << u"tblBook.BookDescription  like 'E%'"_s
                            << QStringList{u"eagle"_s, u"Emma"_s};
        QTest::newRow("*ÉE*") << u"tblBook.BookDescription  like '%ÉE%'"_s
                              << QStringList{u"Idée fixe"_s};
        QTest::newRow("one letter") << u"tblBook.BookDescription  like '_mma'"_s
                                    << QStringList{u"Emma"_s};
        QTest::newRow("one character of three bytes") << u"tblBook.BookDescription  like '_100'"_s
                                                      << QStringList{u"€100"_s};
        QTest::newRow("escaped") << u"tblBook.BookDescription  like '100!%%' escape '!'"_s
                                 << QStringList{u"100% Wool"_s};
        QTest::newRow("equality") << u"tblBook.BookDescription = 'IDÉE FIXE'"_s
                                  << QStringList{u"Idée fixe"_s};
        QTest::newRow("before, in the lists' order") << u"tblBook.BookDescription < 'F'"_s
                                 << QStringList{u"€100"_s, u"100% Wool"_s, u"eagle"_s, u"école des femmes"_s,
                                                u"Éloge de l'ombre"_s, u"Emma"_s};
        QTest::newRow("inequality") << u"tblBook.BookDescription <> 'idée fixe'"_s
                                    << QStringList{u"€100"_s, u"100% Wool"_s, u"eagle"_s, u"école des femmes"_s,
                                                   u"Éloge de l'ombre"_s, u"Emma"_s, u"Zola"_s};
    }
    void searchPatternsIgnoreCaseOfEveryLetter()
    {
        QFETCH(QString, condition);
        QFETCH(QStringList, expected);
        Connection &connection = openIn(u"en_GB"_s);
        addBooks(connection, {u"Emma"_s, u"école des femmes"_s, u"Zola"_s, u"Éloge de l'ombre"_s,
                              u"eagle"_s, u"Idée fixe"_s, u"100% Wool"_s, u"€100"_s});
        QCOMPARE(columnOf(connection,
                          u"select BookDescription from tblBook where "_s + condition
                              + u" order by BookDescription"_s,
                          u"BookDescription"_s),
                 expected);
    }

    void findReadsEveryLettersCase_data()
    {
        QTest::addColumn<QString>("criterion");
        QTest::addColumn<QString>("found");
        QTest::newRow("equal") << u"AuthorSurname = 'élise'"_s << u"Élise"_s;
        QTest::newRow("like") << u"AuthorSurname like 'ÓG*'"_s << u"Óg"_s;
        QTest::newRow("greater, in the list's order") << u"AuthorSurname > 'Éa'"_s << u"Élise"_s;
        QTest::newRow("sharp s") << u"AuthorSurname = 'STRAßE'"_s << u"straße"_s;
    }
    void findReadsEveryLettersCase()
    {
        QFETCH(QString, criterion);
        QFETCH(QString, found);
        Connection &connection = openIn(u"en_GB"_s);
        connection.execute(u"delete from tblAuthor where AuthorSurname <> 'UnKnown'"_s);
        for (const QString &name : {u"Aaron"_s, u"Élise"_s, u"Óg"_s, u"straße"_s, u"Zola"_s})
            connection.execute(u"insert into tblAuthor (AuthorSurname) values ('%1')"_s.arg(name));
        auto rs = connection.execute(u"select * from tblAuthor order by AuthorSurname"_s);
        QVERIFY(rs->find(criterion));
        QCOMPARE(rs->value(u"AuthorSurname"_s).toString(), found);
        connection.execute(u"delete from tblAuthor where AuthorSurname <> 'UnKnown'"_s);
    }

    void writtenCatalogueStaysPlainSqlite()
    {
        Connection &connection = openIn(u"de_DE"_s);
        addBooks(connection, {u"Straße"_s, u"Strasse"_s, u"Éloge"_s, u"eloge"_s, u"Ödland"_s});
        connection.execute(u"insert into tblAuthor (AuthorSurname, AuthorFirstName) values ('Müller', 'Jürgen')"_s);
        connection.execute(u"insert into tblTopic (TopicDescription) values ('Ökologie')"_s);
        connection.execute(u"insert into tblPublisher (PublisherName) values ('Éditions du Pont-Neuf')"_s);
        auto books = connection.execute(u"select * from tblBook order by BookDescription"_s);
        books->addNew();
        books->setValue(u"BookDescription"_s, u"Ärger"_s);
        books->update();
        connection.execute(u"update tblBook set BookDescription = 'Übersee' where BookDescription = 'ödland'"_s);
        books.reset();
        m_connection.reset();

        QCOMPARE(m_catalogue.scalar(u"select count(*) from tblBook where BookDescription in "
                                    "('Übersee', 'Ärger')"_s).toInt(), 2);
        QCOMPARE(m_catalogue.scalar(u"PRAGMA integrity_check"_s).toString(), u"ok"_s);
        QCOMPARE(m_catalogue.scalar(u"select count(*) from sqlite_master where sql like '%LOCALE%' "
                                    "or sql like '%UNICODE_NOCASE%'"_s).toInt(), 0);
        QCOMPARE(CatalogueCheck::problemsIn(m_catalogue.path()), QStringList());

        // Another tool orders every text column of the file without the program's collation.
        const auto columns = textColumns(m_catalogue);
        QVERIFY(columns.size() > 20);
        for (const auto &[table, column] : columns) {
            QProcess sqlite3;
            sqlite3.start(u"sqlite3"_s, {u"-bail"_s, m_catalogue.path(),
                                         u"SELECT \"%2\" FROM \"%1\" ORDER BY \"%2\";"_s.arg(table, column)});
            QVERIFY(sqlite3.waitForFinished());
            const QString errors = QString::fromUtf8(sqlite3.readAllStandardError());
            QVERIFY2(sqlite3.exitCode() == 0 && errors.isEmpty(),
                     qPrintable(table + u'.' + column + u": "_s + errors));
        }
        QProcess check;
        check.start(u"sqlite3"_s, {m_catalogue.path(), u"PRAGMA integrity_check;"_s});
        QVERIFY(check.waitForFinished());
        QCOMPARE(QString::fromUtf8(check.readAllStandardOutput()).trimmed(), u"ok"_s);
    }
};

QTEST_GUILESS_MAIN(TestCollation)
#include "tst_collation.moc"
