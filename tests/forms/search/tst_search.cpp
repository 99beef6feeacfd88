// The search form: its controls, locking and resetting the criteria, the key filters, the
// results prompt, the hand-over to the book form, and what a bad criterion does.

#include "searchformfixture.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/datacontrol.h"
#include "forms/books/frmbookmaintenance.h"
#include "forms/search/frmsearch.h"
#include "support/finders.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QSqlQuery>
#include <QTest>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

namespace {

const QString EveryBook = u"Select distinct tblBook.BookID from tblBook "_s;
const QString DickensBooks = u"select BookID from tblBookAuthor where AuthorID = (select AuthorID "
                             "from tblAuthor where AuthorSurname = 'Dickens')"_s;

// Each criterion's box and the inputs it unlocks.
const QList<std::pair<QString, QStringList>> &criteria()
{
    static const QList<std::pair<QString, QStringList>> boxes{
        {u"chkTitle"_s, {u"txtTitle"_s}},
        {u"chkAuthor"_s, {u"dboAuthorLkup"_s, u"txtAuthor"_s}},
        {u"chkTopic"_s, {u"dboTopicLkup"_s, u"txtTopic"_s}},
        {u"chkPublisher"_s, {u"dboPublisherLkup"_s, u"txtPublisher"_s}},
        {u"chkPrice"_s, {u"txtPriceFrom"_s, u"txtPriceTo"_s}},
        {u"chkDate"_s, {u"txtDateFrom"_s, u"txtDateTo"_s}},
    };
    return boxes;
}

bool locked(const QWidget *form, const QString &input)
{
    const QWidget *widget = FindControl(form, input);
    return widget && !widget->isEnabled();
}

QString toolTip(const QWidget *form, const QString &control)
{
    const QWidget *widget = FindControl(form, control);
    return widget ? widget->toolTip() : u"(no control "_s + control + u")"_s;
}

QString caption(const QWidget *form, const QString &control)
{
    QWidget *widget = FindControl(form, control);
    if (auto *button = qobject_cast<QAbstractButton *>(widget))
        return button->text();
    if (auto *label = qobject_cast<QLabel *>(widget))
        return label->text();
    return u"(no control "_s + control + u")"_s;
}

} // namespace

class TestSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestEnvironment::clearSettings(); }

    void formShowsItsCriteriaAndButtons()
    {
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        QVERIFY(form);
        QVERIFY(form->isVisible());
        QCOMPARE(form->windowTitle(), u"Book Search"_s);
        QCOMPARE(FindControl<QGroupBox>(form, u"fraCriteria"_s)->title(), u"Search Criteria:"_s);
        const QList<std::array<QString, 3>> boxes{
            {u"chkTitle"_s, u"By Book Title"_s, u"Check this box to enable searching by title"_s},
            {u"chkAuthor"_s, u"By Author"_s, u"Check this box to enable searching by author"_s},
            {u"chkTopic"_s, u"By Topic"_s, u"Check this box to enable searching by topic"_s},
            {u"chkPublisher"_s, u"By Publisher"_s,
             u"Check this box to enable searching by publisher"_s},
            {u"chkPrice"_s, u"By Price"_s, u"Check this box to enable searching by price"_s},
            {u"chkDate"_s, u"Publication Date"_s,
             u"Check this box to enable searching by date of publication"_s},
        };
        for (const auto &[name, text, tip] : boxes) {
            QCOMPARE(caption(form, name), text);
            QCOMPARE(toolTip(form, name), tip);
        }
        const QList<std::pair<QString, QString>> inputs{
            {u"txtTitle"_s, u"Enter part of book title followed by an *"_s},
            {u"dboAuthorLkup"_s, u"Select an author from the list or --->"_s},
            {u"txtAuthor"_s, u"Enter surname or part of followed by an *"_s},
            {u"dboTopicLkup"_s, u"Select a topic from the list or --->"_s},
            {u"txtTopic"_s, u"Enter topic description or part of followed by an *"_s},
            {u"dboPublisherLkup"_s, u"Select a publisher from the list or --->"_s},
            {u"txtPublisher"_s, u"Enter publisaher name or part of followed by an *"_s},
            {u"txtPriceFrom"_s, u"ENter price range low limit"_s},
            {u"txtPriceTo"_s, u"Enter price range upper limit"_s},
            {u"txtDateFrom"_s, u"Enter publication range start date - in YYYY format eg 1940"_s},
            {u"txtDateTo"_s, u"Enter publication range end date - in YYYY format eg 1945"_s},
        };
        for (const auto &[name, tip] : inputs)
            QCOMPARE(toolTip(form, name), tip);
        QCOMPARE(caption(form, u"lblAuthor"_s), u"Surname:"_s);
        QCOMPARE(caption(form, u"lblTopic"_s), u"Description:"_s);
        QCOMPARE(caption(form, u"lblPublisher"_s), u"Name:"_s);
        QCOMPARE(caption(form, u"lblPriceFrom"_s), u"From"_s);
        QCOMPARE(caption(form, u"lblDateFrom"_s), u"From"_s);
        QCOMPARE(caption(form, u"cmdSearch"_s), u"&Search"_s);
        QCOMPARE(caption(form, u"cmdReset"_s), u"&Reset"_s);
        QCOMPARE(caption(form, u"cmdExit"_s), u"E&xit"_s);
        QCOMPARE(caption(form, u"cmdHelp"_s), u"Help"_s);
        // Search never takes its menu entry away.
        QVERIFY(fixture.frame().action(u"mnuSearch"_s)->isEnabled());
        // At its default size the form fits the frame at the frame's default size.
        const QRect area = fixture.frame().mdiArea()->viewport()->rect();
        QVERIFY(area.contains(form->parentWidget()->geometry()));
    }

    void lookupsBoundToTheCatalogueInOrder()
    {
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        QStringList controls;
        for (const DataControl *control : form->findChildren<DataControl *>(Qt::FindDirectChildrenOnly)) {
            controls << control->objectName() + u": "_s + control->recordSource();
            QCOMPARE(control->connectionString(),
                     u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + fixture.catalogue().path()
                         + u";Persist Security Info=False"_s);
            QVERIFY(control->recordset());
        }
        QCOMPARE(controls,
                 QStringList({u"adoAuthorLkup: select * from tblauthor order by authorsurname"_s,
                              u"adoPublisherLkup: select * from tblpublisher order by publishername"_s,
                              u"adoTopicLkup: select * from tbltopic order by topicdescription"_s}));
        const QList<std::pair<QString, QString>> lookups{
            {u"dboAuthorLkup"_s, u"select AuthorSurname from tblAuthor order by AuthorSurname"_s},
            {u"dboTopicLkup"_s,
             u"select TopicDescription from tblTopic order by TopicDescription"_s},
            {u"dboPublisherLkup"_s,
             u"select PublisherName from tblPublisher order by PublisherName"_s},
        };
        for (const auto &[name, query] : lookups) {
            auto *lookup = FindControl<QComboBox>(form, name);
            QVERIFY(lookup);
            QAbstractItemModelTester tester(lookup->model(),
                                            QAbstractItemModelTester::FailureReportingMode::QtTest);
            QCOMPARE(lookup->count(), fixture.rows(query));
            QCOMPARE(lookup->itemText(0), fixture.catalogue().scalar(query).toString());
            QCOMPARE(lookup->currentText(), QString());
        }
    }

    void screenshotWithCriteriaTicked()
    {
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        fixture.apply({u"tick chkTitle"_s, u"type txtTitle war*"_s, u"tick chkAuthor"_s,
                       u"pick dboAuthorLkup Tolstoy"_s, u"tick chkPrice"_s,
                       u"type txtPriceFrom 10"_s, u"type txtPriceTo 200"_s, u"tick chkDate"_s,
                       u"type txtDateFrom 1850"_s, u"type txtDateTo 1950"_s});
        QVERIFY(!SaveScreenshot(form->parentWidget(), u"search-criteria-ticked"_s).isEmpty());
        SaveScreenshot(&fixture.frame(), u"search-in-frame"_s);
    }

    void inputsLockedUntilTheirBoxIsTicked()
    {
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        for (const auto &[box, inputs] : criteria()) {
            for (const QString &input : inputs)
                QVERIFY2(locked(form, input), qPrintable(input));
            fixture.click(box);
            for (const QString &input : inputs)
                QVERIFY2(!locked(form, input), qPrintable(input));
        }
        // A locked box takes no typing.
        fixture.click(u"chkTitle"_s);
        fixture.type(u"txtTitle"_s, u"Emma"_s);
        QCOMPARE(Shown(form, u"txtTitle"_s), QString());
    }

    void clearingABoxEmptiesAndLocksItsInputs()
    {
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        fixture.apply({u"tick chkAuthor"_s, u"pick dboAuthorLkup Dickens"_s,
                       u"type txtAuthor Dick*"_s, u"tick chkPrice"_s, u"type txtPriceFrom 5"_s,
                       u"type txtPriceTo 9"_s});
        QCOMPARE(Shown(form, u"dboAuthorLkup"_s), u"Dickens"_s);

        fixture.click(u"chkAuthor"_s);
        QCOMPARE(Shown(form, u"dboAuthorLkup"_s), QString());
        QCOMPARE(Shown(form, u"txtAuthor"_s), QString());
        QVERIFY(locked(form, u"dboAuthorLkup"_s));
        QVERIFY(locked(form, u"txtAuthor"_s));
        // The other criterion keeps its values.
        QCOMPARE(Shown(form, u"txtPriceFrom"_s), u"5"_s);
        QCOMPARE(Shown(form, u"txtPriceTo"_s), u"9"_s);
    }

    void resetClearsEveryCriterion()
    {
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        fixture.apply({u"tick chkTitle"_s, u"type txtTitle war*"_s, u"tick chkTopic"_s,
                       u"pick dboTopicLkup Fiction"_s, u"tick chkDate"_s,
                       u"type txtDateFrom 1900"_s});
        Click(FindControl(form, u"cmdReset"_s));
        for (const auto &[box, inputs] : criteria()) {
            QVERIFY2(!FindControl<QCheckBox>(form, box)->isChecked(), qPrintable(box));
            for (const QString &input : inputs) {
                QCOMPARE(Shown(form, input), QString());
                QVERIFY2(locked(form, input), qPrintable(input));
            }
        }
        QCOMPARE(SearchStatement(form->criteria()), EveryBook);
    }

    void spaceDiscardedAndColonKept_data()
    {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        const QString words = u"war and peace* 1869'"_s;
        const QString number = u"1 2.5:3a-"_s;
        QTest::newRow("title") << u"chkTitle"_s << u"txtTitle"_s << words << u"warandpeace*"_s;
        QTest::newRow("author") << u"chkAuthor"_s << u"txtAuthor"_s << words << u"warandpeace*"_s;
        QTest::newRow("topic") << u"chkTopic"_s << u"txtTopic"_s << words << u"warandpeace*"_s;
        QTest::newRow("publisher")
            << u"chkPublisher"_s << u"txtPublisher"_s << words << u"warandpeace*"_s;
        QTest::newRow("price from") << u"chkPrice"_s << u"txtPriceFrom"_s << number << u"125:3"_s;
        QTest::newRow("price to") << u"chkPrice"_s << u"txtPriceTo"_s << number << u"125:3"_s;
        QTest::newRow("year from") << u"chkDate"_s << u"txtDateFrom"_s << number << u"125:3"_s;
        QTest::newRow("year to") << u"chkDate"_s << u"txtDateTo"_s << number << u"125:3"_s;
    }

    void spaceDiscardedAndColonKept()
    {
        QFETCH(QString, box);
        QFETCH(QString, input);
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        fixture.click(box);
        fixture.type(input, typed);
        QCOMPARE(Shown(form, input), shown);
    }

    void noBoxTickedFindsEveryBook()
    {
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        QCOMPARE(SearchStatement(form->criteria()), EveryBook);
        const QString answered = fixture.pressSearch({ResultsPrompt(60, u"OK"_s)});
        QVERIFY2(answered.isEmpty(), qPrintable(answered));
        QCOMPARE(form->property("intBooksFound").toInt(), 60);
        QCOMPARE(fixture.hits(), fixture.keysOf(u"select BookID from tblBook"_s));
        QTRY_VERIFY(fixture.form() && fixture.form()->isVisible());
        QCOMPARE(Panel(fixture.form(), 1), u"Filtered"_s);
        QCOMPARE(Panel(fixture.form(), 2), u"Book 1 of 60"_s);
        // A confirmed search leaves the search form open behind the book form.
        QCOMPARE(fixture.search(), form);
        QCOMPARE(static_cast<QWidget *>(fixture.frame().mdiArea()->activeSubWindow()), fixture.form()->parentWidget());
    }

    void authorPickedFindsHisBooks()
    {
        SearchFormFixture fixture;
        fixture.openSearch();
        fixture.click(u"chkAuthor"_s);
        fixture.pick(u"dboAuthorLkup"_s, u"Dickens"_s);
        fixture.setHits({u"1"_s, u"2"_s});
        const QString answered = fixture.pressSearch({ResultsPrompt(4, u"OK"_s)});
        QVERIFY2(answered.isEmpty(), qPrintable(answered));
        QCOMPARE(fixture.hits(), fixture.keysOf(DickensBooks));
        QTRY_VERIFY(fixture.form() && fixture.form()->isVisible());
        QCOMPARE(Panel(fixture.form(), 1), u"Filtered"_s);
        QCOMPARE(Panel(fixture.form(), 2), u"Book 1 of 4"_s);
        QCOMPARE(Shown(fixture.form(), u"txtDescription"_s), u"A Christmas Carol"_s);
        SaveScreenshot(fixture.form()->parentWidget(), u"search-results-bookform"_s);
    }

    void nothingFoundSaysSoAndKeepsTheHits()
    {
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        fixture.click(u"chkTitle"_s);
        fixture.type(u"txtTitle"_s, u"war"_s);
        fixture.setHits({u"7"_s});
        const QString answered = fixture.pressSearch(
            {Message(u"Search Result"_s, u"No Books found matching the specified search criteria"_s)});
        QVERIFY2(answered.isEmpty(), qPrintable(answered));
        QCOMPARE(fixture.hits(), QStringList{u"7"_s});
        // The criteria stay as they were, and the book form as it was.
        QCOMPARE(Shown(form, u"txtTitle"_s), u"war"_s);
        QVERIFY(!fixture.form()->isVisible());
    }

    void decliningResetsTheCriteriaAndKeepsTheHits()
    {
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        fixture.click(u"chkTitle"_s);
        fixture.type(u"txtTitle"_s, u"war*"_s);
        fixture.setHits({u"3"_s, u"5"_s});
        const QString answered = fixture.pressSearch({ResultsPrompt(1, u"Cancel"_s)});
        QVERIFY2(answered.isEmpty(), qPrintable(answered));
        QCOMPARE(fixture.hits(), QStringList({u"3"_s, u"5"_s}));
        QVERIFY(!FindControl<QCheckBox>(form, u"chkTitle"_s)->isChecked());
        QCOMPARE(Shown(form, u"txtTitle"_s), QString());
        QVERIFY(locked(form, u"txtTitle"_s));
        QVERIFY(!fixture.form()->isVisible());
        QVERIFY(!fixture.frame().session().BookFilterPending);
    }

    void promptSwitchedOffOpensTheBookFormAtOnce()
    {
        TestEnvironment::storeSetting(u"frmSearch"_s, u"AddNewPrompt"_s, u"N"_s);
        SearchFormFixture fixture;
        fixture.openSearch();
        fixture.click(u"chkPrice"_s);
        fixture.type(u"txtPriceFrom"_s, u"10"_s);
        fixture.type(u"txtPriceTo"_s, u"20"_s);
        const QString answered = fixture.pressSearch({});
        QVERIFY2(answered.isEmpty(), qPrintable(answered));
        QCOMPARE(fixture.hits(),
                 fixture.keysOf(u"select BookID from tblBook where BookPrice between 10 and 20"_s));
        QTRY_VERIFY(fixture.form() && fixture.form()->isVisible());
        QCOMPARE(Panel(fixture.form(), 1), u"Filtered"_s);
        QCOMPARE(Panel(fixture.form(), 2), u"Book 1 of 9"_s);
    }

    void dontShowAgainIsStoredForTheSearch()
    {
        SearchFormFixture fixture;
        fixture.openSearch();
        ModalExpectation prompt = ResultsPrompt(60, u"OK"_s);
        const auto checkCount = prompt.act;
        prompt.act = [checkCount](QWidget *dialog) {
            checkCount(dialog);
            Click(FindControl(dialog, u"chkShowAgain"_s));
        };
        QString answered = fixture.pressSearch({prompt});
        QVERIFY2(answered.isEmpty(), qPrintable(answered));
        QCOMPARE(TestEnvironment::storedSetting(u"frmSearch"_s, u"AddNewPrompt"_s).toString(),
                 u"N"_s);
        // The next search goes straight to the books.
        fixture.openSearch();
        answered = fixture.pressSearch({});
        QVERIFY2(answered.isEmpty(), qPrintable(answered));
    }

    void openBookFormIsClosedAndReopenedFiltered()
    {
        SearchFormFixture fixture;
        FrmBookMaintenance *before = fixture.showBooks();
        QVERIFY(before);
        QCOMPARE(Panel(before, 2), u"Book 1 of 60"_s);
        const QPointer<FrmBookMaintenance> old(before);
        FrmSearch *form = fixture.openSearch();
        QCOMPARE(static_cast<QWidget *>(fixture.frame().mdiArea()->activeSubWindow()), form->parentWidget());
        fixture.click(u"chkAuthor"_s);
        fixture.pick(u"dboAuthorLkup"_s, u"Dickens"_s);
        const QString answered = fixture.pressSearch({ResultsPrompt(4, u"OK"_s)});
        QVERIFY2(answered.isEmpty(), qPrintable(answered));
        QTRY_VERIFY(!old);
        FrmBookMaintenance *after = fixture.form();
        QVERIFY(after);
        QTRY_VERIFY(after->isVisible());
        QCOMPARE(Panel(after, 1), u"Filtered"_s);
        QCOMPARE(Panel(after, 2), u"Book 1 of 4"_s);
        QVERIFY(!fixture.frame().session().BookFilterPending);
        QVERIFY(!fixture.frame().action(u"mnuBooks"_s)->isEnabled());
    }

    void searchAgainReplacesTheHits()
    {
        TestEnvironment::storeSetting(u"frmSearch"_s, u"AddNewPrompt"_s, u"N"_s);
        SearchFormFixture fixture;
        fixture.openSearch();
        fixture.click(u"chkDate"_s);
        fixture.type(u"txtDateFrom"_s, u"1800"_s);
        fixture.type(u"txtDateTo"_s, u"1900"_s);
        QVERIFY(fixture.pressSearch({}).isEmpty());
        const QStringList nineteenth = fixture.keysOf(
            u"select BookID from tblBook where BookWhenPublished between 1800 and 1900"_s);
        QCOMPARE(fixture.hits(), nineteenth);

        fixture.openSearch();
        fixture.click(u"chkDate"_s);
        fixture.click(u"chkAuthor"_s);
        fixture.pick(u"dboAuthorLkup"_s, u"Dickens"_s);
        QVERIFY(fixture.pressSearch({}).isEmpty());
        QCOMPARE(fixture.hits(), fixture.keysOf(DickensBooks));
        QTRY_COMPARE(Panel(fixture.form(), 2), u"Book 1 of 4"_s);
    }

    void badCriterionReportsAndKeepsTheHits_data()
    {
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QString>("report");
        QTest::newRow("empty price bound")
            << QStringList{u"tick chkPrice"_s, u"type txtPriceTo 20"_s}
            << u"Run-time error '3075':\r\n\r\nnear \"and\": syntax error"_s;
        QTest::newRow("empty year bound")
            << QStringList{u"tick chkDate"_s, u"type txtDateFrom 1900"_s}
            << u"Run-time error '3075':\r\n\r\nincomplete input"_s;
        QTest::newRow("colon in a price")
            << QStringList{u"tick chkPrice"_s, u"type txtPriceFrom 1:2"_s, u"type txtPriceTo 20"_s}
            << u"Run-time error '3075':\r\n\r\nnear \":2\": syntax error"_s;
        QTest::newRow("apostrophe in a picked surname")
            << QStringList{u"tick chkAuthor"_s, u"pick dboAuthorLkup O'Brien"_s}
            << u"Run-time error '3075':\r\n\r\nnear \"Brien\": syntax error"_s;
        QTest::newRow("apostrophe typed into a topic lookup")
            << QStringList{u"tick chkTopic"_s, u"type dboTopicLkup Children's Books"_s}
            << u"Run-time error '3075':\r\n\r\nnear \"s\": syntax error"_s;
    }

    // The statement fails before anything is written: the hits stay, the form stays usable.
    void badCriterionReportsAndKeepsTheHits()
    {
        QFETCH(QStringList, steps);
        QFETCH(QString, report);
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        fixture.apply(steps);
        fixture.setHits({u"2"_s, u"4"_s});
        const QString answered = fixture.pressSearch({RuntimeErrorReport(report)});
        QVERIFY2(answered.isEmpty(), qPrintable(answered));
        QCOMPARE(fixture.hits(), QStringList({u"2"_s, u"4"_s}));
        QVERIFY(!fixture.form()->isVisible());
        QVERIFY(!fixture.frame().session().BookFilterPending);

        // Still usable: a good search after the bad one goes through.
        Click(FindControl(form, u"cmdReset"_s));
        QVERIFY(fixture.pressSearch({ResultsPrompt(60, u"OK"_s)}).isEmpty());
        QCOMPARE(fixture.hits().size(), 60);
    }

    void failingInsertLeavesThePreviousHits()
    {
        // A trigger makes the copy of the hits fail after the old ones were deleted.
        SearchFormFixture fixture;
        fixture.openSearch();
        QSqlQuery(fixture.catalogue().db())
            .exec(u"create trigger refuseHits before insert on tblCriteriaHits when new.BookID = 5 "
                  "begin select raise(abort, 'no room for more hits'); end"_s);
        fixture.setHits({u"8"_s, u"9"_s});
        const QString answered = fixture.pressSearch(
            {ResultsPrompt(60, u"OK"_s),
             RuntimeErrorReport(u"Run-time error '3001':\r\n\r\nno room for more hits"_s)});
        QVERIFY2(answered.isEmpty(), qPrintable(answered));
        QCOMPARE(fixture.hits(), QStringList({u"8"_s, u"9"_s}));
        QVERIFY(!fixture.form()->isVisible());
    }

    void exitUnloadsTheForm()
    {
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        Click(FindControl(form, u"cmdExit"_s));
        QTRY_VERIFY(!fixture.search());
        // The menu title opens it again.
        fixture.frame().action(u"mnuSearch"_s)->trigger();
        QTRY_VERIFY(fixture.search() && fixture.search()->isVisible());
    }

    void helpOpensTheFormsTopic()
    {
        SearchFormFixture fixture;
        FrmSearch *form = fixture.openSearch();
        Click(FindControl(form, u"cmdHelp"_s));
        QWidget *help = nullptr;
        QTRY_VERIFY((help = FindForm(u"HelpWindow"_s)) && help->isVisible());
        QTRY_COMPARE(FindControl<QTextBrowser>(help, u"helpBrowser"_s)->documentTitle(),
                     u"Searching the catalogue"_s);
        help->close();
    }
};

SHELVANE_TEST_MAIN(TestSearch)
#include "tst_search.moc"
