// Deleting authors, topics and publishers: the prompt, the message, the record shown next,
// and what each form does when the catalogue refuses.

#include "app/mainframe.h"
#include "referencecases.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/testenvironment.h"
#include "support/testmain.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

// A second program holding the catalogue's write lock, as another user's open transaction
// would: reading goes on, writing waits and then fails.
class WriteLock
{
public:
    explicit WriteLock(const QString &path)
        : m_name(QUuid::createUuid().toString())
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_name);
        db.setDatabaseName(path);
        m_held = db.open() && QSqlQuery(db).exec(u"BEGIN IMMEDIATE"_s);
    }
    ~WriteLock()
    {
        {
            QSqlDatabase db = QSqlDatabase::database(m_name);
            QSqlQuery(db).exec(u"ROLLBACK"_s);
            db.close();
        }
        QSqlDatabase::removeDatabase(m_name);
    }
    bool held() const { return m_held; }

private:
    QString m_name;
    bool m_held = false;
};

ModalExpectation runTimeError(int number, const QString &description)
{
    return ModalResponder::message(u"prjQuireshelf"_s,
                                   u"Run-time error '"_s + QString::number(number)
                                       + u"':\r\n\r\n"_s + description,
                                   QMessageBox::Critical, {u"OK"_s}, u"OK"_s);
}

} // namespace

class TestReferenceDelete : public QObject
{
    Q_OBJECT

    std::unique_ptr<CatalogueOpener> m_opener;

    int count(const FormCase &c) const { return rowCount(*m_opener, c); }
    QString shownKey(const QWidget *form, const FormCase &c) const
    {
        return fieldText(form, u"txt"_s + c.keyColumn);
    }
    bool exists(const FormCase &c, const QString &key) const
    {
        return !valueOf(*m_opener, c, c.keyColumn, key).isEmpty();
    }
    // Every book given to the unknown publisher, so that any other publisher can go.
    void freePublishers() const
    {
        QSqlQuery(m_opener->catalogue().db())
            .exec(u"update tblBook set BookPublisherId = (select PublisherID from tblPublisher "
                  "where PublisherName = 'UnKnown')"_s);
    }
    // The key of the record at a 1-based place in list order.
    QString keyAt(const FormCase &c, int place) const
    {
        return m_opener->catalogue()
            .programScalar(u"select "_s + c.keyColumn + u" from "_s + c.table + u" order by "_s
                    + c.listColumn + u" limit 1 offset "_s + QString::number(place - 1))
            .toString();
    }

private Q_SLOTS:
    void init()
    {
        TestEnvironment::clearSettings();
        m_opener = std::make_unique<CatalogueOpener>(RegisterReferenceForms);
        QVERIFY2(m_opener->problems().isEmpty(), qPrintable(m_opener->problems()));
        freePublishers();
    }
    void cleanup() { m_opener.reset(); }

    void deletePromptThenMessageRemovesTheRecord_data() { addFormRows(); }
    void deletePromptThenMessageRemovesTheRecord();
    void cancellingTheDeletePromptKeepsTheRecord_data() { addFormRows(); }
    void cancellingTheDeletePromptKeepsTheRecord();
    void deletePromptSwitchedOffDeletesAtOnce_data();
    void deletePromptSwitchedOffDeletesAtOnce();
    void deletingTheLastRecordMovesToTheNewLast_data() { addFormRows(); }
    void deletingTheLastRecordMovesToTheNewLast();
    void deletingAnAuthorOrTopicTakesItsBookLinks_data();
    void deletingAnAuthorOrTopicTakesItsBookLinks();
    void publisherInUseIsRefusedWithAMessage();
    void publisherRefusedForAnotherReasonIsReported();
    void topicRefusalSurfacesAsARunTimeError();
};

void TestReferenceDelete::deletePromptThenMessageRemovesTheRecord()
{
    const FormCase &c = currentCase();
    const int before = count(c);
    QWidget *form = openForm(c);
    QVERIFY(form);
    click(form, u"cmdNext"_s);
    const QString deleted = shownKey(form, c);
    const QString following = keyAt(c, 3);
    ModalResponder responder;
    responder.expect(deletePrompt(c, u"OK"_s));
    responder.expect(plainMessage(c.removedTitle, c.removed));
    click(form, u"cmdDelete"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(count(c), before - 1);
    QVERIFY(!exists(c, deleted));
    QCOMPARE(shownKey(form, c), following);
    QCOMPARE(statusText(form), c.entity + u" 2 of "_s + QString::number(before - 1));
    auto *lookup = FindControl<QComboBox>(form, c.lookupCombo);
    QCOMPARE(lookup->count(), before - 1);
    QCOMPARE(lookup->currentText(), valueOf(*m_opener, c, c.listColumn, following));
}

void TestReferenceDelete::cancellingTheDeletePromptKeepsTheRecord()
{
    const FormCase &c = currentCase();
    const int before = count(c);
    QWidget *form = openForm(c);
    QVERIFY(form);
    const QString shown = shownKey(form, c);
    ModalResponder responder;
    responder.expect(deletePrompt(c, u"cmdCancel"_s));
    click(form, u"cmdDelete"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(count(c), before);
    QCOMPARE(shownKey(form, c), shown);
}

void TestReferenceDelete::deletePromptSwitchedOffDeletesAtOnce_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("setting");
    for (const QString &form : {u"frmAuthor"_s, u"frmTopic"_s, u"frmPublisher"_s}) {
        for (const QString &setting : {u"N"_s, u"y"_s})
            QTest::addRow("%s %s", qPrintable(form), qPrintable(setting)) << form << setting;
    }
}

// Only "Y" shows the prompt; anything else deletes without asking (the message still
// follows).
void TestReferenceDelete::deletePromptSwitchedOffDeletesAtOnce()
{
    QFETCH(QString, form);
    QFETCH(QString, setting);
    const FormCase &c = formCase(form);
    storePrompt(c, u"DeletePrompt"_s, setting);
    const int before = count(c);
    QWidget *shown = openForm(c);
    QVERIFY(shown);
    const QString deleted = shownKey(shown, c);
    ModalResponder responder;
    responder.expect(plainMessage(c.removedTitle, c.removed));
    click(shown, u"cmdDelete"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(count(c), before - 1);
    QVERIFY(!exists(c, deleted));
}

void TestReferenceDelete::deletingTheLastRecordMovesToTheNewLast()
{
    const FormCase &c = currentCase();
    storePrompt(c, u"DeletePrompt"_s, u"N"_s);
    const int before = count(c);
    QWidget *form = openForm(c);
    QVERIFY(form);
    click(form, u"cmdLast"_s);
    const QString deleted = shownKey(form, c);
    const QString newLast = keyAt(c, before - 1);
    ModalResponder responder;
    responder.expect(plainMessage(c.removedTitle, c.removed));
    click(form, u"cmdDelete"_s);
    QCOMPARE(responder.finish(), QString());
    QVERIFY(!exists(c, deleted));
    QCOMPARE(shownKey(form, c), newLast);
    const QString last = QString::number(before - 1);
    QCOMPARE(statusText(form), c.entity + u' ' + last + u" of "_s + last);
    QCOMPARE(navigationState(form), u"1100"_s);
}

void TestReferenceDelete::deletingAnAuthorOrTopicTakesItsBookLinks_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("links");
    QTest::newRow("frmAuthor") << u"frmAuthor"_s << u"tblBookAuthor"_s;
    QTest::newRow("frmTopic") << u"frmTopic"_s << u"tblBookTopic"_s;
}

// The form deletes the record only; the catalogue takes its links to books with it.
void TestReferenceDelete::deletingAnAuthorOrTopicTakesItsBookLinks()
{
    QFETCH(QString, form);
    QFETCH(QString, links);
    const FormCase &c = formCase(form);
    storePrompt(c, u"DeletePrompt"_s, u"N"_s);
    QWidget *shown = openForm(c);
    QVERIFY(shown);
    const QString key = shownKey(shown, c);
    const QString linked = u"select count(*) from "_s + links + u" where "_s + c.keyColumn
        + u" = "_s + key;
    const int books = m_opener->catalogue().scalar(u"select count(*) from tblBook"_s).toInt();
    QVERIFY(m_opener->catalogue().scalar(linked).toInt() > 0);
    ModalResponder responder;
    responder.expect(plainMessage(c.removedTitle, c.removed));
    click(shown, u"cmdDelete"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(m_opener->catalogue().scalar(linked).toInt(), 0);
    QCOMPARE(m_opener->catalogue().scalar(u"select count(*) from tblBook"_s).toInt(), books);
}

void TestReferenceDelete::publisherInUseIsRefusedWithAMessage()
{
    const FormCase &c = formCase(u"frmPublisher"_s);
    QSqlQuery(m_opener->catalogue().db())
        .exec(u"update tblBook set BookPublisherId = "_s + keyAt(c, 1) + u" where BookID = "
              "(select min(BookID) from tblBook)"_s);
    const int before = count(c);
    QWidget *form = openForm(c);
    QVERIFY(form);
    const QString key = shownKey(form, c);
    ModalResponder responder;
    responder.expect(deletePrompt(c, u"OK"_s));
    responder.expect(ModalResponder::message(u"Maintain Publisher"_s,
                                             u"Publisher in use, please re-assign any books\r\n"
                                             "using this publisher to another publisher!"_s,
                                             QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
    click(form, u"cmdDelete"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(count(c), before);
    QVERIFY(exists(c, key));
    QCOMPARE(shownKey(form, c), key);
    QCOMPARE(statusText(form), c.entity + u" 1 of "_s + QString::number(before));
}

// Only the refusal for books still using the publisher has its own message; any other
// failure is reported as the run-time error it is, and the publisher stays.
void TestReferenceDelete::publisherRefusedForAnotherReasonIsReported()
{
    const FormCase &c = formCase(u"frmPublisher"_s);
    storePrompt(c, u"DeletePrompt"_s, u"N"_s);
    const int before = count(c);
    QWidget *form = openForm(c);
    QVERIFY(form);
    const QString key = shownKey(form, c);
    {
        WriteLock lock(m_opener->catalogue().path());
        QVERIFY(lock.held());
        ModalResponder responder;
        responder.expect(runTimeError(3356, u"database is locked"_s));
        click(form, u"cmdDelete"_s);
        QCOMPARE(responder.finish(10000), QString());
    }
    QCOMPARE(count(c), before);
    QVERIFY(exists(c, key));
    QCOMPARE(shownKey(form, c), key);
}

// The topic form traps nothing: the catalogue's refusal reaches the user as a run-time
// error, the topic stays and the form goes on.
void TestReferenceDelete::topicRefusalSurfacesAsARunTimeError()
{
    const FormCase &c = formCase(u"frmTopic"_s);
    const int before = count(c);
    QWidget *form = openForm(c);
    QVERIFY(form);
    const QString key = shownKey(form, c);
    {
        WriteLock lock(m_opener->catalogue().path());
        QVERIFY(lock.held());
        ModalResponder responder;
        responder.expect(deletePrompt(c, u"OK"_s));
        responder.expect(runTimeError(3356, u"database is locked"_s));
        click(form, u"cmdDelete"_s);
        QCOMPARE(responder.finish(10000), QString());
    }
    QCOMPARE(count(c), before);
    QVERIFY(exists(c, key));
    QCOMPARE(shownKey(form, c), key);
    click(form, u"cmdNext"_s);
    QCOMPARE(statusText(form), c.entity + u" 2 of "_s + QString::number(before));
}

SHELVANE_TEST_MAIN(TestReferenceDelete)
#include "tst_referencedelete.moc"
