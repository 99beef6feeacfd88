// The book form adding and editing: add mode, the mandatory fields and their checks, the key
// filters, and closing with an edit pending.

#include "bookformfixture.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/books/frmbookmaintenance.h"
#include "support/finders.h"
#include "support/moneylocales.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QProcess>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString FirstTitle = u"A Christmas Carol"_s;
const QString CheckTitle = u"Adding new book"_s;
const QString AddedText = u"New Book Sucessfully added, now allocate topic(s) and author(s)"_s;
const QString ConfirmExitText = u"Edit in progress do you wish apply updates\r\n"
                                "Press 'Yes' to apply updates and then exit\r\n"
                                "Press 'No' to skip updates and exit\r\n"
                                "Press 'Cancel' to continue editting"_s;
const QStringList MandatoryFields{u"txtDescription"_s, u"txtPrice"_s, u"txtPages"_s,
                                  u"cboCover"_s, u"cboCondition"_s, u"cboPublisher"_s};
const QColor Yellow(255, 255, 0);
const QColor White(255, 255, 255);

QWidget *control(const QWidget *form, const QString &name)
{
    QWidget *widget = FindControl(form, name);
    if (!widget)
        qWarning("No control %s", qPrintable(name));
    return widget;
}

void focus(QWidget *widget)
{
    widget->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(widget->window()));
    widget->setFocus(Qt::OtherFocusReason);
    QTRY_VERIFY(widget->hasFocus());
}

// The control that has the focus in the frame (once the frame is the active window again,
// after a message box).
QWidget *focused(const QWidget *form)
{
    return form->window()->focusWidget();
}

ModalExpectation confirmExit(const QString &press)
{
    return Question(u"Confirm Exit"_s, ConfirmExitText, {u"Yes"_s, u"No"_s, u"Cancel"_s}, press);
}

QString title(const BookFormFixture &fixture, const QString &id)
{
    return fixture.catalogue().scalar(u"select BookDescription from tblBook where BookID = "_s + id).toString();
}

// Fills the first `count` mandatory fields of a new book, in checking order.
void fillMandatory(QWidget *form, int count, const QString &bookTitle = u"Zebra Crossings"_s)
{
    const QList<std::function<void()>> steps{
        [&] { TypeInto(control(form, u"txtDescription"_s), bookTitle); },
        [&] { TypeInto(control(form, u"txtPrice"_s), u"12.50"_s); },
        [&] { TypeInto(control(form, u"txtPages"_s), u"200"_s); },
        [&] { PickFromList(control(form, u"cboCover"_s), u"Boxed"_s); },
        [&] { PickFromList(control(form, u"cboCondition"_s), u"Mint"_s); },
        [&] { PickFromList(control(form, u"cboPublisher"_s), u"UnKnown"_s); },
    };
    for (int i = 0; i < count; ++i)
        steps.at(i)();
}

QColor base(const QWidget *form, const QString &name)
{
    return control(form, name)->palette().color(QPalette::Base);
}

} // namespace

class TestBookEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestEnvironment::clearSettings(); }
    void cleanup() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void clearingTheTitleAndTabbingAwayIsRefused()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QWidget *box = control(form, u"txtDescription"_s);
        const QString id = Shown(form, u"txtBookID"_s);
        focus(box);
        ClearWithKeys(box);
        fixture.responder().expect(Message(CheckTitle, u"Please enter a book title"_s));
        QTest::keyClick(box, Qt::Key_Tab);
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_COMPARE(focused(form), box);
        QCOMPARE(title(fixture, id), FirstTitle);
    }

    void clickingAwayFromAnEmptyFieldIsRefused_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("message");
        QTest::newRow("title") << u"txtDescription"_s << u"Please enter a book title"_s;
        QTest::newRow("price") << u"txtPrice"_s << u"Please enter a book price"_s;
        QTest::newRow("pages") << u"txtPages"_s << u"Please enter number of pages"_s;
    }

    void clickingAwayFromAnEmptyFieldIsRefused()
    {
        QFETCH(QString, field);
        QFETCH(QString, message);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QWidget *box = control(form, field);
        focus(box);
        ClearWithKeys(box);
        fixture.responder().expect(Message(CheckTitle, message));
        Click(control(form, u"cmdNext"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_COMPARE(focused(form), box);
        // The click that tried to leave did nothing: the form is still on the first book.
        QCOMPARE(Panel(form, 2), u"Book 1 of 60"_s);
        QCOMPARE(Shown(form, u"txtBookID"_s),
                 fixture.catalogue().scalar(u"select BookID from tblBook where BookDescription = '"_s
                                            + FirstTitle + u"'"_s).toString());
    }

    void anAccessKeyAwayFromAnEmptyFieldIsRefused()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QWidget *pages = control(form, u"txtPages"_s);
        focus(pages);
        ClearWithKeys(pages);
        fixture.responder().expect(Message(CheckTitle, u"Please enter number of pages"_s));
        QTest::keyClick(pages, Qt::Key_C, Qt::AltModifier); // "&Condition"
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_COMPARE(focused(form), pages);
    }

    void publishedLeftEmptyBecomesZero()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QString id = Shown(form, u"txtBookID"_s);
        QWidget *published = control(form, u"txtWhenPublished"_s);
        focus(published);
        ClearWithKeys(published);
        QTest::keyClick(published, Qt::Key_Tab);
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(Shown(form, u"txtWhenPublished"_s), u"0"_s);
        Click(control(form, u"cmdNext"_s));
        QCOMPARE(fixture.catalogue().scalar(u"select BookWhenPublished from tblBook where BookID = "_s + id).toInt(), 0);
    }

    void keysTypedIntoTheFields_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("shown");
        // Typed into each: "1:-,a.2"
        for (const QString &digits : {u"txtPages"_s, u"txtIllustrations"_s, u"txtMaps"_s, u"txtPlans"_s,
                                      u"txtWhenPublished"_s, u"txtWhenPurchased"_s, u"txtWhenSold"_s})
            QTest::newRow(qPrintable(digits)) << digits << u"1:2"_s;
        QTest::newRow("txtPrice") << u"txtPrice"_s << u"1:.2"_s;
        QTest::newRow("txtSell") << u"txtSell"_s << u"1:.2"_s;
        QTest::newRow("txtDescription") << u"txtDescription"_s << u"1:-,a.2"_s;
        QTest::newRow("txtIntroduction") << u"txtIntroduction"_s << u"1:-,a.2"_s;
    }

    void keysTypedIntoTheFields()
    {
        QFETCH(QString, field);
        QFETCH(QString, shown);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QWidget *box = control(form, field);
        focus(box);
        ClearWithKeys(box);
        TypeInto(box, u"1:-,a.2"_s);
        QCOMPARE(Shown(form, field), shown);
    }

    void addWithThePromptOffStartsAtOnce()
    {
        BookFormFixture fixture;
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        Click(control(form, u"cmdAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QVERIFY(control(form, u"cmdConfirmAdd"_s)->isVisible());
        QCOMPARE(Shown(form, u"txtBookID"_s), QString());
        QCOMPARE(Shown(form, u"txtDescription"_s), QString());
        QTRY_COMPARE(focused(form), control(form, u"txtDescription"_s));
    }

    void addWithThePromptAnsweredCancelAddsNothing()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        fixture.responder().expect(ModalResponder::dialog(u"dlgAddPrompt"_s, u"Add New Book"_s, u"cmdCancel"_s));
        Click(control(form, u"cmdAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QVERIFY(!control(form, u"cmdConfirmAdd"_s)->isVisible());
        QCOMPARE(Shown(form, u"txtDescription"_s), FirstTitle);
    }

    void addModeSwitchesTheControls()
    {
        BookFormFixture fixture;
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        for (int i = 0; i < 4; ++i)
            Click(control(form, u"cmdNext"_s));
        const QString shownBefore = Shown(form, u"txtDescription"_s);
        for (const QString &field : MandatoryFields)
            QCOMPARE(base(form, field), White);

        Click(control(form, u"cmdAdd"_s));
        for (const QString &field : MandatoryFields)
            QCOMPARE(base(form, field), Yellow);
        for (const QString &name : {u"dbgBookAuthor"_s, u"dbgBookTopic"_s, u"cmdAddTopic"_s,
                                    u"cmdAddAuthor"_s, u"cmdDeleteAuthor"_s, u"cmdDeleteTopic"_s})
            QVERIFY2(!control(form, name)->isVisible(), qPrintable(name));
        QVERIFY(control(form, u"cmdConfirmAdd"_s)->isVisible());
        QVERIFY(control(form, u"cmdCancelAdd"_s)->isVisible());
        for (const QString &name : {u"cmdFirst"_s, u"cmdPrevious"_s, u"cmdDelete"_s, u"cmdAdd"_s})
            QVERIFY2(!control(form, name)->isEnabled(), qPrintable(name));
        // Next and Last are left as they were.
        QVERIFY(control(form, u"cmdNext"_s)->isEnabled());
        QVERIFY(control(form, u"cmdLast"_s)->isEnabled());
        for (const QString &box : {u"chkIllustrated"_s, u"chkFirstEdition"_s, u"chkBibliography"_s})
            QVERIFY(!FindControl<QCheckBox>(form, box)->isChecked());
        QCOMPARE(Shown(form, u"cboPublisher"_s), QString());
        TypeInto(control(form, u"txtDescription"_s), u"The Compleat Angler"_s);
        SaveScreenshot(form->parentWidget(), u"bookform-adding"_s);

        Click(control(form, u"cmdCancelAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        for (const QString &field : MandatoryFields)
            QCOMPARE(base(form, field), White);
        QVERIFY(!control(form, u"cmdConfirmAdd"_s)->isVisible());
        QVERIFY(control(form, u"dbgBookAuthor"_s)->isVisible());
        QCOMPARE(Shown(form, u"txtDescription"_s), shownBefore);
        QCOMPARE(Panel(form, 2), u"Book 5 of 60"_s);
        QCOMPARE(fixture.rows(u"select * from tblBook"_s), 60);
    }

    void confirmingAddsTheBook()
    {
        BookFormFixture fixture;
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        Click(control(form, u"cmdAdd"_s));
        fillMandatory(form, 6);
        TypeInto(control(form, u"txtWhenPublished"_s), u"1999"_s);
        Click(control(form, u"chkFirstEdition"_s));
        fixture.responder().expect(Message(u"Add New Book"_s, AddedText));
        Click(control(form, u"cmdConfirmAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());

        QSqlQuery query(fixture.catalogue().db());
        QVERIFY(query.exec(u"select BookID, BookPrice, BookPagesText, BookCover, BookCondition, "
                           "BookWhenPublished, Book1stEd, BookIllustrated, (select PublisherName from "
                           "tblPublisher where PublisherID = BookPublisherId) from tblBook where "
                           "BookDescription = 'Zebra Crossings'"_s));
        QVERIFY(query.next());
        QCOMPARE(query.value(1).toDouble(), 12.5);
        QCOMPARE(query.value(2).toInt(), 200);
        QCOMPARE(query.value(3).toString(), u"Boxed"_s);
        QCOMPARE(query.value(4).toString(), u"Mint"_s);
        QCOMPARE(query.value(5).toInt(), 1999);
        QCOMPARE(query.value(6).toInt(), 1);
        QCOMPARE(query.value(7).toInt(), 0);
        QCOMPARE(query.value(8).toString(), u"UnKnown"_s);

        // The new book is the current one, at its place in title order.
        QCOMPARE(Shown(form, u"txtBookID"_s), query.value(0).toString());
        const int place = int(fixture.bookColumn(u"BookDescription"_s).indexOf(u"Zebra Crossings"_s)) + 1;
        QCOMPARE(Panel(form, 2), u"Book "_s + QString::number(place) + u" of 61"_s);
        QCOMPARE(Shown(form, u"dboBookLkup"_s), u"Zebra Crossings"_s);
        QCOMPARE(Shown(form, u"txtPrice"_s), u"£12.50"_s);
        for (const QString &field : MandatoryFields)
            QCOMPARE(base(form, field), White);
    }

    void typedPriceIsStoredInEveryLocale_data() { AddMoneyLocaleRows(); }

    // The price box lets only a point through, so "12.50" is twelve and a half wherever the
    // locale writes a decimal comma; it then shows in the locale's money.
    void typedPriceIsStoredInEveryLocale()
    {
        QFETCH(int, locale);
        const MoneyLocale &money = UseMoneyLocale(locale);
        BookFormFixture fixture;
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        Click(control(form, u"cmdAdd"_s));
        fillMandatory(form, 6);
        fixture.responder().expect(Message(u"Add New Book"_s, AddedText));
        Click(control(form, u"cmdConfirmAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(fixture.catalogue()
                     .scalar(u"select BookPrice from tblBook where BookDescription = 'Zebra Crossings'"_s)
                     .toDouble(),
                 12.5);
        QCOMPARE(Shown(form, u"txtPrice"_s), money.shown().at(5)); // 12.50
    }

    void confirmChecksTheFieldsInOrder_data()
    {
        QTest::addColumn<int>("filled");
        QTest::addColumn<QString>("message");
        const QStringList messages{u"Please enter a book title"_s, u"Please enter a book price"_s,
                                   u"Please enter number of pages"_s, u"Please enter cover details"_s,
                                   u"Please enter condition"_s, u"Please enter publisher details"_s};
        for (int filled = 0; filled < messages.size(); ++filled)
            QTest::newRow(qPrintable(MandatoryFields.at(filled) + u" empty"_s)) << filled << messages.at(filled);
    }

    void confirmChecksTheFieldsInOrder()
    {
        QFETCH(int, filled);
        QFETCH(QString, message);
        BookFormFixture fixture;
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        Click(control(form, u"cmdAdd"_s));
        fillMandatory(form, filled);
        // Confirm is pressed from a field that is filled in (or from the button itself).
        focus(control(form, u"cmdConfirmAdd"_s));
        fixture.responder().expect(Message(CheckTitle, message));
        Click(control(form, u"cmdConfirmAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_COMPARE(focused(form), control(form, MandatoryFields.at(filled)));
        QVERIFY(control(form, u"cmdConfirmAdd"_s)->isVisible());
        QCOMPARE(fixture.rows(u"select * from tblBook"_s), 60);
    }

    void cancellingAnAddInAnEmptyCatalogue()
    {
        BookFormFixture fixture(TestCatalogue::Content::Empty, [](const TestCatalogue &catalogue) {
            QSqlQuery(catalogue.db()).exec(u"delete from tblBook"_s);
        });
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        QVERIFY(form);
        QVERIFY(control(form, u"cmdCancelAdd"_s)->isVisible());
        Click(control(form, u"cmdCancelAdd"_s));
        // No bookmark to go back to, and nothing to show: the form starts another book at once.
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(Panel(form, 2), u"Book 0 of 0"_s);
        QVERIFY(control(form, u"cmdConfirmAdd"_s)->isVisible());
        QVERIFY(!control(form, u"cmdDelete"_s)->isEnabled());
        QCOMPARE(fixture.rows(u"select * from tblBook"_s), 0);
    }

    void closingDuringAnAddAnsweredNoDiscardsTheBook()
    {
        BookFormFixture fixture;
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        Click(control(form, u"cmdAdd"_s));
        fillMandatory(form, 3, u"Never Written"_s);
        fixture.responder().expect(confirmExit(u"No"_s));
        form->parentWidget()->close();
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_VERIFY(!fixture.form());
        QCOMPARE(fixture.rows(u"select * from tblBook"_s), 60);
        QVERIFY(fixture.frame().action(u"mnuBooks"_s)->isEnabled());
    }

    void closingWithAnEditAnsweredCancelThenYes()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QString id = Shown(form, u"txtBookID"_s);
        TypeInto(control(form, u"txtDescription"_s), u" (second state)"_s);
        fixture.responder().expect(confirmExit(u"Cancel"_s));
        form->parentWidget()->close();
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(fixture.form(), form);
        QCOMPARE(Shown(form, u"txtDescription"_s), FirstTitle + u" (second state)"_s);

        fixture.responder().expect(confirmExit(u"Yes"_s));
        form->parentWidget()->close();
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_VERIFY(!fixture.form());
        QCOMPARE(title(fixture, id), FirstTitle + u" (second state)"_s);
    }

    void closingWithAnEmptiedTitleWritesItThenRefuses()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QString id = Shown(form, u"txtBookID"_s);
        ClearWithKeys(control(form, u"txtDescription"_s));
        fixture.responder().expect(confirmExit(u"Yes"_s));
        fixture.responder().expect(Message(CheckTitle, u"Please enter a book title"_s));
        form->parentWidget()->close();
        QCOMPARE(fixture.responder().finish(), QString());
        // The row is written before it is checked; the form stays open on the empty title.
        QCOMPARE(fixture.form(), form);
        QCOMPARE(title(fixture, id), QString());
        QTRY_COMPARE(focused(form), control(form, u"txtDescription"_s));
    }

    // Notes written elsewhere break their lines with CR LF; the notes box gives its lines back
    // with LF alone. Showing them is no edit: nothing is asked, nothing is written.
    void notesWithCarriageReturnsAreNoEdit()
    {
        const QString notes = u"Bought at auction\r\nfoxing to prelims"_s;
        BookFormFixture fixture(TestCatalogue::Content::Sample, [&notes](const TestCatalogue &catalogue) {
            QSqlQuery update(catalogue.db());
            update.prepare(u"update tblBook set BookNotes = ?"_s);
            update.addBindValue(notes);
            QVERIFY(update.exec());
        });
        FrmBookMaintenance *form = fixture.showBooks();
        Click(control(form, u"cmdNext"_s));
        Click(control(form, u"cmdExit"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_VERIFY(!fixture.form());
        QCOMPARE(fixture.rows(u"select * from tblBook where BookNotes = '"_s + QString(notes).replace(u"\r\n"_s, u"' || char(13) || char(10) || '"_s) + u"'"_s), 60);
    }

    void closingWithoutAnEditAsksNothing()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        Click(control(form, u"cmdNext"_s));
        Click(control(form, u"cmdExit"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_VERIFY(!fixture.form());
    }

    void aPromptClosedByItsFrameKeepsTheLastAnswer_data()
    {
        QTest::addColumn<QString>("firstAnswer");
        QTest::addColumn<bool>("adds");
        QTest::newRow("after OK") << u"OKButton"_s << true;
        QTest::newRow("after Cancel") << u"cmdCancel"_s << false;
    }

    void aPromptClosedByItsFrameKeepsTheLastAnswer()
    {
        QFETCH(QString, firstAnswer);
        QFETCH(bool, adds);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        fixture.responder().expect(ModalResponder::dialog(u"dlgAddPrompt"_s, u"Add New Book"_s, firstAnswer));
        Click(control(form, u"cmdAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        if (control(form, u"cmdCancelAdd"_s)->isVisible())
            Click(control(form, u"cmdCancelAdd"_s));

        fixture.responder().expect(ModalResponder::dialog(u"dlgAddPrompt"_s, u"Add New Book"_s, {},
                                                          [](QWidget *dialog) { dialog->close(); }));
        Click(control(form, u"cmdAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(control(form, u"cmdConfirmAdd"_s)->isVisible(), adds);
    }

    void apostrophesAreAddedEditedAndDeleted()
    {
        BookFormFixture fixture;
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        SetBookPrompt(u"DeletePrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        Click(control(form, u"cmdAdd"_s));
        fillMandatory(form, 6, u"Captain's Log"_s);
        TypeInto(control(form, u"Text3"_s), u"O'Brien's own copy"_s);
        fixture.responder().expect(Message(u"Add New Book"_s, AddedText));
        Click(control(form, u"cmdConfirmAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        const QString id = Shown(form, u"txtBookID"_s);
        QCOMPARE(title(fixture, id), u"Captain's Log"_s);
        QCOMPARE(fixture.catalogue().scalar(u"select BookNotes from tblBook where BookID = "_s + id).toString(),
                 u"O'Brien's own copy"_s);

        TypeInto(control(form, u"txtDescription"_s), u"'s"_s);
        TypeInto(control(form, u"Text3"_s), u" isn't it"_s);
        Click(control(form, u"cmdFirst"_s));
        QCOMPARE(title(fixture, id), u"Captain's Log's"_s);
        QCOMPARE(fixture.catalogue().scalar(u"select BookNotes from tblBook where BookID = "_s + id).toString(),
                 u"O'Brien's own copy isn't it"_s);

        // The lookup lists titles as they were when it was last read, and finds by number.
        PickFromList(control(form, u"dboBookLkup"_s), u"Captain's Log"_s);
        QCOMPARE(Shown(form, u"txtDescription"_s), u"Captain's Log's"_s);
        QCOMPARE(Shown(form, u"dboBookLkup"_s), QString());
        QCOMPARE(Shown(form, u"txtBookID"_s), id);
        fixture.responder().expect(Message(u"Delete Book"_s, u"Book Successfully removed"_s));
        Click(control(form, u"cmdDelete"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(fixture.rows(u"select * from tblBook where BookID = "_s + id), 0);
        QCOMPARE(fixture.rows(u"select * from tblBook"_s), 60);
    }

    void aBookNumberAbove32767Overflows()
    {
        BookFormFixture fixture(TestCatalogue::Content::Sample, [](const TestCatalogue &catalogue) {
            QSqlQuery(catalogue.db()).exec(u"update sqlite_sequence set seq = 40000 where name = 'tblBook'"_s);
        });
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        Click(control(form, u"cmdAdd"_s));
        fillMandatory(form, 6);
        fixture.responder().expect(ModalResponder::message(u"prjQuireshelf"_s,
                                                           u"Run-time error '6':\r\n\r\nOverflow"_s,
                                                           QMessageBox::Critical, {u"OK"_s}, u"OK"_s));
        Click(control(form, u"cmdConfirmAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        // The book was written before its number was read; the catalogue is whole.
        QCOMPARE(title(fixture, u"40001"_s), u"Zebra Crossings"_s);
        QCOMPARE(fixture.rows(u"select * from tblBook"_s), 61);
        QProcess check;
        check.start(qEnvironmentVariable("SHELVANE_TOOL"), {u"check"_s, fixture.catalogue().path()});
        QVERIFY(check.waitForFinished());
        QVERIFY2(check.exitCode() == 0, check.readAllStandardOutput().constData());
        QCOMPARE(fixture.catalogue().scalar(u"pragma integrity_check"_s).toString(), u"ok"_s);
    }
};

SHELVANE_TEST_MAIN(TestBookEdit)
#include "tst_bookedit.moc"
