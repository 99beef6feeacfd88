// The book form adding a book: the add prompt, add mode, Confirm and Cancel, prices in every
// locale, apostrophes, and a book number too large for the form.
#include "bookeditsteps.h"

#include "app/mainframe.h"
#include "forms/books/frmbookmaintenance.h"
#include "support/finders.h"
#include "support/moneylocales.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QCheckBox>
#include <QProcess>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString AddedText = u"New Book Sucessfully added, now allocate topic(s) and author(s)"_s;
const QColor Yellow(255, 255, 0);
const QColor White(255, 255, 255);

QColor base(const QWidget *form, const QString &name)
{
    return control(form, name)->palette().color(QPalette::Base);
}

} // namespace

class TestBookAdd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestEnvironment::clearSettings(); }
    void cleanup() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

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

SHELVANE_TEST_MAIN(TestBookAdd)
#include "tst_bookadd.moc"
