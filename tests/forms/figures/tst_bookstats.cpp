// The collection statistics: six figures computed once, when the form loads.

#include "app/mainframe.h"
#include "figuretestbooks.h"
#include "forms/figures/figureforms.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/formdriver.h"
#include "support/modalresponder.h"
#include "support/moneylocales.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString FormName = u"frmBookStats"_s;
const QString MenuEntry = u"mnuStats"_s;

QWidget *openStatistics()
{
    return OpenThroughMenu(MenuEntry, FormName);
}

// The six boxes, top to bottom.
QStringList shownFigures(const QWidget *form)
{
    QStringList figures;
    for (const QString &box : {u"txtTotalNoBooks"_s, u"txtTotalValue"_s, u"txtAverageCost"_s,
                               u"txtExpensive"_s, u"txtCheapest"_s, u"txtOldest"_s})
        figures << BoxText(form, box);
    return figures;
}

QString labelText(const QWidget *form, const QString &name)
{
    const auto *label = FindControl<QLabel>(form, name);
    return label ? label->text() : u"(none)"_s;
}

} // namespace

class TestBookStats : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void formShowsItsCaptionsAndLabels();
    void menuEntryDisabledWhileOpen();
    void figuresMatchTheCatalogueFile();
    void emptyCatalogueShowsZeroAndEmptyBoxes();
    void undatedBooksLeftOutOfOldestButCountedInMoney();
    void noDatedBookLeavesOldestEmpty();
    void nullPriceCountedButNotSummed();
    void totalAboveAThousandIsGrouped();
    void moneyInEveryLocale_data();
    void moneyInEveryLocale();
    void figuresAreThoseOfTheMomentOfLoading();
    void moneyIsRightAligned();
    void helpOpensTheFormsTopic();
};

void TestBookStats::formShowsItsCaptionsAndLabels()
{
    CatalogueOpener opener(RegisterFigureForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QWidget *form = openStatistics();
    QVERIFY(form);
    QCOMPARE(form->windowTitle(), u"Collection Statistics"_s);
    const QList<std::pair<QString, QString>> labels{
        {u"lblTotalNoBooks"_s, u"Number of Books"_s}, {u"lblTotalValue"_s, u"Total Value"_s},
        {u"lblAverageCost"_s, u"Average Cost"_s},     {u"lblExpensive"_s, u"Most Expensive"_s},
        {u"lblCheapest"_s, u"Least Expensive"_s},     {u"lblOldest"_s, u"Oldest Book"_s},
    };
    for (const auto &[name, text] : labels)
        QCOMPARE(labelText(form, name), text);
    QCOMPARE(FindControl<QPushButton>(form, u"cmdExit"_s)->text(), u"E&xit"_s);
    QCOMPARE(FindControl<QPushButton>(form, u"cmdHelp"_s)->text(), u"Help"_s);
    QVERIFY(FindControl<QLineEdit>(form, u"txtTotalNoBooks"_s)->isReadOnly());
}

void TestBookStats::menuEntryDisabledWhileOpen()
{
    CatalogueOpener opener(RegisterFigureForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QCOMPARE(MenuEntryFollowsForm(MenuEntry, FormName), QString());
}

void TestBookStats::figuresMatchTheCatalogueFile()
{
    CatalogueOpener opener(RegisterFigureForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    const TestCatalogue &file = opener.catalogue();
    QWidget *form = openStatistics();
    QVERIFY(form);
    const auto money = [&file](const QString &aggregate) {
        return Pounds(file.scalar(u"select "_s + aggregate + u" from tblBook"_s).toDouble());
    };
    QCOMPARE(shownFigures(form),
             (QStringList{file.scalar(u"select count(*) from tblBook"_s).toString(),
                          money(u"sum(BookPrice)"_s), money(u"avg(BookPrice)"_s),
                          money(u"max(BookPrice)"_s), money(u"min(BookPrice)"_s),
                          file.scalar(u"select min(BookWhenPublished) from tblBook "
                                      "where BookWhenPublished <> 0"_s)
                              .toString()}));
    // The demo collection is worth more than a thousand pounds and has dated books.
    QVERIFY(BoxText(form, u"txtTotalValue"_s).contains(u','));
    QVERIFY(!BoxText(form, u"txtOldest"_s).isEmpty());
    QVERIFY(!SaveScreenshot(form->parentWidget(), u"frmBookStats"_s).isEmpty());
}

void TestBookStats::emptyCatalogueShowsZeroAndEmptyBoxes()
{
    CatalogueOfBooks books({});
    QVERIFY2(books.problems().isEmpty(), qPrintable(books.problems()));
    ModalResponder responder;
    QWidget *form = openStatistics();
    QVERIFY(form);
    QCOMPARE(responder.finish(200), QString());
    QCOMPARE(shownFigures(form), (QStringList{u"0"_s, {}, {}, {}, {}, {}}));
}

void TestBookStats::undatedBooksLeftOutOfOldestButCountedInMoney()
{
    CatalogueOfBooks books({{u"Undated and dearest"_s, 900.0, 0},
                            {u"Undated and cheapest"_s, 2.5, 0},
                            {u"Herbal"_s, 100.0, 1843},
                            {u"Atlas"_s, 47.5, 1902}});
    QVERIFY2(books.problems().isEmpty(), qPrintable(books.problems()));
    QWidget *form = openStatistics();
    QVERIFY(form);
    QCOMPARE(shownFigures(form), (QStringList{u"4"_s, u"£1,050.00"_s, u"£262.50"_s,
                                              u"£900.00"_s, u"£2.50"_s, u"1843"_s}));
}

void TestBookStats::noDatedBookLeavesOldestEmpty()
{
    CatalogueOfBooks books({{u"Undated"_s, 12.0, 0}});
    QVERIFY2(books.problems().isEmpty(), qPrintable(books.problems()));
    QWidget *form = openStatistics();
    QVERIFY(form);
    QCOMPARE(shownFigures(form), (QStringList{u"1"_s, u"£12.00"_s, u"£12.00"_s, u"£12.00"_s,
                                              u"£12.00"_s, {}}));
}

void TestBookStats::nullPriceCountedButNotSummed()
{
    CatalogueOfBooks books({{u"Priced"_s, 30.0, 1920},
                            {u"Also priced"_s, 10.0, 1930},
                            {u"Never priced"_s, {}, 1910}},
                           CatalogueOfBooks::Prices::MayBeNull);
    QVERIFY2(books.problems().isEmpty(), qPrintable(books.problems()));
    QCOMPARE(books.catalogue().scalar(u"select count(*) from tblBook where BookPrice is null"_s),
             QVariant(1));
    QWidget *form = openStatistics();
    QVERIFY(form);
    // The average is over the two priced books, not the three.
    QCOMPARE(shownFigures(form), (QStringList{u"3"_s, u"£40.00"_s, u"£20.00"_s, u"£30.00"_s,
                                              u"£10.00"_s, u"1910"_s}));
}

void TestBookStats::totalAboveAThousandIsGrouped()
{
    CatalogueOfBooks books({{u"Folio"_s, 1000.0, 1790}, {u"Quarto"_s, 234.5, 1801}});
    QVERIFY2(books.problems().isEmpty(), qPrintable(books.problems()));
    QWidget *form = openStatistics();
    QVERIFY(form);
    QCOMPARE(shownFigures(form), (QStringList{u"2"_s, u"£1,234.50"_s, u"£617.25"_s,
                                              u"£1,000.00"_s, u"£234.50"_s, u"1790"_s}));
}

void TestBookStats::moneyInEveryLocale_data()
{
    AddMoneyLocaleRows();
}

// The money boxes in the locale's currency format, whatever side its symbol stands on.
void TestBookStats::moneyInEveryLocale()
{
    QFETCH(int, locale);
    const MoneyLocale &money = UseMoneyLocale(locale);
    CatalogueOfBooks books({{u"Folio"_s, 8400.0, 1790},
                            {u"Quarto"_s, 1120.0, 1801},
                            {u"Octavo"_s, 11.25, 1850},
                            {u"Pamphlet"_s, 0.5, 1901},
                            {u"Gift"_s, 0.0, 0}});
    QVERIFY2(books.problems().isEmpty(), qPrintable(books.problems()));
    QWidget *form = openStatistics();
    QVERIFY(form);
    const QStringList shown = money.shown();
    // Shown: 8,400, 1,120, 11.25, 0.5, 0, 12.50, 1,234.56, the sum 9,531.75, the average 1,906.35.
    QCOMPARE(shownFigures(form),
             (QStringList{u"5"_s, shown.at(7), shown.at(8), shown.at(0), shown.at(4), u"1790"_s}));
    if (money.name == u"de_DE")
        QVERIFY(!SaveScreenshot(form->parentWidget(), u"frmBookStats-de_DE"_s).isEmpty());
}

void TestBookStats::figuresAreThoseOfTheMomentOfLoading()
{
    CatalogueOfBooks books({{u"First"_s, 5.0, 1950}});
    QVERIFY2(books.problems().isEmpty(), qPrintable(books.problems()));
    QWidget *form = openStatistics();
    QVERIFY(form);
    QVERIFY(books.addBook({u"Second"_s, 7.0, 1940}));
    QTest::qWait(50);
    QCOMPARE(shownFigures(form), (QStringList{u"1"_s, u"£5.00"_s, u"£5.00"_s, u"£5.00"_s,
                                              u"£5.00"_s, u"1950"_s}));

    ClickButton(form, u"cmdExit"_s);
    QTRY_VERIFY(!FindForm(FormName));
    form = openStatistics();
    QVERIFY(form);
    QCOMPARE(shownFigures(form), (QStringList{u"2"_s, u"£12.00"_s, u"£6.00"_s, u"£7.00"_s,
                                              u"£5.00"_s, u"1940"_s}));
}

void TestBookStats::moneyIsRightAligned()
{
    CatalogueOpener opener(RegisterFigureForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QWidget *form = openStatistics();
    QVERIFY(form);
    for (const QString &box : {u"txtTotalValue"_s, u"txtAverageCost"_s, u"txtExpensive"_s,
                               u"txtCheapest"_s})
        QVERIFY(FindControl<QLineEdit>(form, box)->alignment() & Qt::AlignRight);
}

void TestBookStats::helpOpensTheFormsTopic()
{
    CatalogueOpener opener(RegisterFigureForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QWidget *form = openStatistics();
    QVERIFY(form);
    ClickButton(form, u"cmdHelp"_s);
    QTRY_COMPARE(ShownHelpTopic(), u"Collection statistics"_s);
    FindForm(u"HelpWindow"_s)->close();
}

SHELVANE_TEST_MAIN(TestBookStats)
#include "tst_bookstats.moc"
