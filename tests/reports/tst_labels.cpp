// The label sheet's working table, filled four labels to a row, and the label reports read
// from it and from the single label's command.
#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/recordset.h"
#include "reportfixture.h"
#include "reports/dataenvironment.h"
#include "reports/labelreports.h"
#include "reports/labeltable.h"
#include "reports/reportpage.h"
#include "reports/reportpaginator.h"
#include "support/testcatalogue.h"

#include <QSqlError>
#include <QSqlQuery>

using namespace Qt::StringLiterals;

namespace {

void exec(const TestCatalogue &catalogue, const QString &sql)
{
    QSqlQuery query(catalogue.db());
    QVERIFY2(query.exec(sql), qPrintable(sql + u": "_s + query.lastError().text()));
}

// A book of one author and one topic, published in 1901 onwards.
void addBook(const TestCatalogue &catalogue, const QString &description, int year)
{
    QString escaped = description;
    escaped.replace(u"'"_s, u"''"_s);
    exec(catalogue, u"INSERT INTO tblBook (BookDescription, BookPagesText, BookPagesInto, "
                    "BookCondition, BookCover, BookPublisherId, BookPrice, BookSellPrice, "
                    "BookWhenPublished, BookNotes) VALUES ('%1', 100, '', 'Good', 'Cloth', 1, 12.5, "
                    "0, %2, 'It''s signed')"_s.arg(escaped).arg(year));
}

void fill(const TestCatalogue &catalogue)
{
    Connection connection;
    connection.open(ConnectionString::forCatalogue(catalogue.path()));
    FillLabelTable(connection);
}

int rows(const TestCatalogue &catalogue)
{
    return catalogue.scalar(u"SELECT count(*) FROM tblLabelTable"_s).toInt();
}

QList<const ReportPage *> sheetPages(const TestCatalogue &catalogue, ReportPaginator *&keep,
                                     std::unique_ptr<ReportPaginator> &owner)
{
    const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(catalogue.path());
    ReportDocument sheet = LoadLabelSheet(*deShelvane);
    sheet.definition.applyPriceFormat(PoundsFormat);
    owner = sheet.paginate();
    keep = owner.get();
    return AllPages(*owner);
}

} // namespace

class TestLabels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fourBooksGiveOneRow()
    {
        const TestCatalogue catalogue; // holds one book
        for (int i = 2; i <= 4; ++i)
            addBook(catalogue, u"Book %1"_s.arg(i), 1900 + i);
        fill(catalogue);
        QCOMPARE(rows(catalogue), 1);
        QCOMPARE(catalogue.scalar(u"SELECT BookId4 FROM tblLabelTable"_s).toInt(), 4);
        QCOMPARE(catalogue.scalar(u"SELECT BookDescription3 FROM tblLabelTable"_s).toString(), u"Book 3"_s);
    }

    void fiveBooksGiveTwoRowsTheSecondPadded()
    {
        const TestCatalogue catalogue;
        for (int i = 2; i <= 5; ++i)
            addBook(catalogue, u"Book %1"_s.arg(i), 1900 + i);
        fill(catalogue);
        QCOMPARE(rows(catalogue), 2);
        QCOMPARE(catalogue.scalar(u"SELECT BookId1 FROM tblLabelTable WHERE BookId1 = 5"_s).toInt(), 5);
        QCOMPARE(catalogue.scalar(u"SELECT count(*) FROM tblLabelTable WHERE BookId2 IS NULL "
                                  "AND BookDescription3 IS NULL AND BookWhenPublished4 IS NULL"_s).toInt(), 1);
    }

    void noBooksGiveAnEmptyTableAndAnEmptySheet()
    {
        const TestCatalogue catalogue;
        exec(catalogue, u"INSERT INTO tblLabelTable (BookId1) VALUES (99)"_s);
        exec(catalogue, u"DELETE FROM tblBook"_s);
        fill(catalogue);
        QCOMPARE(rows(catalogue), 0);
        ReportPaginator *sheet = nullptr;
        std::unique_ptr<ReportPaginator> owner;
        const QList<const ReportPage *> pages = sheetPages(catalogue, sheet, owner);
        QVERIFY(TextsOf(pages, u"txtBookId1"_s).isEmpty());
    }

    void apostrophesAreDoubledInTheStatementAndPrintSingly()
    {
        const TestCatalogue catalogue;
        addBook(catalogue, u"O'Brien's Guide"_s, 1950);
        exec(catalogue, u"UPDATE tblAuthor SET AuthorSurname = 'O''Hara'"_s);
        exec(catalogue, u"INSERT INTO tblBookAuthor (BookID, AuthorID) SELECT max(BookID), 1 FROM tblBook"_s);
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        const std::unique_ptr<Recordset> labels =
            connection.execute(u"select * from qryBookLabel01 where BookId = 2"_s);
        QCOMPARE(LabelValues(*labels, 0),
                 u"2,'O''Brien''s Guide','It''s signed',12.5,100,False,False,NULL,'','O''Hara',"
                 "'UnKnown','',1950"_s);
        connection.close();

        fill(catalogue);
        ReportPaginator *sheet = nullptr;
        std::unique_ptr<ReportPaginator> owner;
        const QList<const ReportPage *> pages = sheetPages(catalogue, sheet, owner);
        QCOMPARE(TextsOf(pages, u"Text2"_s), QStringList({u"O'Brien's Guide"_s}));
        QCOMPARE(TextsOf(pages, u"Text5"_s), QStringList({u"O'Hara"_s}));
        QCOMPARE(TextsOf(pages, u"Text12"_s), QStringList({u"£12.50"_s}));
        QCOMPARE(TextsOf(pages, u"txtBookPrice1"_s), QStringList({u"£0.00"_s}));
        QCOMPARE(TextsOf(pages, u"txtBook1stEd1"_s), QStringList({u"No"_s}));
    }

    void aBookOnSeveralRowsGivesSeveralLabels()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const int labels = catalogue.scalar(u"SELECT count(*) FROM qryBookLabel01"_s).toInt();
        QVERIFY(labels > catalogue.scalar(u"SELECT count(*) FROM tblBook"_s).toInt());
        fill(catalogue);
        QCOMPARE(rows(catalogue), (labels + 3) / 4);
        ReportPaginator *sheet = nullptr;
        std::unique_ptr<ReportPaginator> owner;
        const QList<const ReportPage *> pages = sheetPages(catalogue, sheet, owner);
        const qsizetype printed = TextsOf(pages, u"txtBookId1"_s).size() + TextsOf(pages, u"Text1"_s).size()
                                  + TextsOf(pages, u"Text13"_s).size() + TextsOf(pages, u"Text25"_s).size();
        QCOMPARE(printed, labels);
        for (const ReportPage *page : pages) {
            QCOMPARE(page->textsOf(u"lblBookNumber1"_s).size(), page->textsOf(u"txtBookId1"_s).size());
            for (const PageItem &item : page->items)
                QVERIFY(page->printableRect.adjusted(-0.01, -0.01, 0.01, 0.01).contains(item.rect));
        }
    }

    void aNullPublicationDateBreaksItsStatementAndKeepsTheRowsBefore()
    {
        const TestCatalogue catalogue;
        for (int i = 2; i <= 5; ++i)
            addBook(catalogue, u"Book %1"_s.arg(i), 1900 + i);
        exec(catalogue, u"UPDATE tblBook SET BookWhenPublished = NULL WHERE BookID = 5"_s);
        QVERIFY_THROWS_EXCEPTION(ProviderError, fill(catalogue));
        QCOMPARE(rows(catalogue), 1);
    }

    // The copying tells how far it is after each row it writes, and stops when told to: the
    // rows written until then stay, as after a failing statement.
    void copyingTellsItsProgressAndStopsWhenTold()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const int labels = catalogue.scalar(u"SELECT count(*) FROM qryBookLabel01"_s).toInt();
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        QList<int> told;
        QCOMPARE(FillLabelTable(connection, [&](int copied, int total) {
                     told.append(copied);
                     return total == labels;
                 }), LabelCopy::Complete);
        QVERIFY(told.size() >= labels / 4);
        QVERIFY(std::is_sorted(told.cbegin(), told.cend()));
        QCOMPARE(told.constLast(), labels);
        QCOMPARE(rows(catalogue), (labels + 3) / 4);

        told.clear();
        QCOMPARE(FillLabelTable(connection, [&](int copied, int) {
                     told.append(copied);
                     return told.size() < 3;
                 }), LabelCopy::Stopped);
        QCOMPARE(told, QList<int>({4, 8, 12}));
        QCOMPARE(rows(catalogue), 3);
    }

    // The sheet reads the label table only as far as the pages laid out reach.
    void theSheetsFirstPageIsReadyBeforeTheRest()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        fill(catalogue);
        const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(catalogue.path());
        ReportDocument sheet = LoadLabelSheet(*deShelvane);
        sheet.definition.applyPriceFormat(PoundsFormat);
        const auto pages = sheet.paginate();
        QVERIFY(pages->page(0));
        QCOMPARE(pages->pagesLaidOut(), 1);
        QVERIFY(!pages->isComplete());
        QCOMPARE(TextsOf(AllPages(*pages), u"txtBookId1"_s).size(), rows(catalogue));
    }

    // An empty block (the padding of the last row) prints nothing, not even its outline.
    void emptyPlacesPrintNothing()
    {
        const TestCatalogue catalogue;
        for (int i = 2; i <= 5; ++i)
            addBook(catalogue, u"Book %1"_s.arg(i), 1900 + i);
        fill(catalogue);
        ReportPaginator *sheet = nullptr;
        std::unique_ptr<ReportPaginator> owner;
        const QList<const ReportPage *> pages = sheetPages(catalogue, sheet, owner);
        QCOMPARE(pages.size(), 1);
        QCOMPARE(TextsOf(pages, u"lblBookNumber1"_s).size(), 2);
        QCOMPARE(TextsOf(pages, u"lblBookNumber2"_s).size(), 1);
        int outlines = 0;
        for (const PageItem &item : pages.first()->items)
            outlines += item.control.startsWith(u"Shape"_s);
        QCOMPARE(outlines, 5);
    }

    // A part-used sheet: printing starts at the place asked for, across and then down.
    void theSheetStartsAtTheFirstUnusedLabel()
    {
        const TestCatalogue catalogue;
        for (int i = 2; i <= 5; ++i)
            addBook(catalogue, u"Book %1"_s.arg(i), 1900 + i);
        fill(catalogue);
        const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(catalogue.path());
        ReportDocument sheet = LoadLabelSheet(*deShelvane);
        QCOMPARE(sheet.definition.firstLabel, 1);
        QCOMPARE(sheet.definition.labelsAcross, 4);
        sheet.definition.applyPriceFormat(PoundsFormat);
        sheet.definition.firstLabel = 3;
        const auto pages = sheet.paginate();
        const QList<const ReportPage *> all = AllPages(*pages);
        QVERIFY(TextsOf(all, u"txtBookId1"_s) == QStringList{u"3"_s});
        QVERIFY(TextsOf(all, u"Text1"_s) == QStringList{u"4"_s});
        QVERIFY(TextsOf(all, u"Text13"_s) == (QStringList{u"1"_s, u"5"_s}));
        QVERIFY(TextsOf(all, u"Text25"_s) == QStringList{u"2"_s});

        // Starting at the sixth place: one empty row, then the five labels from its second place.
        const std::unique_ptr<BandSource> shifted =
            LabelSheetBands(deShelvane->run(u"cmdLabels"_s), 6, 0);
        QStringList rows;
        while (const std::optional<BandRow> row = shifted->next()) {
            QStringList numbers;
            for (int place = 1; place <= 4; ++place) {
                const int field = row->records->fieldIndex(u"BookId%1"_s.arg(place));
                numbers.append(row->records->valueAt(row->row, field).toString());
            }
            rows.append(numbers.join(u','));
        }
        QCOMPARE(rows, QStringList({u",,,"_s, u",1,2,3"_s, u"4,5,,"_s}));
    }

    void sheetHasFourBlocksAcrossWithTheDesignedControls()
    {
        const ReportDefinition sheet = LabelSheetDefinition();
        QCOMPARE(sheet.name, u"DataReport4"_s);
        QCOMPARE(sheet.caption, u"Catalogue Labels"_s);
        QCOMPARE(sheet.sections.size(), 1);
        const QList<ReportControl> &controls = sheet.sections[0].controls;
        QCOMPARE(controls.size(), 76);
        for (int position : {21, 38, 55, 72})
            QVERIFY(controls[position - 1].field.startsWith(u"BookPrice"_s));
        QCOMPARE(controls[20].name, u"txtBookPrice1"_s);
        QCOMPARE(controls[37].name, u"Text12"_s);
        QCOMPARE(controls[71].name, u"Text36"_s);
        QCOMPARE(controls[72].name, u"txtTopicDescription1"_s);
        QCOMPARE(controls[75].name, u"Text39"_s);
        QCOMPARE(controls[75].field, u"TopicDescription4"_s);
        QCOMPARE(controls[0].kind, ControlKind::Shape);
        QCOMPARE(controls[3].kind, ControlKind::Shape);
        QCOMPARE(controls[5].caption, u"Book Number : "_s);

        const ReportDefinition single = SingleLabelDefinition();
        QCOMPARE(single.name, u"DataReport5"_s);
        QCOMPARE(single.sections[0].controls[17].field, u"BookPrice"_s);
    }

    void singleLabelIsReadFromItsBook()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(catalogue.path());
        ReportDocument label = LoadSingleLabel(*deShelvane, u"17"_s);
        QCOMPARE(deShelvane->commandText(u"cmdOneLabel"_s),
                 u"select * from `qryBookLabel01` where BookId = 17"_s);
        label.definition.applyPriceFormat(PoundsFormat);
        const auto pages = label.paginate();
        const QStringList numbers = TextsOf(AllPages(*pages), u"txtBookId"_s);
        QCOMPARE(numbers.size(),
                 catalogue.scalar(u"SELECT count(*) FROM qryBookLabel01 WHERE BookID = 17"_s).toInt());
        for (const QString &number : numbers)
            QCOMPARE(number, u"17"_s);
        QVERIFY(TextsOf(AllPages(*pages), u"txtBookPrice"_s).constFirst().startsWith(u"£"_s));
    }
};

SHELVANE_PRINTING_TEST_MAIN(TestLabels)
#include "tst_labels.moc"
