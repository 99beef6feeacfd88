// Browsing the authors, topics and publishers: the forms' fields, the moves and the lookup.

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "recordform/recordstatusbar.h"
#include "referencecases.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testenvironment.h"
#include "support/testmain.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QSqlQuery>
#include <QTest>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

class TestReferenceBrowse : public QObject
{
    Q_OBJECT

    std::unique_ptr<CatalogueOpener> m_opener;

    QString firstInOrder(const FormCase &c, const QString &column) const
    {
        return m_opener->catalogue()
            .programScalar(u"select "_s + column + u" from "_s + c.table + u" order by "_s
                    + c.listColumn + u" limit 1"_s)
            .toString();
    }

private Q_SLOTS:
    void init()
    {
        TestEnvironment::clearSettings();
        m_opener = std::make_unique<CatalogueOpener>(RegisterReferenceForms);
        QVERIFY2(m_opener->problems().isEmpty(), qPrintable(m_opener->problems()));
    }
    void cleanup() { m_opener.reset(); }

    void fieldsLabelsAndToolTips_data();
    void fieldsLabelsAndToolTips();
    void buttonsAndCaption_data() { addFormRows(); }
    void buttonsAndCaption();
    void nationalitiesInTheirOrder();
    void opensOnTheFirstRecordInListOrder_data() { addFormRows(); }
    void opensOnTheFirstRecordInListOrder();
    void firstRecordDisablesFirstAndPrevious_data() { addFormRows(); }
    void firstRecordDisablesFirstAndPrevious();
    void lastRecordDisablesNextAndLast_data() { addFormRows(); }
    void lastRecordDisablesNextAndLast();
    void oneRecordDisablesAllFour_data() { addFormRows(); }
    void oneRecordDisablesAllFour();
    void pickingFromTheLookupShowsThatRecord_data() { addFormRows(); }
    void pickingFromTheLookupShowsThatRecord();
    void lookupTakesNoTyping_data() { addFormRows(); }
    void lookupTakesNoTyping();
    void menuEntryDisabledWhileOpen_data() { addFormRows(); }
    void menuEntryDisabledWhileOpen();
    void openedByNameStillDisablesItsMenuEntry_data() { addFormRows(); }
    void openedByNameStillDisablesItsMenuEntry();
    void helpOpensTheFormsOwnTopic_data();
    void helpOpensTheFormsOwnTopic();
    void browsingScreenshot_data() { addFormRows(); }
    void browsingScreenshot();
};

void TestReferenceBrowse::fieldsLabelsAndToolTips_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("toolTip");
    const QString keyTip = u"Display only field, shows unique book id. Shown on reports."_s;
    const QList<QStringList> rows{
        {u"frmAuthor"_s, u"txtAuthorID"_s, u"Author ID"_s, keyTip},
        {u"frmAuthor"_s, u"txtAuthorFirstName"_s, u"Author Firstna&me"_s,
         u"Enter author firstname here - Optional"_s},
        {u"frmAuthor"_s, u"txtAuthorSurname"_s, u"Author &Surname"_s,
         u"Enter author surname here - Mandatory"_s},
        {u"frmAuthor"_s, u"cboAuthorNationality"_s, u"A&uthor Nationality"_s,
         u"Pick author nationality from the list - Optional"_s},
        {u"frmAuthor"_s, u"txtAuthorNotes"_s, u"Note&s"_s,
         u"You may enter notes about the author here - Optional"_s},
        {u"frmAuthor"_s, u"dboAuthorLkup"_s, u"Auth&or List "_s,
         u"You can pick an Author from the list for editting."_s},
        {u"frmTopic"_s, u"txtTopicID"_s, u"&Topic ID"_s, keyTip},
        {u"frmTopic"_s, u"txtTopicDescription"_s, u"Topic &Description"_s,
         u"ENter topic description - mandatory field"_s},
        {u"frmTopic"_s, u"txtTopicNotes"_s, u"Topic N&otes:"_s,
         u"Enter topic notes - optional field"_s},
        {u"frmTopic"_s, u"dboTopicLkup"_s, u"T&opic List "_s,
         u"Pick a topic from the drop down list for editting"_s},
        {u"frmPublisher"_s, u"txtPublisherID"_s, u"Publisher ID"_s, keyTip},
        {u"frmPublisher"_s, u"txtPublisherName"_s, u"P&ublisher Name"_s,
         u"Enter publisher name - Mandatory field"_s},
        {u"frmPublisher"_s, u"txtPublisherPlace"_s, u"Publisher Pla&ce"_s,
         u"Enter publishers location - optional field"_s},
        {u"frmPublisher"_s, u"txtPublisherNotes"_s, u"Note&s"_s,
         u"Notes about the publisher - optional field"_s},
        {u"frmPublisher"_s, u"dboPublisherLkup"_s, u"&Publisher List "_s,
         u"Pick a publisher from the drop down list for editting"_s},
    };
    for (const QStringList &row : rows)
        QTest::newRow(qPrintable(row.at(1))) << row.at(0) << row.at(1) << row.at(2) << row.at(3);
}

// Each field is introduced by its label (the label's access key reaches it) and explains
// itself in its tooltip.
void TestReferenceBrowse::fieldsLabelsAndToolTips()
{
    QFETCH(QString, form);
    QFETCH(QString, field);
    QFETCH(QString, label);
    QFETCH(QString, toolTip);
    QWidget *shown = openForm(formCase(form));
    QVERIFY(shown);
    QWidget *control = ::field(shown, field);
    QVERIFY2(control, qPrintable(field));
    QCOMPARE(control->toolTip(), toolTip);
    QLabel *caption = nullptr;
    for (QLabel *candidate : shown->findChildren<QLabel *>()) {
        if (candidate->buddy() == control)
            caption = candidate;
    }
    QVERIFY2(caption, "no label leads to the field");
    QCOMPARE(caption->text(), label);
}

// The same buttons with the same captions on all three forms; Confirm and Cancel Add only
// show while adding.
void TestReferenceBrowse::buttonsAndCaption()
{
    const FormCase &c = currentCase();
    QWidget *form = openForm(c);
    QVERIFY(form);
    QCOMPARE(form->windowTitle(), c.caption);
    const QList<std::pair<QString, QString>> buttons{
        {u"cmdFirst"_s, u"&First"_s},         {u"cmdPrevious"_s, u"&Previous"_s},
        {u"cmdNext"_s, u"&Next"_s},           {u"cmdLast"_s, u"&Last"_s},
        {u"cmdAdd"_s, u"&Add"_s},             {u"cmdConfirmAdd"_s, u"&Confirm Add"_s},
        {u"cmdCancelAdd"_s, u"Canc&el Add"_s}, {u"cmdDelete"_s, u"De&lete"_s},
        {u"cmdExit"_s, u"E&xit"_s},           {u"cmdHelp"_s, u"Help"_s},
    };
    for (const auto &[name, text] : buttons) {
        QAbstractButton *shown = button(form, name);
        QVERIFY2(shown, qPrintable(name));
        QCOMPARE(shown->text(), text);
    }
    QVERIFY(!button(form, u"cmdConfirmAdd"_s)->isVisible());
    QVERIFY(!button(form, u"cmdCancelAdd"_s)->isVisible());
    auto *bar = FindControl<RecordStatusBar>(form, u"stbContents"_s);
    QVERIFY(bar);
    QCOMPARE(bar->panelText(1), u"Ready"_s);
    QCOMPARE(bar->panelText(3), u"CAPS"_s);
    QCOMPARE(bar->panelText(4), u"NUM"_s);
    QCOMPARE(bar->panelText(5), u"INS"_s);
}

void TestReferenceBrowse::nationalitiesInTheirOrder()
{
    QWidget *form = openForm(formCase(u"frmAuthor"_s));
    QVERIFY(form);
    auto *combo = FindControl<QComboBox>(form, u"cboAuthorNationality"_s);
    QVERIFY(combo);
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    const QStringList expected{
        u"American"_s, u"Australian"_s, u"Austrian"_s, u"Belgian"_s,   u"British"_s,
        u"Canadian"_s, u"Danish"_s,     u"Dutch"_s,    u"French"_s,    u"German"_s,
        u"Greek"_s,    u"Isreali"_s,    u"Norwegian"_s, u"Polish"_s,   u"Portuguese"_s,
        u"Russian"_s,  u"Spanish"_s,    u"Swedish"_s,  u"Swiss"_s,     u"Turkish"_s};
    QCOMPARE(items, expected);
}

void TestReferenceBrowse::opensOnTheFirstRecordInListOrder()
{
    const FormCase &c = currentCase();
    QWidget *form = openForm(c);
    QVERIFY(form);
    const int count = rowCount(*m_opener, c);
    QCOMPARE(statusText(form), c.entity + u" 1 of "_s + QString::number(count));
    QCOMPARE(fieldText(form, c.mandatory.first()), firstInOrder(c, c.listColumn));
    QCOMPARE(fieldText(form, u"txt"_s + c.keyColumn), firstInOrder(c, c.keyColumn));
    QCOMPARE(FindControl<QComboBox>(form, c.lookupCombo)->currentText(),
             firstInOrder(c, c.listColumn));
    QCOMPARE(FindControl<QComboBox>(form, c.lookupCombo)->count(), count);
}

void TestReferenceBrowse::firstRecordDisablesFirstAndPrevious()
{
    const FormCase &c = currentCase();
    QWidget *form = openForm(c);
    QVERIFY(form);
    QCOMPARE(navigationState(form), u"0011"_s);
    click(form, u"cmdNext"_s);
    QCOMPARE(navigationState(form), u"1111"_s);
    QCOMPARE(statusText(form),
             c.entity + u" 2 of "_s + QString::number(rowCount(*m_opener, c)));
    click(form, u"cmdFirst"_s);
    QCOMPARE(navigationState(form), u"0011"_s);
    QCOMPARE(statusText(form).section(u' ', 1, 1), u"1"_s);
}

void TestReferenceBrowse::lastRecordDisablesNextAndLast()
{
    const FormCase &c = currentCase();
    QWidget *form = openForm(c);
    QVERIFY(form);
    const QString count = QString::number(rowCount(*m_opener, c));
    click(form, u"cmdLast"_s);
    QCOMPARE(navigationState(form), u"1100"_s);
    QCOMPARE(statusText(form), c.entity + u' ' + count + u" of "_s + count);
    const QString last = m_opener->catalogue()
                             .programScalar(u"select "_s + c.listColumn + u" from "_s + c.table
                                     + u" order by "_s + c.listColumn + u" desc limit 1"_s)
                             .toString();
    QCOMPARE(fieldText(form, c.mandatory.first()), last);
    click(form, u"cmdPrevious"_s);
    QCOMPARE(navigationState(form), u"1111"_s);
}

void TestReferenceBrowse::oneRecordDisablesAllFour()
{
    const FormCase &c = currentCase();
    QSqlQuery query(m_opener->catalogue().db());
    if (c.table == u"tblPublisher")
        QVERIFY(query.exec(u"delete from tblBook"_s));
    QVERIFY(query.exec(u"delete from "_s + c.table + u" where "_s + c.keyColumn
                       + u" <> (select min("_s + c.keyColumn + u") from "_s + c.table
                       + u")"_s));
    QCOMPARE(rowCount(*m_opener, c), 1);
    QWidget *form = openForm(c);
    QVERIFY(form);
    QCOMPARE(navigationState(form), u"0000"_s);
    QCOMPARE(statusText(form), c.entity + u" 1 of 1"_s);
    QVERIFY(button(form, u"cmdDelete"_s)->isEnabled());
}

void TestReferenceBrowse::pickingFromTheLookupShowsThatRecord()
{
    const FormCase &c = currentCase();
    QWidget *form = openForm(c);
    QVERIFY(form);
    // The fourth record in list order, found again by its key.
    const QString sql = u"select %1 from %3 order by %2 limit 1 offset 3"_s;
    const QString key =
        m_opener->catalogue().programScalar(sql.arg(c.keyColumn, c.listColumn, c.table)).toString();
    const QString name = valueOf(*m_opener, c, c.listColumn, key);
    QVERIFY(pickFromLookup(form, c, name));
    QCOMPARE(fieldText(form, u"txt"_s + c.keyColumn), key);
    QCOMPARE(fieldText(form, c.mandatory.first()), name);
    QCOMPARE(statusText(form).section(u' ', 1, 1), u"4"_s);
    QCOMPARE(navigationState(form), u"1111"_s);
}

// Keys do nothing in the lookup, not even the arrows: it is used by picking only.
void TestReferenceBrowse::lookupTakesNoTyping()
{
    const FormCase &c = currentCase();
    QWidget *form = openForm(c);
    QVERIFY(form);
    auto *lookup = FindControl<QComboBox>(form, c.lookupCombo);
    const QString before = lookup->currentText();
    const QString record = fieldText(form, u"txt"_s + c.keyColumn);
    lookup->setFocus();
    QTest::keyClicks(lookup, u"Wx"_s);
    QTest::keyClick(lookup, Qt::Key_Down);
    QTest::keyClick(lookup, Qt::Key_End);
    QTest::keyClick(lookup, Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(lookup->currentText(), before);
    QVERIFY(!lookup->view()->isVisible());
    QCOMPARE(fieldText(form, u"txt"_s + c.keyColumn), record);
    QCOMPARE(statusText(form).section(u' ', 1, 1), u"1"_s);
}

void TestReferenceBrowse::menuEntryDisabledWhileOpen()
{
    const FormCase &c = currentCase();
    QWidget *form = openForm(c);
    QVERIFY(form);
    QVERIFY(!FindAction(c.menuEntry)->isEnabled());
    click(form, u"cmdExit"_s);
    QTRY_VERIFY(!FindForm(c.form));
    QVERIFY(FindAction(c.menuEntry)->isEnabled());
}

// However the form is opened (the book form, say, could open it by name), its menu entry is
// off while it is open.
void TestReferenceBrowse::openedByNameStillDisablesItsMenuEntry()
{
    const FormCase &c = currentCase();
    QWidget *form = m_opener->frame().forms().show(c.form);
    QVERIFY(form);
    QVERIFY(!FindAction(c.menuEntry)->isEnabled());
    QVERIFY(m_opener->frame().forms().unload(form));
    QVERIFY(FindAction(c.menuEntry)->isEnabled());
}

void TestReferenceBrowse::helpOpensTheFormsOwnTopic_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("topic");
    QTest::newRow("frmAuthor") << u"frmAuthor"_s << u"Maintaining authors"_s;
    QTest::newRow("frmTopic") << u"frmTopic"_s << u"Maintaining topics"_s;
    QTest::newRow("frmPublisher") << u"frmPublisher"_s << u"Maintaining publishers"_s;
}

void TestReferenceBrowse::helpOpensTheFormsOwnTopic()
{
    QFETCH(QString, form);
    QFETCH(QString, topic);
    QWidget *shown = openForm(formCase(form));
    QVERIFY(shown);
    click(shown, u"cmdHelp"_s);
    QWidget *help = FindForm(u"HelpWindow"_s);
    QVERIFY(help);
    auto *browser = FindControl<QTextBrowser>(help, u"helpBrowser"_s);
    QVERIFY(browser);
    QTRY_COMPARE(browser->documentTitle(), topic);
    help->close();
}

void TestReferenceBrowse::browsingScreenshot()
{
    const FormCase &c = currentCase();
    QWidget *form = openForm(c);
    QVERIFY(form);
    click(form, u"cmdNext"_s);
    click(form, u"cmdNext"_s);
    QVERIFY(!SaveScreenshot(form, c.form + u"-browsing"_s).isEmpty());
    QVERIFY(!SaveScreenshot(&m_opener->frame(), c.form + u"-in-frame"_s).isEmpty());
}

SHELVANE_TEST_MAIN(TestReferenceBrowse)
#include "tst_referencebrowse.moc"
