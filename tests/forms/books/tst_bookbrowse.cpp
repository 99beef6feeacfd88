// The book form browsing: moving between books, one book and none, the lookup combo, what
// moving on writes, and the filtered mode.
#include "bookformfixture.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/datacontrol.h"
#include "forms/books/frmbookmaintenance.h"
#include "support/finders.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QComboBox>
#include <QSqlQuery>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString LastTitle = u"Wuthering Heights"_s;

bool enabled(const QWidget *form, const QString &control)
{
    const QWidget *widget = FindControl(form, control);
    return widget && widget->isEnabled();
}

QString navigationState(const QWidget *form)
{
    QString state;
    for (const QString &button : {u"cmdFirst"_s, u"cmdPrevious"_s, u"cmdNext"_s, u"cmdLast"_s})
        state += enabled(form, button) ? u'1' : u'0';
    return state;
}

void keepOnly(const TestCatalogue &catalogue, const QString &condition)
{
    QSqlQuery(catalogue.db()).exec(u"delete from tblBook where not ("_s + condition + u")"_s);
}

// A catalogue whose tblBook has no row at all.
BookFormFixture::Preparation noBooks()
{
    return [](const TestCatalogue &catalogue) {
        QSqlQuery(catalogue.db()).exec(u"delete from tblBook"_s);
    };
}

} // namespace

class TestBookBrowse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestEnvironment::clearSettings(); }

    void movingFollowsThePosition()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QStringList titles = fixture.bookColumn(u"BookDescription"_s);
        QCOMPARE(navigationState(form), u"0011"_s);

        Click(FindControl(form, u"cmdNext"_s));
        QCOMPARE(Panel(form, 2), u"Book 2 of 60"_s);
        QCOMPARE(Shown(form, u"txtDescription"_s), titles.at(1));
        QCOMPARE(Shown(form, u"dboBookLkup"_s), titles.at(1));
        QCOMPARE(navigationState(form), u"1111"_s);

        Click(FindControl(form, u"cmdLast"_s));
        QCOMPARE(Panel(form, 2), u"Book 60 of 60"_s);
        QCOMPARE(Shown(form, u"txtDescription"_s), LastTitle);
        QCOMPARE(navigationState(form), u"1100"_s);

        Click(FindControl(form, u"cmdPrevious"_s));
        QCOMPARE(Panel(form, 2), u"Book 59 of 60"_s);
        QCOMPARE(Shown(form, u"txtDescription"_s), titles.at(58));

        Click(FindControl(form, u"cmdFirst"_s));
        QCOMPARE(Panel(form, 2), u"Book 1 of 60"_s);
        QCOMPARE(Shown(form, u"dboBookLkup"_s), FirstTitle);
        QCOMPARE(navigationState(form), u"0011"_s);
    }

    void oneBookDisablesAllFourMoves()
    {
        BookFormFixture fixture(TestCatalogue::Content::Sample, [](const TestCatalogue &catalogue) {
            keepOnly(catalogue, u"BookDescription = 'A Christmas Carol'"_s);
        });
        FrmBookMaintenance *form = fixture.showBooks();
        QCOMPARE(Panel(form, 2), u"Book 1 of 1"_s);
        QCOMPARE(navigationState(form), u"0000"_s);
        QVERIFY(enabled(form, u"cmdDelete"_s));
    }

    void noBooksStartsAddingABook()
    {
        BookFormFixture fixture(TestCatalogue::Content::Empty, noBooks());
        FrmBookMaintenance *form = fixture.showBooks(
            {ModalResponder::dialog(u"dlgAddPrompt"_s, u"Add New Book"_s, u"OKButton"_s)});
        QVERIFY(form);
        QCOMPARE(Panel(form, 2), u"Book 0 of 0"_s);
        QVERIFY(!enabled(form, u"cmdDelete"_s));
        QVERIFY(FindControl(form, u"cmdConfirmAdd"_s)->isVisible());
        QVERIFY(FindControl(form, u"cmdCancelAdd"_s)->isVisible());
        QVERIFY(!FindControl(form, u"dbgBookAuthor"_s)->isVisible());
        // The new row is there to be filled in: confirming it adds the first book.
        TypeInto(FindControl(form, u"txtDescription"_s), u"First Light"_s);
        TypeInto(FindControl(form, u"txtPrice"_s), u"3"_s);
        TypeInto(FindControl(form, u"txtPages"_s), u"120"_s);
        PickFromList(FindControl(form, u"cboCover"_s), u"Soft Back"_s);
        PickFromList(FindControl(form, u"cboCondition"_s), u"Fair"_s);
        PickFromList(FindControl(form, u"cboPublisher"_s), u"UnKnown"_s);
        fixture.responder().expect(Message(u"Add New Book"_s,
                                           u"New Book Sucessfully added, now allocate topic(s) and author(s)"_s));
        Click(FindControl(form, u"cmdConfirmAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(fixture.bookColumn(u"BookDescription"_s), QStringList{u"First Light"_s});
        QCOMPARE(Panel(form, 2), u"Book 1 of 1"_s);
    }

    void noBooksWithThePromptDeclinedStaysInAddMode()
    {
        BookFormFixture fixture(TestCatalogue::Content::Empty, noBooks());
        FrmBookMaintenance *form = fixture.showBooks(
            {ModalResponder::dialog(u"dlgAddPrompt"_s, u"Add New Book"_s, u"cmdCancel"_s)});
        QVERIFY(form);
        QCOMPARE(Panel(form, 2), u"Book 0 of 0"_s);
        QVERIFY(FindControl(form, u"cmdConfirmAdd"_s)->isVisible());
        QVERIFY(!enabled(form, u"cmdAdd"_s));
        QCOMPARE(fixture.rows(u"select * from tblBook"_s), 0);
        // A message box over the form is not a new activation: no second prompt follows it.
        fixture.responder().expect(ModalResponder::message(
            u"Print Label"_s, u"Please select a book before trying to print label"_s,
            QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        Click(FindControl(form, u"cmdPrintLabel"_s));
        QCOMPARE(fixture.responder().finish(), QString());
    }

    void lookupTakesNoTyping()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        auto *lookup = FindControl<QComboBox>(form, u"dboBookLkup"_s);
        lookup->setFocus();
        QTRY_VERIFY(lookup->hasFocus());
        QTest::keyClicks(lookup, u"Wuthering"_s);
        QTest::keyClick(lookup, Qt::Key_Down);
        QTest::keyClick(lookup, Qt::Key_End);
        QTest::keyClick(lookup, Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(lookup->currentText(), FirstTitle);
        QCOMPARE(Shown(form, u"txtDescription"_s), FirstTitle);
        QCOMPARE(Panel(form, 2), u"Book 1 of 60"_s);
        QTest::keyClick(lookup, Qt::Key_Tab);
        QVERIFY(!lookup->hasFocus());
        QCOMPARE(QApplication::focusWidget(), FindControl(form, u"txtDescription"_s));
    }

    void pickingFromTheLookupShowsThatBook()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        PickFromList(FindControl(form, u"dboBookLkup"_s), LastTitle);
        QCOMPARE(Shown(form, u"txtDescription"_s), LastTitle);
        QCOMPARE(Shown(form, u"txtBookID"_s), bookValue(fixture, u"BookID"_s, LastTitle).toString());
        QCOMPARE(Panel(form, 2), u"Book 60 of 60"_s);
        QCOMPARE(navigationState(form), u"1100"_s);
        auto *authors = FindControl<QTableView>(form, u"dbgBookAuthor"_s);
        QCOMPARE(authors->model()->rowCount(), 1);
        QCOMPARE(authors->model()->index(0, 2).data().toString(), u"Brontë"_s);
    }

    void topicRowChangeFillsEmptyNumbersWithZero()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QCOMPARE(Shown(form, u"txtMaps"_s), QString());
        QCOMPARE(Shown(form, u"txtPlans"_s), QString());
        QCOMPARE(Shown(form, u"txtWhenSold"_s), QString());
        // The topic grid's record set announces that one of its rows is about to change.
        auto *adoTopic = form->findChild<DataControl *>(u"adoTopic"_s);
        Q_EMIT adoTopic->willChangeRecord(Recordset::ChangeReason::FirstChange);
        QCOMPARE(Shown(form, u"txtMaps"_s), u"0"_s);
        QCOMPARE(Shown(form, u"txtPlans"_s), u"0"_s);
        QCOMPARE(Shown(form, u"txtWhenSold"_s), u"0"_s);
        QCOMPARE(Shown(form, u"txtPages"_s), u"166"_s);
        // Only the seven numeric boxes: the introduction and the prices are left alone.
        QCOMPARE(Shown(form, u"txtIntroduction"_s), QString());
    }

    void writingTheBookLeavesEmptyNumbersEmpty()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        TypeInto(FindControl(form, u"txtDescription"_s), u" (abridged)"_s);
        Click(FindControl(form, u"cmdNext"_s));
        const QString id = bookValue(fixture, u"BookID"_s, FirstTitle + u" (abridged)"_s).toString();
        QVERIFY(!id.isEmpty());
        QVERIFY(fixture.catalogue().scalar(u"select BookMaps from tblBook where BookID = "_s + id).isNull());
        Click(FindControl(form, u"cmdPrevious"_s));
        QCOMPARE(Shown(form, u"txtDescription"_s), FirstTitle + u" (abridged)"_s);
        QCOMPARE(Shown(form, u"txtMaps"_s), QString());
        QCOMPARE(Shown(form, u"txtPlans"_s), QString());
    }

    void anEditIsWrittenWhenMovingOn()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QString id = Shown(form, u"txtBookID"_s);
        ClearWithKeys(FindControl(form, u"txtPrice"_s));
        TypeInto(FindControl(form, u"txtPrice"_s), u"12.5"_s);
        ClearWithKeys(FindControl(form, u"txtWhenSold"_s));
        TypeInto(FindControl(form, u"txtWhenSold"_s), u"2020"_s);
        PickFromList(FindControl(form, u"cboCondition"_s), u"Poor"_s);
        Click(FindControl(form, u"chkBibliography"_s));
        QCOMPARE(fixture.catalogue().scalar(u"select BookPrice from tblBook where BookID = "_s + id).toDouble(), 8400.0);
        Click(FindControl(form, u"cmdNext"_s));
        const QString row = u"select BookPrice || '/' || BookWhenSold || '/' || BookCondition || '/' || "
                            "BookBibliography from tblBook where BookID = "_s + id;
        QCOMPARE(fixture.catalogue().scalar(row).toString(), u"12.5/2020/Poor/1"_s);
        Click(FindControl(form, u"cmdPrevious"_s));
        QCOMPARE(Shown(form, u"txtPrice"_s), u"£12.50"_s);
    }

    void browsingWritesNothing()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QSqlQuery(fixture.catalogue().db()).exec(u"create table tblWrites (BookID integer)"_s);
        QSqlQuery(fixture.catalogue().db()).exec(
            u"create trigger trgWrites after update on tblBook begin insert into tblWrites "
            "values (new.BookID); end"_s);
        for (int i = 0; i < 5; ++i)
            Click(FindControl(form, u"cmdNext"_s));
        Click(FindControl(form, u"cmdLast"_s));
        Click(FindControl(form, u"cmdFirst"_s));
        QCOMPARE(fixture.rows(u"select * from tblWrites"_s), 0);
    }

    void filteredModeShowsOnlyTheHits()
    {
        BookFormFixture fixture;
        QSqlQuery(fixture.catalogue().db()).exec(
            u"insert into tblCriteriaHits (BookID) select BookID from tblBook where BookDescription "
            "in ('Wuthering Heights', 'Bleak House', 'Anna Karenina')"_s);
        // What a search does: set the flag, then load the book form afresh.
        fixture.frame().forms().unload(fixture.form());
        fixture.frame().session().BookFilterPending = true;
        FrmBookMaintenance *form = fixture.showBooks();
        QVERIFY(form);
        QVERIFY(!fixture.frame().session().BookFilterPending);
        QCOMPARE(Panel(form, 1), u"Filtered"_s);
        QCOMPARE(Panel(form, 2), u"Book 1 of 3"_s);
        QVERIFY(!enabled(form, u"cmdAdd"_s));
        QCOMPARE(Shown(form, u"txtDescription"_s), u"Anna Karenina"_s);
        auto *lookup = FindControl<QComboBox>(form, u"dboBookLkup"_s);
        QCOMPARE(lookup->count(), 3);
        QCOMPARE(lookup->itemText(2), LastTitle);
        SaveScreenshot(form->parentWidget(), u"bookform-filtered"_s);

        // Editing there writes straight to the catalogue.
        Click(FindControl(form, u"cmdNext"_s));
        QCOMPARE(Shown(form, u"txtDescription"_s), u"Bleak House"_s);
        TypeInto(FindControl(form, u"Text3"_s), u" Signed."_s);
        Click(FindControl(form, u"cmdLast"_s));
        QVERIFY(bookValue(fixture, u"BookNotes"_s, u"Bleak House"_s).toString().endsWith(u" Signed."_s));
        QCOMPARE(Panel(form, 2), u"Book 3 of 3"_s);
        QVERIFY(!enabled(form, u"cmdAdd"_s));
    }
};

SHELVANE_TEST_MAIN(TestBookBrowse)
#include "tst_bookbrowse.moc"
