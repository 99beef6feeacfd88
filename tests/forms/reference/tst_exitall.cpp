// Leaving the program with edits pending on several forms: every form is asked before any
// closes, and Cancel on any of them keeps every form open with its edit.

#include "app/mainframe.h"
#include "referencecases.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/testenvironment.h"
#include "support/testmain.h"

#include <QAction>
#include <QTest>

using namespace Qt::StringLiterals;

class TestExitAll : public QObject
{
    Q_OBJECT

    std::unique_ptr<CatalogueOpener> m_opener;

    // The optional field a user edits on each form: its name and its column.
    static QString editedField(const FormCase &c) { return c.newRecord.last().first; }
    static QString editedColumn(const FormCase &c) { return editedField(c).mid(3); }

    QWidget *editFirstRecord(const FormCase &c, const QString &text)
    {
        QWidget *form = openForm(c);
        if (form)
            typeInto(form, editedField(c), text);
        return form;
    }
    QString stored(const FormCase &c, const QString &key) const
    {
        return valueOf(*m_opener, c, editedColumn(c), key);
    }
    QString keyOf(const QWidget *form, const FormCase &c) const
    {
        return fieldText(form, u"txt"_s + c.keyColumn);
    }
    void exitProgram() { FindAction(u"mnuExit"_s)->trigger(); }

private Q_SLOTS:
    void init()
    {
        TestEnvironment::clearSettings();
        m_opener = std::make_unique<CatalogueOpener>(RegisterReferenceForms);
        QVERIFY2(m_opener->problems().isEmpty(), qPrintable(m_opener->problems()));
    }
    void cleanup() { m_opener.reset(); }

    void cancelOnTheSecondFormKeepsBothFormsAndTheirEdits()
    {
        const FormCase &authors = formCase(u"frmAuthor"_s);
        const FormCase &topics = formCase(u"frmTopic"_s);
        QWidget *authorForm = editFirstRecord(authors, u"Author edit"_s);
        QWidget *topicForm = editFirstRecord(topics, u"Topic edit"_s);
        QVERIFY(authorForm && topicForm);
        const QString author = keyOf(authorForm, authors);
        const QString topic = keyOf(topicForm, topics);
        const QString authorBefore = stored(authors, author);
        const QString topicBefore = stored(topics, topic);

        ModalResponder responder;
        responder.expect(confirmExit(u"Yes"_s));
        responder.expect(confirmExit(u"Cancel"_s));
        exitProgram();
        QCOMPARE(responder.finish(), QString());
        QTest::qWait(50);

        QVERIFY(m_opener->frame().isVisible());
        QCOMPARE(FindForm(authors.form), authorForm);
        QCOMPARE(FindForm(topics.form), topicForm);
        QCOMPARE(fieldText(authorForm, editedField(authors)), u"Author edit"_s);
        QCOMPARE(fieldText(topicForm, editedField(topics)), u"Topic edit"_s);
        // The Yes given to the first form was not carried out: nothing was written.
        QCOMPARE(stored(authors, author), authorBefore);
        QCOMPARE(stored(topics, topic), topicBefore);

        // The edits are still pending: closing the first form on its own asks again.
        responder.expect(confirmExit(u"Yes"_s));
        click(authorForm, u"cmdExit"_s);
        QCOMPARE(responder.finish(), QString());
        QTRY_VERIFY(!FindForm(authors.form));
        QCOMPARE(stored(authors, author), u"Author edit"_s);
    }

    void yesAndNoCloseTheProgramAndCarryOutEachAnswer()
    {
        const FormCase &authors = formCase(u"frmAuthor"_s);
        const FormCase &topics = formCase(u"frmTopic"_s);
        QWidget *authorForm = editFirstRecord(authors, u"Author edit"_s);
        QWidget *topicForm = editFirstRecord(topics, u"Topic edit"_s);
        QVERIFY(authorForm && topicForm);
        const QString author = keyOf(authorForm, authors);
        const QString topic = keyOf(topicForm, topics);
        const QString topicBefore = stored(topics, topic);

        ModalResponder responder;
        responder.expect(confirmExit(u"Yes"_s));
        responder.expect(confirmExit(u"No"_s));
        exitProgram();
        QCOMPARE(responder.finish(), QString());
        QTRY_VERIFY(!m_opener->frame().isVisible());
        QCOMPARE(stored(authors, author), u"Author edit"_s);
        QCOMPARE(stored(topics, topic), topicBefore);
    }

    void cancelOnTheFirstFormAsksNoFurther()
    {
        const FormCase &authors = formCase(u"frmAuthor"_s);
        const FormCase &topics = formCase(u"frmTopic"_s);
        QWidget *authorForm = editFirstRecord(authors, u"Author edit"_s);
        QWidget *topicForm = editFirstRecord(topics, u"Topic edit"_s);
        QVERIFY(authorForm && topicForm);

        ModalResponder responder;
        responder.expect(confirmExit(u"Cancel"_s));
        exitProgram();
        QCOMPARE(responder.finish(), QString());
        QCOMPARE(responder.finish(300), QString());
        QVERIFY(m_opener->frame().isVisible());
        QCOMPARE(FindForm(authors.form), authorForm);
        QCOMPARE(FindForm(topics.form), topicForm);
    }
};

SHELVANE_TEST_MAIN(TestExitAll)
#include "tst_exitall.moc"
