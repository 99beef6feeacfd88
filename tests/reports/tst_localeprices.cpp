// Printed prices in every locale: the listings and the label sheets as laid out, as exported
// and as `shelvane-catalog report` writes them in the same locale, and the label sheet's
// statements, which must run whatever the locale writes numbers as.
#include "data/connection.h"
#include "data/connectionstring.h"
#include "reportfixture.h"
#include "reports/dataenvironment.h"
#include "reports/labelreports.h"
#include "reports/labeltable.h"
#include "reports/numberformat.h"
#include "reports/pdfexport.h"
#include "reports/reportpage.h"
#include "reports/reportpaginator.h"
#include "support/moneylocales.h"
#include "support/testcatalogue.h"

#include <QDir>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

// The listings' amounts are the first five of MoneyAmounts, the labels' the last two.
constexpr qsizetype ListingAmounts = 5;
constexpr qsizetype FirstLabelAmount = 5;

const QStringList labelPriceBoxes{u"txtBookPrice1"_s, u"Text12"_s, u"Text24"_s, u"Text36"_s};

struct Listing
{
    CatalogueListing listing;
    QString by;
};

const QList<Listing> listings{{CatalogueListing::ByTitle, u"title"_s},
                              {CatalogueListing::ByAuthor, u"author"_s},
                              {CatalogueListing::ByTopic, u"topic"_s}};

bool exec(const TestCatalogue &catalogue, const QString &sql)
{
    QSqlQuery query(catalogue.db());
    if (query.exec(sql))
        return true;
    qWarning("%s: %s", qPrintable(sql), qPrintable(query.lastError().text()));
    return false;
}

// Every book of the demo collection priced at one of the amounts, in turn by its number.
bool priceBooks(const TestCatalogue &catalogue, qsizetype first, qsizetype count)
{
    for (qsizetype i = 0; i < count; ++i) {
        const QString price = QString::number(MoneyAmounts.at(first + i), 'f', 2);
        if (!exec(catalogue, u"UPDATE tblBook SET BookPrice = %1 WHERE BookID % %2 = %3"_s
                                 .arg(price).arg(count).arg(i)))
            return false;
    }
    return true;
}

QStringList printedAmounts(const MoneyLocale &money, qsizetype first, qsizetype count)
{
    return money.printed.mid(first, count);
}

// Whether every text is one of the amounts and every amount is printed.
QString pricesMatch(const QStringList &texts, const QStringList &amounts)
{
    for (const QString &text : texts) {
        if (!amounts.contains(text))
            return u"printed \""_s + text + u"\", which is none of the prices"_s;
    }
    for (const QString &amount : amounts) {
        if (!texts.contains(amount))
            return u"\""_s + amount + u"\" is never printed"_s;
    }
    return {};
}

// Whether a PDF's text holds every amount, none of them after a digit that is not its own.
QString pdfHoldsAmounts(const QString &pdfText, const QStringList &amounts)
{
    const QString text = PlainSpaces(pdfText);
    for (const QString &amount : amounts) {
        const QString plain = PlainSpaces(amount);
        if (!text.contains(plain))
            return u"\""_s + plain + u"\" is not in the PDF"_s;
    }
    // The dearest and the most exact: in the faulty format "8.400,00 €" printed as "18.400,00".
    for (const QString &amount : {amounts.at(0), amounts.at(2)}) {
        const QString plain = PlainSpaces(amount);
        for (qsizetype at = text.indexOf(plain); at >= 0; at = text.indexOf(plain, at + 1)) {
            if (at > 0 && text.at(at - 1).isDigit())
                return u"\""_s + plain + u"\" follows a digit"_s;
        }
    }
    return {};
}

void fillLabelTable(const TestCatalogue &catalogue)
{
    Connection connection;
    connection.open(ConnectionString::forCatalogue(catalogue.path()));
    FillLabelTable(connection);
}

} // namespace

class TestLocalePrices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(!QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty(),
                 "pdftotext (Debian package poppler-utils) is needed");
    }

    void cleanup() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void listingsPrintTheStoredAmounts_data() { AddMoneyLocaleRows(); }

    // The three listings as laid out in the locale, its PDF, and the PDF the tool writes in
    // the same locale: the same text.
    void listingsPrintTheStoredAmounts()
    {
        QFETCH(int, locale);
        const MoneyLocale &money = UseMoneyLocale(locale);
        const QStringList amounts = printedAmounts(money, 0, ListingAmounts);
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QVERIFY(priceBooks(catalogue, 0, ListingAmounts));
        QTemporaryDir folder;
        for (const Listing &listing : listings) {
            const auto report =
                LoadListingOf(catalogue.path(), listing.listing, PriceFormat(QLocale())).paginate();
            const QString problem = pricesMatch(TextsOf(AllPages(*report), u"txtBookPrice"_s), amounts);
            QVERIFY2(problem.isEmpty(), qPrintable(listing.by + u": "_s + problem));

            const QString exported = folder.filePath(listing.by + u"-exported.pdf"_s);
            const QString written = folder.filePath(listing.by + u"-written.pdf"_s);
            QCOMPARE(PdfExport::write(*report, exported, {}, nullptr), PdfExport::Outcome::Written);
            const ToolRun run = RunCatalogueTool({u"report"_s, catalogue.path(), u"--by"_s,
                                                  listing.by, u"--pdf"_s, written},
                                                 money.lang());
            QCOMPARE(run.status, 0);
            const QString text = PdfText(written);
            const QString inPdf = pdfHoldsAmounts(text, amounts);
            QVERIFY2(inPdf.isEmpty(), qPrintable(listing.by + u": "_s + inPdf));
            QCOMPARE(text, PdfText(exported));
            if (money.name == u"de_DE" && listing.by == u"title")
                QVERIFY(SavePdfPictures(written, u"DataReport1-de_DE"_s, 1, 2));
        }
    }

    void labelSheetInEveryLocale_data() { AddMoneyLocaleRows(); }

    // The sheet's statements run in every locale; the table holds the prices exactly, and the
    // sheet, in the window and from the tool, prints them in the locale's money.
    void labelSheetInEveryLocale()
    {
        QFETCH(int, locale);
        const MoneyLocale &money = UseMoneyLocale(locale);
        const QStringList amounts = printedAmounts(money, FirstLabelAmount, 2);
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QVERIFY(priceBooks(catalogue, FirstLabelAmount, 2));
        fillLabelTable(catalogue);
        const int labels = catalogue.scalar(u"select count(*) from qryBookLabel01"_s).toInt();
        QCOMPARE(catalogue.scalar(u"select count(*) from tblLabelTable"_s).toInt(), (labels + 3) / 4);
        QCOMPARE(catalogue.scalar(u"select count(*) from tblLabelTable where BookPrice1 not in "
                                  "(12.5, 1234.56) or BookPrice4 not in (12.5, 1234.56)"_s)
                     .toInt(),
                 0);

        const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(catalogue.path());
        ReportDocument sheet = LoadLabelSheet(*deShelvane);
        sheet.definition.applyPriceFormat(PriceFormat(QLocale()));
        const auto pages = sheet.paginate();
        QStringList printed;
        for (const QString &box : labelPriceBoxes)
            printed += TextsOf(AllPages(*pages), box);
        QCOMPARE(printed.size(), labels);
        QVERIFY2(pricesMatch(printed, amounts).isEmpty(), qPrintable(pricesMatch(printed, amounts)));

        ReportDocument single = LoadSingleLabel(*deShelvane, u"2"_s);
        single.definition.applyPriceFormat(PriceFormat(QLocale()));
        const auto label = single.paginate();
        const QStringList singlePrices = TextsOf(AllPages(*label), u"txtBookPrice"_s);
        QVERIFY(!singlePrices.isEmpty());
        QCOMPARE(singlePrices.constFirst(), money.printed.at(FirstLabelAmount)); // book 2: 12.50

        QTemporaryDir folder;
        const QString written = folder.filePath(u"labels.pdf"_s);
        QVERIFY(exec(catalogue, u"DELETE FROM tblLabelTable"_s));
        const ToolRun run = RunCatalogueTool({u"report"_s, catalogue.path(), u"--by"_s,
                                              u"labels"_s, u"--pdf"_s, written},
                                             money.lang());
        QVERIFY2(run.status == 0, qPrintable(run.err));
        QCOMPARE(catalogue.scalar(u"select count(*) from tblLabelTable"_s).toInt(), (labels + 3) / 4);
        const QString text = PlainSpaces(PdfText(written));
        for (const QString &amount : amounts)
            QVERIFY2(text.contains(PlainSpaces(amount)), qPrintable(amount));
    }
};

SHELVANE_PRINTING_TEST_MAIN(TestLocalePrices)
#include "tst_localeprices.moc"
