// The collection value and the revaluation of every price by a percentage.

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
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString FormName = u"frmPrices"_s;
const QString MenuEntry = u"mnuCollectionValue"_s;
const QString RangeMessage = u"Please enter an increase % between -15 and +15 % or press 'Exit'"_s;
const QString RangeTitle = u"Maintain Collection value"_s;

QLineEdit *box(const QWidget *form, const QString &name)
{
    return FindControl<QLineEdit>(form, name);
}

ModalExpectation rangeMessage()
{
    return ModalResponder::message(RangeTitle, RangeMessage, QMessageBox::NoIcon, {u"OK"_s},
                                   u"OK"_s);
}

ModalExpectation runtimeError(const QString &text)
{
    return ModalResponder::message(u"prjQuireshelf"_s, text, QMessageBox::Critical, {u"OK"_s},
                                   u"OK"_s);
}

QWidget *openPrices()
{
    return OpenThroughMenu(MenuEntry, FormName);
}

void preview(const QWidget *form, const QString &increase)
{
    Retype(box(form, u"txtIncrease"_s), increase);
    ClickButton(form, u"cmdTest"_s);
}

void apply(const QWidget *form, const QString &increase)
{
    Retype(box(form, u"txtIncrease"_s), increase);
    ClickButton(form, u"cmdUpdate"_s);
}

// A catalogue of two books worth £1,000.00 together, each sold on for £55.
class TwoBooks
{
public:
    TwoBooks()
        : m_ready(m_books.problems().isEmpty()
                  && QSqlQuery(m_books.catalogue().db())
                         .exec(u"UPDATE tblBook SET BookSellPrice = 55"_s))
    {
    }

    // The form opened through its menu entry; nullptr when the catalogue was not made.
    QWidget *openForm() const { return m_ready ? openPrices() : nullptr; }
    QString problems() const { return m_ready ? QString() : m_books.problems() + u" (setup)"_s; }
    // The folio's price and the quarto's.
    QList<double> prices() const
    {
        QList<double> prices;
        QSqlQuery query(m_books.catalogue().db());
        query.exec(u"select BookPrice from tblBook order by BookDescription"_s);
        while (query.next())
            prices << query.value(0).toDouble();
        return prices;
    }
    double sellPrices() const
    {
        return m_books.catalogue().scalar(u"select sum(BookSellPrice) from tblBook"_s).toDouble();
    }

private:
    CatalogueOfBooks m_books{{{u"Folio"_s, 600.0, 1790}, {u"Quarto"_s, 400.0, 1801}}};
    bool m_ready;
};

} // namespace

class TestPrices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void formShowsItsCaptionsAndTips();
    void menuEntryDisabledWhileOpen();
    void loadShowsTheSumOfThePrices();
    void increaseBoxTakesOnlyNumberKeys();
    void limitsAreAccepted_data();
    void limitsAreAccepted();
    void beyondTheLimitsIsRefused_data();
    void beyondTheLimitsIsRefused();
    void exitIsNeverBlocked();
    void previewAddsThePercentage();
    void applyWithoutPreviewShowsAPlainNumber();
    void applyAfterPreviewShowsThePreview();
    void changedPercentageAfterPreviewIsApplied();
    void applyingTwiceAppliesTheFactorTwice();
    void fallUsesItsShortestFactor();
    void plainValueAboveAMillionHasNoExponent();
    void emptyCatalogueIsWorthNothing();
    void revaluationAppliesInEveryLocale_data();
    void revaluationAppliesInEveryLocale();
    void previewReadsTheLocalesMoneyBack_data();
    void previewReadsTheLocalesMoneyBack();
    void textThatIsNoNumberIsReportedOnce();
    void helpOpensTheFormsTopic();
};

void TestPrices::formShowsItsCaptionsAndTips()
{
    CatalogueOpener opener(RegisterFigureForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QWidget *form = openPrices();
    QVERIFY(form);
    QCOMPARE(form->windowTitle(), u"Price Maintenance"_s);
    QCOMPARE(FindControl<QLabel>(form, u"lblCurrValue"_s)->text(), u"Current Collection Value"_s);
    QCOMPARE(FindControl<QLabel>(form, u"lblIncrease"_s)->text(), u"Price Increase % (-/+)"_s);
    QCOMPARE(FindControl<QLabel>(form, u"lblTestValue"_s)->text(),
             u"Value after Applying Increase"_s);
    QCOMPARE(box(form, u"txtIncrease"_s)->toolTip(),
             u"Key % by which you want to increase whole catalogue value by in here"_s);
    const auto *cmdTest = FindControl<QPushButton>(form, u"cmdTest"_s);
    QCOMPARE(cmdTest->text(), u"See result of Increase"_s);
    QCOMPARE(cmdTest->toolTip(),
             u"Click here to preview result of increase but NOT apply it to the catalogue"_s);
    const auto *cmdUpdate = FindControl<QPushButton>(form, u"cmdUpdate"_s);
    QCOMPARE(cmdUpdate->text(), u"Apply Increase"_s);
    QCOMPARE(cmdUpdate->toolTip(),
             u"Click to actually apply the % increase to all books in the catalogue"_s);
    QCOMPARE(FindControl<QPushButton>(form, u"cmdExit"_s)->text(), u"E&xit"_s);
    QCOMPARE(FindControl<QPushButton>(form, u"cmdHelp"_s)->text(), u"Help"_s);
    QCOMPARE(form->focusWidget(), box(form, u"txtIncrease"_s));

    ModalResponder responder;
    preview(form, u"5"_s);
    QCOMPARE(responder.finish(200), QString());
    QVERIFY(!SaveScreenshot(form->parentWidget(), u"frmPrices"_s).isEmpty());
}

void TestPrices::menuEntryDisabledWhileOpen()
{
    CatalogueOpener opener(RegisterFigureForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QCOMPARE(MenuEntryFollowsForm(MenuEntry, FormName), QString());
}

void TestPrices::loadShowsTheSumOfThePrices()
{
    CatalogueOpener opener(RegisterFigureForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QWidget *form = openPrices();
    QVERIFY(form);
    QCOMPARE(BoxText(form, u"txtCurrValue"_s),
             Pounds(opener.catalogue().scalar(u"select sum(BookPrice) from tblBook"_s).toDouble()));
    QCOMPARE(BoxText(form, u"txtIncrease"_s), QString());
    QCOMPARE(BoxText(form, u"txtTestValue"_s), QString());
}

void TestPrices::increaseBoxTakesOnlyNumberKeys()
{
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    Retype(box(form, u"txtIncrease"_s), u"-1,2a.b+3:x%"_s);
    QCOMPARE(BoxText(form, u"txtIncrease"_s), u"-12.+3:"_s);
    QTest::keyClick(box(form, u"txtIncrease"_s), Qt::Key_Backspace);
    QCOMPARE(BoxText(form, u"txtIncrease"_s), u"-12.+3"_s);
}

void TestPrices::limitsAreAccepted_data()
{
    QTest::addColumn<QString>("increase");
    QTest::addColumn<QString>("previewed");
    QTest::newRow("-15") << u"-15"_s << u"£850.00"_s;
    QTest::newRow("15") << u"15"_s << u"£1,150.00"_s;
    QTest::newRow("+15") << u"+15"_s << u"£1,150.00"_s;
}

void TestPrices::limitsAreAccepted()
{
    QFETCH(QString, increase);
    QFETCH(QString, previewed);
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    ModalResponder responder;
    preview(form, increase);
    QCOMPARE(responder.finish(200), QString());
    QCOMPARE(BoxText(form, u"txtTestValue"_s), previewed);
    QCOMPARE(form->focusWidget(), box(form, u"txtIncrease"_s));
}

void TestPrices::beyondTheLimitsIsRefused_data()
{
    QTest::addColumn<QString>("increase");
    QTest::addColumn<QString>("button");
    QTest::newRow("-15.01, preview") << u"-15.01"_s << u"cmdTest"_s;
    QTest::newRow("15.01, preview") << u"15.01"_s << u"cmdTest"_s;
    QTest::newRow("15.01, apply") << u"15.01"_s << u"cmdUpdate"_s;
    QTest::newRow("empty, apply") << QString() << u"cmdUpdate"_s;
    QTest::newRow("-16, apply") << u"-16"_s << u"cmdUpdate"_s;
}

void TestPrices::beyondTheLimitsIsRefused()
{
    QFETCH(QString, increase);
    QFETCH(QString, button);
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    ModalResponder responder;
    Retype(box(form, u"txtIncrease"_s), increase);
    responder.expect(rangeMessage());
    ClickButton(form, button);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(form->focusWidget(), box(form, u"txtIncrease"_s));
    QCOMPARE(BoxText(form, u"txtTestValue"_s), QString());
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), u"£1,000.00"_s);
    QCOMPARE(books.prices(), (QList<double>{600.0, 400.0}));
}

void TestPrices::exitIsNeverBlocked()
{
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    ModalResponder responder;
    Retype(box(form, u"txtIncrease"_s), u"40"_s);
    ClickButton(form, u"cmdExit"_s);
    QCOMPARE(responder.finish(200), QString());
    QTRY_VERIFY(!FindForm(FormName));
    QCOMPARE(books.prices(), (QList<double>{600.0, 400.0}));
}

void TestPrices::previewAddsThePercentage()
{
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    preview(form, u"-2.5"_s);
    QCOMPARE(BoxText(form, u"txtTestValue"_s), u"£975.00"_s);
    preview(form, u"12.345"_s);
    QCOMPARE(BoxText(form, u"txtTestValue"_s), u"£1,123.45"_s);
    // A preview changes nothing in the catalogue.
    QCOMPARE(books.prices(), (QList<double>{600.0, 400.0}));
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), u"£1,000.00"_s);
}

void TestPrices::applyWithoutPreviewShowsAPlainNumber()
{
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), u"£1,000.00"_s);
    ModalResponder responder;
    apply(form, u"5"_s);
    QCOMPARE(responder.finish(200), QString());
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), u"1050"_s);
    QCOMPARE(BoxText(form, u"txtIncrease"_s), QString());
    QCOMPARE(BoxText(form, u"txtTestValue"_s), QString());
    QCOMPARE(form->focusWidget(), box(form, u"txtIncrease"_s));
    QCOMPARE(books.prices(), (QList<double>{630.0, 420.0}));
    // Only the purchase price is revalued.
    QCOMPARE(books.sellPrices(), 110.0);
}

void TestPrices::applyAfterPreviewShowsThePreview()
{
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    preview(form, u"5"_s);
    QCOMPARE(BoxText(form, u"txtTestValue"_s), u"£1,050.00"_s);
    ClickButton(form, u"cmdUpdate"_s);
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), u"£1,050.00"_s);
    QCOMPARE(BoxText(form, u"txtTestValue"_s), QString());
    QCOMPARE(books.prices(), (QList<double>{630.0, 420.0}));
}

void TestPrices::changedPercentageAfterPreviewIsApplied()
{
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    preview(form, u"5"_s);
    apply(form, u"10"_s);
    QCOMPARE(books.prices(), (QList<double>{660.0, 440.0}));
    // The value shown is the earlier preview's, not what the catalogue now holds.
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), u"£1,050.00"_s);
}

void TestPrices::applyingTwiceAppliesTheFactorTwice()
{
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    apply(form, u"5"_s);
    QCOMPARE(books.prices(), (QList<double>{630.0, 420.0}));
    apply(form, u"5"_s);
    QCOMPARE(books.prices(), (QList<double>{661.5, 441.0}));
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), u"1102.5"_s);
}

void TestPrices::fallUsesItsShortestFactor()
{
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    apply(form, u"-2.5"_s);
    QCOMPARE(books.prices(), (QList<double>{585.0, 390.0}));
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), u"975"_s);
}

// The plain number is written out in full, as it is read back by the next preview.
void TestPrices::plainValueAboveAMillionHasNoExponent()
{
    CatalogueOfBooks books({{u"Codex"_s, 2000000.0, 1450}});
    QVERIFY2(books.problems().isEmpty(), qPrintable(books.problems()));
    QWidget *form = openPrices();
    QVERIFY(form);
    ModalResponder responder;
    apply(form, u"5"_s);
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), u"2100000"_s);
    preview(form, u"0"_s);
    QCOMPARE(responder.finish(200), QString());
    QCOMPARE(BoxText(form, u"txtTestValue"_s), u"£2,100,000.00"_s);
}

void TestPrices::emptyCatalogueIsWorthNothing()
{
    CatalogueOfBooks books({});
    QVERIFY2(books.problems().isEmpty(), qPrintable(books.problems()));
    ModalResponder responder;
    QWidget *form = openPrices();
    QVERIFY(form);
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), u"£0.00"_s);
    preview(form, u"5"_s);
    QCOMPARE(BoxText(form, u"txtTestValue"_s), u"£0.00"_s);
    ClickButton(form, u"cmdUpdate"_s);
    QCOMPARE(responder.finish(200), QString());
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), u"£0.00"_s);
}

void TestPrices::revaluationAppliesInEveryLocale_data()
{
    QTest::addColumn<int>("locale");
    QTest::addColumn<QString>("increase");
    QTest::addColumn<QList<double>>("once");
    QTest::addColumn<double>("valueOnce");
    QTest::addColumn<QList<double>>("twice");
    QTest::addColumn<double>("valueTwice");
    for (int i = 0; i < MoneyLocales().size(); ++i) {
        const QString name = MoneyLocales().at(i).name;
        QTest::newRow(qPrintable(name + u", 5"_s)) << i << u"5"_s << QList<double>{630, 420} << 1050.0
                                    << QList<double>{661.5, 441} << 1102.5;
        QTest::newRow(qPrintable(name + u", -2.5"_s)) << i << u"-2.5"_s << QList<double>{585, 390} << 975.0
                                       << QList<double>{570.375, 380.25} << 950.625;
    }
}

// The factor goes into the statement in SQL's form, and the percentage is typed with a point
// whatever the locale (its key filter lets no comma through). Without a preview the value
// shown is a plain number with the locale's decimal mark, which the next apply reads back.
void TestPrices::revaluationAppliesInEveryLocale()
{
    QFETCH(int, locale);
    QFETCH(QString, increase);
    QFETCH(QList<double>, once);
    QFETCH(double, valueOnce);
    QFETCH(QList<double>, twice);
    QFETCH(double, valueTwice);
    UseMoneyLocale(locale);
    const auto plain = [](double value) {
        return QString::number(value).replace(u'.', QLocale().decimalPoint());
    };
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    ModalResponder responder;
    apply(form, increase);
    QCOMPARE(books.prices(), once);
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), plain(valueOnce));
    apply(form, increase);
    QCOMPARE(books.prices(), twice);
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), plain(valueTwice));
    QCOMPARE(books.sellPrices(), 110.0);
    QCOMPARE(responder.finish(200), QString());
}

void TestPrices::previewReadsTheLocalesMoneyBack_data()
{
    AddMoneyLocaleRows();
}

// The shown value, in the locale's currency format, is read back for the preview.
void TestPrices::previewReadsTheLocalesMoneyBack()
{
    QFETCH(int, locale);
    const MoneyLocale &money = UseMoneyLocale(locale);
    const QString eightThousandFourHundred = money.shown().at(0);
    CatalogueOfBooks books({{u"Folio"_s, 8000.0, 1790}});
    QVERIFY2(books.problems().isEmpty(), qPrintable(books.problems()));
    QWidget *form = openPrices();
    QVERIFY(form);
    ModalResponder responder;
    preview(form, u"5"_s);
    QCOMPARE(BoxText(form, u"txtTestValue"_s), eightThousandFourHundred);
    ClickButton(form, u"cmdUpdate"_s);
    QCOMPARE(books.catalogue().scalar(u"select BookPrice from tblBook"_s).toDouble(), 8400.0);
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), eightThousandFourHundred);
    preview(form, u"0"_s);
    QCOMPARE(BoxText(form, u"txtTestValue"_s), eightThousandFourHundred);
    QCOMPARE(responder.finish(200), QString());
}

void TestPrices::textThatIsNoNumberIsReportedOnce()
{
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    ModalResponder responder;
    Retype(box(form, u"txtIncrease"_s), u"1.2.3"_s);
    responder.expect(runtimeError(u"Run-time error '13':\r\n\r\nType mismatch"_s));
    ClickButton(form, u"cmdUpdate"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(form->focusWidget(), box(form, u"txtIncrease"_s));
    QCOMPARE(books.prices(), (QList<double>{600.0, 400.0}));
    QCOMPARE(BoxText(form, u"txtCurrValue"_s), u"£1,000.00"_s);
}

void TestPrices::helpOpensTheFormsTopic()
{
    TwoBooks books;
    QWidget *form = books.openForm();
    QVERIFY2(form, qPrintable(books.problems()));
    ModalResponder responder;
    // Help is there also while the percentage would be refused.
    Retype(box(form, u"txtIncrease"_s), u"99"_s);
    ClickButton(form, u"cmdHelp"_s);
    QTRY_COMPARE(ShownHelpTopic(), u"Collection value and prices"_s);
    QCOMPARE(responder.finish(200), QString());
    FindForm(u"HelpWindow"_s)->close();
}

SHELVANE_TEST_MAIN(TestPrices)
#include "tst_prices.moc"
