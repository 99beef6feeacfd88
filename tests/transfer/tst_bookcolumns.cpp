// Which column of a book a CSV header names.
#include "transfer/bookcolumns.h"

#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(BookColumn)

class TestBookColumns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void matchesHeaders_data()
    {
        QTest::addColumn<QString>("header");
        QTest::addColumn<BookColumn>("column");
        QTest::addColumn<QString>("separators");
        QTest::newRow("our title") << u"Title"_s << BookColumn::Title << u";"_s;
        QTest::newRow("capitals") << u"TITLE"_s << BookColumn::Title << u";"_s;
        QTest::newRow("author") << u"author"_s << BookColumn::Authors << u";"_s;
        QTest::newRow("author(s)") << u"Author(s)"_s << BookColumn::Authors << u";"_s;
        QTest::newRow("author l-f") << u"Author l-f"_s << BookColumn::Authors << u";"_s;
        QTest::newRow("additional authors") << u"Additional Authors"_s << BookColumn::AdditionalAuthors << u";,"_s;
        QTest::newRow("subjects") << u"Subjects"_s << BookColumn::Topics << u";"_s;
        QTest::newRow("tags, by commas too") << u"tags"_s << BookColumn::Topics << u";,"_s;
        QTest::newRow("underscores") << u"year_published"_s << BookColumn::Published << u";"_s;
        QTest::newRow("date published") << u"Date Published"_s << BookColumn::Published << u";"_s;
        QTest::newRow("value") << u"Value"_s << BookColumn::Price << u";"_s;
        QTest::newRow("number of pages") << u"Number of Pages"_s << BookColumn::Pages << u";"_s;
        QTest::newRow("binding") << u"Binding"_s << BookColumn::Cover << u";"_s;
        QTest::newRow("ISBN13") << u"ISBN13"_s << BookColumn::Isbn << u";"_s;
        QTest::newRow("ISBN-13") << u"ISBN-13"_s << BookColumn::Isbn << u";"_s;
        QTest::newRow("private notes") << u"Private Notes"_s << BookColumn::Notes << u";"_s;
        QTest::newRow("spaces around") << u"  Place of publication "_s << BookColumn::Place << u";"_s;
    }

    void matchesHeaders()
    {
        QFETCH(QString, header);
        QFETCH(BookColumn, column);
        QFETCH(QString, separators);
        const std::optional<ColumnMatch> match = BookColumns::match(header);
        QVERIFY(match);
        QCOMPARE(match->column, column);
        QCOMPARE(match->separators, separators);
    }

    void unknownHeadersMatchNothing()
    {
        for (const QString &header : {u"My Rating"_s, u"Exclusive Shelf"_s, u""_s, u"Titles of chapters"_s})
            QVERIFY2(!BookColumns::match(header), qPrintable(header));
    }

    void everyExportedHeaderReadsBackAsItsColumn()
    {
        for (const auto &[column, name] : BookColumns::exported()) {
            const std::optional<ColumnMatch> match = BookColumns::match(name);
            QVERIFY2(match, qPrintable(name));
            QCOMPARE(match->column, column);
        }
    }
};

QTEST_GUILESS_MAIN(TestBookColumns)
#include "tst_bookcolumns.moc"
