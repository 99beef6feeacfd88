// The book form deleting books: the prompt, the last-book warning, and where the form goes.

#include "bookformfixture.h"

#include "forms/books/frmbookmaintenance.h"
#include "support/finders.h"
#include "support/testmain.h"

#include <QComboBox>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString RemovedTitle = u"Delete Book"_s;
const QString RemovedText = u"Book Successfully removed"_s;
const QString LastBookText = u"You are about to delete the last book!\r\n"
                             "some forms may not function correctly as a result\r\n"
                             "\r\n"
                             "You can correct these by adding at least one book"_s;

QWidget *control(const QWidget *form, const QString &name)
{
    return FindControl(form, name);
}

void keepOnly(const TestCatalogue &catalogue, const QString &title)
{
    QSqlQuery query(catalogue.db());
    query.prepare(u"delete from tblBook where BookDescription <> ?"_s);
    query.addBindValue(title);
    query.exec();
}

ModalExpectation deletePrompt(const QString &press)
{
    return ModalResponder::dialog(u"dlgDelPrompt"_s, u"Delete Book"_s, press);
}

} // namespace

class TestBookDelete : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestEnvironment::clearSettings(); }

    void deletingTheLastRemainingBook()
    {
        BookFormFixture fixture(TestCatalogue::Content::Sample, [](const TestCatalogue &catalogue) {
            keepOnly(catalogue, u"A Christmas Carol"_s);
        });
        FrmBookMaintenance *form = fixture.showBooks();
        const QString id = Shown(form, u"txtBookID"_s);
        QVERIFY(fixture.rows(u"select * from tblBookAuthor where BookID = "_s + id) > 0);
        fixture.responder().expect(deletePrompt(u"OKButton"_s));
        fixture.responder().expect(ModalResponder::message(u"Delete last book"_s, LastBookText,
                                                           QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        fixture.responder().expect(Message(RemovedTitle, RemovedText));
        // With nothing left to show, the form goes on to add a book, prompt and all.
        fixture.responder().expect(ModalResponder::dialog(u"dlgAddPrompt"_s, u"Add New Book"_s, u"OKButton"_s));
        Click(control(form, u"cmdDelete"_s));
        QCOMPARE(fixture.responder().finish(), QString());

        QCOMPARE(fixture.rows(u"select * from tblBook"_s), 0);
        QCOMPARE(fixture.rows(u"select * from tblBookAuthor where BookID = "_s + id), 0);
        QCOMPARE(fixture.rows(u"select * from tblBookTopic where BookID = "_s + id), 0);
        QVERIFY(!control(form, u"cmdDelete"_s)->isEnabled());
        QVERIFY(control(form, u"cmdConfirmAdd"_s)->isVisible());
        QCOMPARE(Panel(form, 2), u"Book 0 of 0"_s);
        QCOMPARE(Shown(form, u"txtDescription"_s), QString());
    }

    void deletingMovesToTheNextBookOrElseThePrevious_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("shownAfter");
        QTest::newRow("first book: the next one") << 1 << 1;
        QTest::newRow("a middle book: the next one") << 30 << 30;
        QTest::newRow("last book in title order: the one before") << 60 << 59;
    }

    void deletingMovesToTheNextBookOrElseThePrevious()
    {
        QFETCH(int, position);
        QFETCH(int, shownAfter);
        BookFormFixture fixture;
        SetBookPrompt(u"DeletePrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        const QStringList titles = fixture.bookColumn(u"BookDescription"_s);
        if (position == titles.size())
            Click(control(form, u"cmdLast"_s));
        for (int i = 1; i < position && position < titles.size(); ++i)
            Click(control(form, u"cmdNext"_s));
        QCOMPARE(Shown(form, u"txtDescription"_s), titles.at(position - 1));

        fixture.responder().expect(Message(RemovedTitle, RemovedText));
        Click(control(form, u"cmdDelete"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QStringList left = titles;
        left.removeAt(position - 1);
        QCOMPARE(fixture.bookColumn(u"BookDescription"_s), left);
        QCOMPARE(Shown(form, u"txtDescription"_s), left.at(shownAfter - 1));
        QCOMPARE(Panel(form, 2), u"Book "_s + QString::number(shownAfter) + u" of 59"_s);
        QCOMPARE(Shown(form, u"dboBookLkup"_s), left.at(shownAfter - 1));
        // The lookup no longer lists the deleted book.
        auto *lookup = FindControl<QComboBox>(form, u"dboBookLkup"_s);
        QCOMPARE(lookup->count(), 59);
        QCOMPARE(lookup->findText(titles.at(position - 1)), -1);
    }

    void withThePromptOffTheBookGoesWithoutAQuestion()
    {
        BookFormFixture fixture;
        SetBookPrompt(u"DeletePrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        fixture.responder().expect(Message(RemovedTitle, RemovedText));
        Click(control(form, u"cmdDelete"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(fixture.rows(u"select * from tblBook"_s), 59);
    }

    void theLastBookWarningStaysWithThePromptOff()
    {
        BookFormFixture fixture(TestCatalogue::Content::Sample, [](const TestCatalogue &catalogue) {
            keepOnly(catalogue, u"Bleak House"_s);
        });
        SetBookPrompt(u"DeletePrompt"_s, u"N"_s);
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        fixture.responder().expect(ModalResponder::message(u"Delete last book"_s, LastBookText,
                                                           QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        fixture.responder().expect(Message(RemovedTitle, RemovedText));
        Click(control(form, u"cmdDelete"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(fixture.rows(u"select * from tblBook"_s), 0);
    }

    void cancellingThePromptKeepsTheBook()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        fixture.responder().expect(deletePrompt(u"cmdCancel"_s));
        Click(control(form, u"cmdDelete"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(fixture.rows(u"select * from tblBook"_s), 60);
        QCOMPARE(Panel(form, 2), u"Book 1 of 60"_s);
    }

    void deletingABookBeingEditedWritesTheEditFirst()
    {
        BookFormFixture fixture(TestCatalogue::Content::Sample, [](const TestCatalogue &catalogue) {
            QSqlQuery(catalogue.db()).exec(u"create table tblTrail (BookID integer, Title text)"_s);
            QSqlQuery(catalogue.db()).exec(
                u"create trigger trgTrailUpdate after update on tblBook begin insert into tblTrail "
                "values (new.BookID, 'updated: ' || new.BookDescription); end"_s);
            QSqlQuery(catalogue.db()).exec(
                u"create trigger trgTrailDelete after delete on tblBook begin insert into tblTrail "
                "values (old.BookID, 'deleted: ' || old.BookDescription); end"_s);
        });
        SetBookPrompt(u"DeletePrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        const QString id = Shown(form, u"txtBookID"_s);
        TypeInto(control(form, u"txtDescription"_s), u", revised"_s);
        fixture.responder().expect(Message(RemovedTitle, RemovedText));
        Click(control(form, u"cmdDelete"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QSqlQuery trail(fixture.catalogue().db());
        QVERIFY(trail.exec(u"select BookID, Title from tblTrail order by rowid"_s));
        QStringList steps;
        while (trail.next())
            steps << trail.value(0).toString() + u" "_s + trail.value(1).toString();
        QCOMPARE(steps, QStringList({id + u" updated: A Christmas Carol, revised"_s,
                                     id + u" deleted: A Christmas Carol, revised"_s}));
    }
};

SHELVANE_TEST_MAIN(TestBookDelete)
#include "tst_bookdelete.moc"
