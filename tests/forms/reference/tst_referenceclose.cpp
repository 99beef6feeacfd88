// Closing the maintenance forms: the "Confirm Exit" question when an edit is pending, and
// the book form's publisher list refreshed when the publishers' form closes.

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "referencecases.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/testenvironment.h"
#include "support/testmain.h"

#include <QAbstractButton>
#include <QAction>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// The book form as the publishers' form sees it: a loaded form of that name whose publisher
// list can be refreshed. It reads the list afresh from the catalogue each time.
class BookFormDouble : public QWidget
{
    Q_OBJECT

public:
    explicit BookFormDouble(QString cataloguePath)
        : m_cataloguePath(std::move(cataloguePath))
    {
        setObjectName(u"frmBookMaintenance"_s);
    }

    Q_INVOKABLE void RefreshPublisherList()
    {
        ++refreshes;
        publishers.clear();
        const QString name = u"book-form-double"_s;
        {
            QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
            db.setDatabaseName(m_cataloguePath);
            db.open();
            QSqlQuery query(u"select PublisherName from tblPublisher order by PublisherName"_s, db);
            while (query.next())
                publishers << query.value(0).toString();
        }
        QSqlDatabase::removeDatabase(name);
    }

    int refreshes = 0;
    QStringList publishers;

private:
    QString m_cataloguePath;
};

} // namespace

class TestReferenceClose : public QObject
{
    Q_OBJECT

    std::unique_ptr<CatalogueOpener> m_opener;

    QString key(const QWidget *form, const FormCase &c) const
    {
        return fieldText(form, u"txt"_s + c.keyColumn);
    }
    // The optional field a user edits, and its value in the catalogue.
    static QString optionalField(const FormCase &c) { return c.newRecord.last().first; }
    static QString optionalColumn(const FormCase &c)
    {
        return optionalField(c).mid(3); // txtAuthorFirstName → AuthorFirstName
    }
    QString stored(const FormCase &c, const QString &key) const
    {
        return valueOf(*m_opener, c, optionalColumn(c), key);
    }
    // Opens the form and edits the optional field of its first record without leaving it.
    QWidget *editFirstRecord(const FormCase &c)
    {
        QWidget *form = openForm(c);
        if (form)
            typeInto(form, optionalField(c), u"Edited by hand"_s);
        return form;
    }

private Q_SLOTS:
    void init()
    {
        TestEnvironment::clearSettings();
        m_opener = std::make_unique<CatalogueOpener>(RegisterReferenceForms);
        QVERIFY2(m_opener->problems().isEmpty(), qPrintable(m_opener->problems()));
    }
    void cleanup() { m_opener.reset(); }

    void closingWhileBrowsingAsksNothing_data() { addFormRows(); }
    void closingWhileBrowsingAsksNothing();
    void closingWithAnEditAsksAndCancelKeepsTheForm_data() { addFormRows(); }
    void closingWithAnEditAsksAndCancelKeepsTheForm();
    void closingWithAnEditAnsweredYesWritesIt_data() { addFormRows(); }
    void closingWithAnEditAnsweredYesWritesIt();
    void closingWithAnEditAnsweredNoDropsIt_data() { addFormRows(); }
    void closingWithAnEditAnsweredNoDropsIt();
    void yesWithAnEmptyMandatoryFieldKeepsTheForm_data() { addFormRows(); }
    void yesWithAnEmptyMandatoryFieldKeepsTheForm();
    void closingDuringAnAddAnsweredNoDiscardsTheNewRecord_data() { addFormRows(); }
    void closingDuringAnAddAnsweredNoDiscardsTheNewRecord();
    void editThenNextWritesTheRecord_data() { addFormRows(); }
    void editThenNextWritesTheRecord();
    void closingPublishersRefreshesTheBookFormsList();
    void closingAuthorsOrTopicsLeavesTheBookFormAlone();
};

// Browsing past records whose optional fields were never filled in is no edit.
void TestReferenceClose::closingWhileBrowsingAsksNothing()
{
    const FormCase &c = currentCase();
    const QString nulls = u"select count(*) from "_s + c.table + u" where "_s
        + optionalColumn(c) + u" is null"_s;
    const int before = m_opener->catalogue().scalar(nulls).toInt();
    QWidget *form = openForm(c);
    QVERIFY(form);
    for (int i = 0; i < 5; ++i)
        click(form, u"cmdNext"_s);
    ModalResponder responder;
    click(form, u"cmdExit"_s);
    QCOMPARE(responder.finish(200), QString());
    QTRY_VERIFY(!FindForm(c.form));
    QCOMPARE(m_opener->catalogue().scalar(nulls).toInt(), before);
    QVERIFY(FindAction(c.menuEntry)->isEnabled());
}

void TestReferenceClose::closingWithAnEditAsksAndCancelKeepsTheForm()
{
    const FormCase &c = currentCase();
    QWidget *form = editFirstRecord(c);
    QVERIFY(form);
    const QString shown = key(form, c);
    const QString before = stored(c, shown);
    ModalResponder responder;
    responder.expect(confirmExit(u"Cancel"_s));
    click(form, u"cmdExit"_s);
    QCOMPARE(responder.finish(), QString());
    QTest::qWait(50);
    QCOMPARE(FindForm(c.form), form);
    QCOMPARE(fieldText(form, optionalField(c)), u"Edited by hand"_s);
    QCOMPARE(stored(c, shown), before);
    QVERIFY(!FindAction(c.menuEntry)->isEnabled());
}

void TestReferenceClose::closingWithAnEditAnsweredYesWritesIt()
{
    const FormCase &c = currentCase();
    QWidget *form = editFirstRecord(c);
    QVERIFY(form);
    const QString shown = key(form, c);
    ModalResponder responder;
    responder.expect(confirmExit(u"Yes"_s));
    click(form, u"cmdExit"_s);
    QCOMPARE(responder.finish(), QString());
    QTRY_VERIFY(!FindForm(c.form));
    QCOMPARE(stored(c, shown), u"Edited by hand"_s);
}

void TestReferenceClose::closingWithAnEditAnsweredNoDropsIt()
{
    const FormCase &c = currentCase();
    QWidget *form = editFirstRecord(c);
    QVERIFY(form);
    const QString shown = key(form, c);
    const QString before = stored(c, shown);
    ModalResponder responder;
    responder.expect(confirmExit(u"No"_s));
    click(form, u"cmdExit"_s);
    QCOMPARE(responder.finish(), QString());
    QTRY_VERIFY(!FindForm(c.form));
    QCOMPARE(stored(c, shown), before);
}

// Yes checks the mandatory fields first: an empty one is named and the form stays open.
void TestReferenceClose::yesWithAnEmptyMandatoryFieldKeepsTheForm()
{
    const FormCase &c = currentCase();
    QWidget *form = openForm(c);
    QVERIFY(form);
    const QString shown = key(form, c);
    const QString before = valueOf(*m_opener, c, c.listColumn, shown);
    typeInto(form, c.mandatory.first(), QString());
    ModalResponder responder;
    responder.expect(confirmExit(u"Yes"_s));
    responder.expect(plainMessage(c.caption, c.missingMessages.first()));
    click(form, u"cmdExit"_s);
    QCOMPARE(responder.finish(), QString());
    QTest::qWait(50);
    QCOMPARE(FindForm(c.form), form);
    QCOMPARE(form->focusWidget(), field(form, c.mandatory.first()));
    QCOMPARE(valueOf(*m_opener, c, c.listColumn, shown), before);
}

void TestReferenceClose::closingDuringAnAddAnsweredNoDiscardsTheNewRecord()
{
    const FormCase &c = currentCase();
    storePrompt(c, u"AddNewPrompt"_s, u"N"_s);
    const int before = rowCount(*m_opener, c);
    QWidget *form = openForm(c);
    QVERIFY(form);
    click(form, u"cmdAdd"_s);
    for (const auto &[name, text] : c.newRecord)
        typeInto(form, name, text);
    ModalResponder responder;
    responder.expect(confirmExit(u"No"_s));
    click(form, u"cmdExit"_s);
    QCOMPARE(responder.finish(), QString());
    QTRY_VERIFY(!FindForm(c.form));
    QCOMPARE(rowCount(*m_opener, c), before);
}

// Editing in place: what was typed is written when the form moves to another record.
void TestReferenceClose::editThenNextWritesTheRecord()
{
    const FormCase &c = currentCase();
    QWidget *form = editFirstRecord(c);
    QVERIFY(form);
    const QString shown = key(form, c);
    click(form, u"cmdNext"_s);
    QCOMPARE(stored(c, shown), u"Edited by hand"_s);
    ModalResponder responder;
    click(form, u"cmdExit"_s);
    QCOMPARE(responder.finish(200), QString());
    QTRY_VERIFY(!FindForm(c.form));
}

void TestReferenceClose::closingPublishersRefreshesTheBookFormsList()
{
    MainFrame &frame = m_opener->frame();
    auto *bookForm = new BookFormDouble(m_opener->catalogue().path());
    frame.forms().registerForm(u"frmBookMaintenance"_s, FormRegistry::Placement::Child,
                               [bookForm] { return bookForm; });
    QCOMPARE(frame.forms().load(u"frmBookMaintenance"_s), bookForm);

    const FormCase &c = formCase(u"frmPublisher"_s);
    storePrompt(c, u"AddNewPrompt"_s, u"N"_s);
    QWidget *form = openForm(c);
    QVERIFY(form);
    click(form, u"cmdAdd"_s);
    typeInto(form, u"txtPublisherName"_s, u"Aldine Reprints"_s);
    ModalResponder responder;
    responder.expect(plainMessage(c.addedTitle, c.added));
    click(form, u"cmdConfirmAdd"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(bookForm->refreshes, 0);

    click(form, u"cmdExit"_s);
    QTRY_VERIFY(!FindForm(c.form));
    QCOMPARE(bookForm->refreshes, 1);
    QVERIFY(bookForm->publishers.contains(u"Aldine Reprints"_s));
}

void TestReferenceClose::closingAuthorsOrTopicsLeavesTheBookFormAlone()
{
    MainFrame &frame = m_opener->frame();
    auto *bookForm = new BookFormDouble(m_opener->catalogue().path());
    frame.forms().registerForm(u"frmBookMaintenance"_s, FormRegistry::Placement::Child,
                               [bookForm] { return bookForm; });
    frame.forms().load(u"frmBookMaintenance"_s);
    for (const QString &name : {u"frmAuthor"_s, u"frmTopic"_s}) {
        QWidget *form = openForm(formCase(name));
        QVERIFY(form);
        click(form, u"cmdExit"_s);
        QTRY_VERIFY(!FindForm(name));
    }
    QCOMPARE(bookForm->refreshes, 0);
}

SHELVANE_TEST_MAIN(TestReferenceClose)
#include "tst_referenceclose.moc"
