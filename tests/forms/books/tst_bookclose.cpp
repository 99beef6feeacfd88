// The book form closing with an edit pending: Confirm Exit and each of its answers, and the
// edits that are no edit.
#include "bookeditsteps.h"

#include "app/mainframe.h"
#include "forms/books/frmbookmaintenance.h"
#include "support/testmain.h"

#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

class TestBookClose : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestEnvironment::clearSettings(); }
    void cleanup() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

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
};

SHELVANE_TEST_MAIN(TestBookClose)
#include "tst_bookclose.moc"
