// A book's authors and topics on the book form: the grids, the two pickers, and removing a
// link by button or by the Delete key. Each test runs for both sides.

#include "bookformfixture.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/books/frmbookmaintenance.h"
#include "support/finders.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// What differs between linking authors and linking topics, as the user sees it.
struct Side
{
    QString dialog;
    QString caption;
    QString combo;
    QString comboTip;
    QString addButton;
    QString deleteButton;
    QString grid;
    QString linkTable;
    QString keyColumn;
    QString lookupTable;
    QString lookupText; // the expression the lookup shows for a row of lookupTable
    QString duplicateText;
    QString nothingPickedText;
    QString deleteTitle;
    QString oneAtATimeText;
    QString noneSelectedText;
    QString question;
    QString linkedPick;   // already linked to the first book
    QString unlinkedPick; // not linked to the first book
    QString twoLinkBook;  // a book with two links on this side
};

const Side &sideNamed(const QString &name)
{
    static const Side author{
        u"dlgGetAuthor"_s, u"Author Selection"_s, u"dboAuthorLkup"_s,
        u"Display Authors by clicking the down arrow."_s, u"cmdAddAuthor"_s, u"cmdDeleteAuthor"_s,
        u"dbgBookAuthor"_s, u"tblBookAuthor"_s, u"AuthorID"_s, u"tblAuthor"_s,
        u"AuthorSurname || ' ,  ' || AuthorFirstName"_s,
        u"This author is already linked to this book, try again."_s,
        u"Please pick an author from the list, or cancel to exit"_s, u"Delete Author"_s,
        u"Please remove authors one at a time"_s, u"No author selected for deletion"_s,
        u"Are you sure you wish to disassociate the book from this author?"_s,
        u"Dickens ,  Charles"_s, u"Austen ,  Jane"_s, u"Harbours of the North Sea"_s};
    static const Side topic{
        u"dlgGetTopic"_s, u"Topic Selection"_s, u"dboTopicLkup"_s,
        u"Display topics by clicking the down arrow."_s, u"cmdAddTopic"_s, u"cmdDeleteTopic"_s,
        u"dbgBookTopic"_s, u"tblBookTopic"_s, u"TopicID"_s, u"tblTopic"_s, u"TopicDescription"_s,
        u"This topic is already linked to this book, try again."_s,
        u"Please pick a topic from the list, or cancel to exit"_s, u"Delete Topic"_s,
        u"Please remove topics one at a time"_s, u"No topic selected for deletion"_s,
        u"Are you sure you wish to disassociate the book from this topic?"_s,
        u"Fiction"_s, u"Architecture"_s, u"Pride and Prejudice"_s};
    return name == u"author" ? author : topic;
}

void addSides()
{
    QTest::addColumn<QString>("side");
    QTest::newRow("author") << u"author"_s;
    QTest::newRow("topic") << u"topic"_s;
}

QWidget *control(const QWidget *form, const QString &name)
{
    return FindControl(form, name);
}

QTableView *gridOf(const QWidget *form, const Side &side)
{
    return FindControl<QTableView>(form, side.grid);
}

QString keyOf(const BookFormFixture &fixture, const Side &side, const QString &shownText)
{
    QSqlQuery query(fixture.catalogue().db());
    query.prepare(u"select "_s + side.keyColumn + u" from "_s + side.lookupTable + u" where "_s
                  + side.lookupText + u" = ?"_s);
    query.addBindValue(shownText);
    query.exec();
    return query.next() ? query.value(0).toString() : QString();
}

int links(const BookFormFixture &fixture, const Side &side, const QString &bookId,
          const QString &key = {})
{
    QString sql = u"select * from "_s + side.linkTable + u" where BookID = "_s + bookId;
    if (!key.isEmpty())
        sql += u" and "_s + side.keyColumn + u" = "_s + key;
    return fixture.rows(sql);
}

QWidget *openPicker(const QWidget *form, const Side &side)
{
    Click(control(form, side.addButton));
    QWidget *picker = nullptr;
    if (!QTest::qWaitFor([&] { return (picker = FindForm(side.dialog)) && picker->isVisible(); }))
        qWarning("%s did not appear", qPrintable(side.dialog));
    return picker;
}

// Clicks the record selector at the far left of a grid's row.
void selectRow(QTableView *grid, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QHeaderView *selectors = grid->verticalHeader();
    const QPoint at(selectors->width() / 2,
                    selectors->sectionViewportPosition(row) + selectors->sectionSize(row) / 2);
    QTest::mouseClick(selectors->viewport(), Qt::LeftButton, modifiers, at);
}

ModalExpectation question(const Side &side, const QString &press)
{
    return Question(u"Confirm Delete"_s, side.question, {u"Yes"_s, u"No"_s}, press);
}

} // namespace

class TestBookLinks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestEnvironment::clearSettings(); }

    void gridsShowTheBooksLinks()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        auto headers = [](const QTableView *grid) {
            QStringList captions;
            for (int c = 0; c < grid->model()->columnCount(); ++c)
                captions << grid->model()->headerData(c, Qt::Horizontal).toString();
            return captions;
        };
        QTableView *authors = gridOf(form, sideNamed(u"author"_s));
        QTableView *topics = gridOf(form, sideNamed(u"topic"_s));
        QAbstractItemModelTester authorRows(authors->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        QAbstractItemModelTester topicRows(topics->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        QCOMPARE(headers(authors), QStringList({u"authorid"_s, u"First Name"_s, u"Surname"_s}));
        QCOMPARE(headers(topics), QStringList({u"topicid"_s, u"BookId"_s, u"Description "_s, u"Notes"_s}));
        QCOMPARE(FindControl<QLabel>(form, u"lblAuthorGridCaption"_s)->text(), u"Author/s"_s);
        QCOMPARE(FindControl<QLabel>(form, u"lblTopicGridCaption"_s)->text(), u"Topic Classication"_s);
        QCOMPARE(authors->toolTip(), u"To select an author for deletion click the far left column"_s);
        QCOMPARE(topics->toolTip(), u"To select a topic for deletion click the far left column"_s);
        QCOMPARE(authors->model()->rowCount(), 1);
        QCOMPARE(authors->model()->index(0, 2).data().toString(), u"Dickens"_s);
        QCOMPARE(topics->model()->rowCount(), 2);
        QCOMPARE(topics->model()->index(0, 1).data().toString(), Shown(form, u"txtBookID"_s));

        const QList<std::array<QString, 3>> buttons{
            {u"cmdAddAuthor"_s, u"Add A&uthor"_s, u"Click in order to add an author to this book"_s},
            {u"cmdDeleteAuthor"_s, u"Delete Aut&hor"_s, u"Click to remove selected author from this book"_s},
            {u"cmdAddTopic"_s, u"&Add Topic"_s, u"Click here to select a topic to allocate this book to"_s},
            {u"cmdDeleteTopic"_s, u"Delete &Topic"_s, u"Click here to remove the book from the selected topic"_s},
        };
        for (const auto &[name, caption, tip] : buttons) {
            auto *button = FindControl<QPushButton>(form, name);
            QCOMPARE(button->text(), caption);
            QCOMPARE(button->toolTip(), tip);
        }

        // The grids follow the book.
        PickFromList(control(form, u"dboBookLkup"_s), u"Harbours of the North Sea"_s);
        QCOMPARE(authors->model()->rowCount(), 2);
        QCOMPARE(topics->model()->index(0, 1).data().toString(), Shown(form, u"txtBookID"_s));
    }

    void addingALink_data() { addSides(); }

    void addingALink()
    {
        QFETCH(QString, side);
        const Side &s = sideNamed(side);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QString id = Shown(form, u"txtBookID"_s);
        const int before = gridOf(form, s)->model()->rowCount();
        QWidget *picker = openPicker(form, s);
        QCOMPARE(picker->windowTitle(), s.caption);
        QVERIFY(!picker->isModal());
        QCOMPARE(control(picker, s.combo)->toolTip(), s.comboTip);
        QCOMPARE(Shown(picker, s.combo), QString());
        PickFromList(control(picker, s.combo), s.unlinkedPick);
        SaveScreenshot(picker, u"picker-"_s + side);
        Click(control(picker, u"OKButton"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_VERIFY(!FindForm(s.dialog));
        QCOMPARE(links(fixture, s, id, keyOf(fixture, s, s.unlinkedPick)), 1);
        QCOMPARE(gridOf(form, s)->model()->rowCount(), before + 1);
    }

    void addingTheSameLinkTwice_data() { addSides(); }

    void addingTheSameLinkTwice()
    {
        QFETCH(QString, side);
        const Side &s = sideNamed(side);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QString id = Shown(form, u"txtBookID"_s);
        const QString key = keyOf(fixture, s, s.linkedPick);
        QCOMPARE(links(fixture, s, id, key), 1);
        QWidget *picker = openPicker(form, s);
        PickFromList(control(picker, s.combo), s.linkedPick);
        fixture.responder().expect(Message(s.caption, s.duplicateText));
        Click(control(picker, u"OKButton"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(links(fixture, s, id, key), 1);
        QVERIFY(FindForm(s.dialog) && FindForm(s.dialog)->isVisible());
        QTRY_COMPARE(picker->focusWidget(), control(picker, s.combo));

        Click(control(picker, u"CancelButton"_s));
        QTRY_VERIFY(!FindForm(s.dialog));
        QCOMPARE(links(fixture, s, id), gridOf(form, s)->model()->rowCount());
    }

    void okWithNothingPicked_data() { addSides(); }

    void okWithNothingPicked()
    {
        QFETCH(QString, side);
        const Side &s = sideNamed(side);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const int before = fixture.rows(u"select * from "_s + s.linkTable);
        QWidget *picker = openPicker(form, s);
        fixture.responder().expect(Message(s.caption, s.nothingPickedText));
        Click(control(picker, u"OKButton"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QVERIFY(FindForm(s.dialog));
        Click(control(picker, u"CancelButton"_s));
        QTRY_VERIFY(!FindForm(s.dialog));
        QCOMPARE(fixture.rows(u"select * from "_s + s.linkTable), before);
    }

    void thePickerTakesNoTyping_data() { addSides(); }

    void thePickerTakesNoTyping()
    {
        QFETCH(QString, side);
        const Side &s = sideNamed(side);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QWidget *picker = openPicker(form, s);
        QWidget *combo = control(picker, s.combo);
        QTest::keyClicks(combo, u"A"_s);
        QTest::keyClick(combo, Qt::Key_Down);
        QCOMPARE(Shown(picker, s.combo), QString());
        Click(control(picker, u"CancelButton"_s));
    }

    void theLinkIsMadeForTheBookShownAtOk_data() { addSides(); }

    void theLinkIsMadeForTheBookShownAtOk()
    {
        QFETCH(QString, side);
        const Side &s = sideNamed(side);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QString first = Shown(form, u"txtBookID"_s);
        QWidget *picker = openPicker(form, s);
        Click(control(form, u"cmdNext"_s));
        const QString second = Shown(form, u"txtBookID"_s);
        QVERIFY(first != second);
        const QString key = keyOf(fixture, s, s.unlinkedPick);
        const int before = links(fixture, s, second, key);
        PickFromList(control(picker, s.combo), s.unlinkedPick);
        Click(control(picker, u"OKButton"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(links(fixture, s, second, key), before + 1);
        QCOMPARE(links(fixture, s, first, key), 0);
    }

    void twoSelectedRowsAreRemovedOneAtATime_data() { addSides(); }

    void twoSelectedRowsAreRemovedOneAtATime()
    {
        QFETCH(QString, side);
        const Side &s = sideNamed(side);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        PickFromList(control(form, u"dboBookLkup"_s), s.twoLinkBook);
        const QString id = Shown(form, u"txtBookID"_s);
        QTableView *grid = gridOf(form, s);
        QCOMPARE(grid->model()->rowCount(), 2);
        selectRow(grid, 0);
        selectRow(grid, 1, Qt::ControlModifier);
        QCOMPARE(grid->selectionModel()->selectedRows().size(), 2);
        fixture.responder().expect(Message(s.deleteTitle, s.oneAtATimeText));
        Click(control(form, s.deleteButton));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(links(fixture, s, id), 2);
    }

    void noSelectedRowIsRefused_data() { addSides(); }

    void noSelectedRowIsRefused()
    {
        QFETCH(QString, side);
        const Side &s = sideNamed(side);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QString id = Shown(form, u"txtBookID"_s);
        const int before = links(fixture, s, id);
        // Clicking a cell makes its row current, but selects nothing.
        QTableView *grid = gridOf(form, s);
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                          grid->visualRect(grid->model()->index(0, 1)).center());
        fixture.responder().expect(Message(s.deleteTitle, s.noneSelectedText));
        Click(control(form, s.deleteButton));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(links(fixture, s, id), before);
    }

    void theSelectedRowIsRemovedAfterYes_data() { addSides(); }

    void theSelectedRowIsRemovedAfterYes()
    {
        QFETCH(QString, side);
        const Side &s = sideNamed(side);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        PickFromList(control(form, u"dboBookLkup"_s), s.twoLinkBook);
        const QString id = Shown(form, u"txtBookID"_s);
        QTableView *grid = gridOf(form, s);
        const QString second = grid->model()->index(1, 0).data().toString();
        selectRow(grid, 1);
        fixture.responder().expect(question(s, u"No"_s));
        Click(control(form, s.deleteButton));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(links(fixture, s, id), 2);

        fixture.responder().expect(question(s, u"Yes"_s));
        Click(control(form, s.deleteButton));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(links(fixture, s, id), 1);
        QCOMPARE(links(fixture, s, id, second), 0);
        QCOMPARE(grid->model()->rowCount(), 1);
        QTRY_COMPARE(form->window()->focusWidget(), control(form, s.addButton));
        QVERIFY(control(form, s.deleteButton)->isVisible());
    }

    void theDeleteKeyRemovesTheCurrentRow_data() { addSides(); }

    void theDeleteKeyRemovesTheCurrentRow()
    {
        QFETCH(QString, side);
        const Side &s = sideNamed(side);
        BookFormFixture fixture;
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        PickFromList(control(form, u"dboBookLkup"_s), s.twoLinkBook);
        const QString id = Shown(form, u"txtBookID"_s);
        QTableView *grid = gridOf(form, s);
        const QString first = grid->model()->index(0, 0).data().toString();
        grid->setFocus();
        QCOMPARE(grid->selectionModel()->selectedRows().size(), 0);
        fixture.responder().expect(question(s, u"Yes"_s));
        QTest::keyClick(grid, Qt::Key_Delete);
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(links(fixture, s, id), 1);
        QCOMPARE(links(fixture, s, id, first), 0);
        // The button hides, as designed, until the form next leaves add mode.
        QVERIFY(!control(form, s.deleteButton)->isVisible());
        Click(control(form, u"cmdNext"_s));
        QVERIFY(!control(form, s.deleteButton)->isVisible());
        Click(control(form, u"cmdAdd"_s));
        Click(control(form, u"cmdCancelAdd"_s));
        QVERIFY(control(form, s.deleteButton)->isVisible());
    }

    void theDeleteKeyAnsweredNoKeepsTheLink_data() { addSides(); }

    void theDeleteKeyAnsweredNoKeepsTheLink()
    {
        QFETCH(QString, side);
        const Side &s = sideNamed(side);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QString id = Shown(form, u"txtBookID"_s);
        const int before = links(fixture, s, id);
        QTableView *grid = gridOf(form, s);
        fixture.responder().expect(question(s, u"No"_s));
        QTest::keyClick(grid, Qt::Key_Delete);
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(links(fixture, s, id), before);
        QVERIFY(control(form, s.deleteButton)->isVisible());
    }

    void afterANewBookTheGridsAreEmptyAndShown()
    {
        BookFormFixture fixture;
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        Click(control(form, u"cmdAdd"_s));
        TypeInto(control(form, u"txtDescription"_s), u"Unlinked"_s);
        TypeInto(control(form, u"txtPrice"_s), u"1"_s);
        TypeInto(control(form, u"txtPages"_s), u"10"_s);
        PickFromList(control(form, u"cboCover"_s), u"Boxed"_s);
        PickFromList(control(form, u"cboCondition"_s), u"Good"_s);
        PickFromList(control(form, u"cboPublisher"_s), u"UnKnown"_s);
        fixture.responder().expect(Message(u"Add New Book"_s,
                                           u"New Book Sucessfully added, now allocate topic(s) and author(s)"_s));
        Click(control(form, u"cmdConfirmAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        for (const QString &side : {u"author"_s, u"topic"_s}) {
            const Side &s = sideNamed(side);
            QVERIFY(gridOf(form, s)->isVisible());
            QCOMPARE(gridOf(form, s)->model()->rowCount(), 0);
            QVERIFY(control(form, s.addButton)->isVisible());
            QVERIFY(control(form, s.deleteButton)->isVisible());
        }
        // The new book can be linked at once.
        const Side &author = sideNamed(u"author"_s);
        QWidget *picker = openPicker(form, author);
        PickFromList(control(picker, author.combo), author.unlinkedPick);
        Click(control(picker, u"OKButton"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(gridOf(form, author)->model()->rowCount(), 1);
        QCOMPARE(links(fixture, author, Shown(form, u"txtBookID"_s)), 1);
    }
};

SHELVANE_TEST_MAIN(TestBookLinks)
#include "tst_booklinks.moc"
