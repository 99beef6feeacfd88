// frmOpen and the catalogue session: opening, the checks and their order, closing.

#include "app/formregistry.h"
#include "app/helptopics.h"
#include "app/helpwindow.h"
#include "app/mainframe.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testcatalogue.h"
#include "support/testmain.h"
#include "taskformdouble.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

const QString CatalogueName = u"QuireshelfCatalog01.mdb"_s;

ModalExpectation incorrectName()
{
    return ModalResponder::message(u"Database Open Error"_s,
                                   u"Incorrect database name. \r\nPlease try again or 'Exit'"_s,
                                   QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s);
}

ModalExpectation doesNotExist()
{
    return ModalResponder::message(u"Database Open Error"_s,
                                   u"Database does not exist!\r\nPlease try again or 'Exit'"_s,
                                   QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s);
}

ModalExpectation openedMessage()
{
    return ModalResponder::message(u"Shelvane"_s, u"Quireshelf Sucessfully opened"_s,
                                   QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s);
}

ModalExpectation runtimeError(int number, const QString &description)
{
    return ModalResponder::message(u"prjQuireshelf"_s,
                                   u"Run-time error '"_s + QString::number(number)
                                       + u"':\r\n\r\n"_s + description,
                                   QMessageBox::Critical, {u"OK"_s}, u"OK"_s);
}

// The file dialog's answer: the file typed in and accepted, as a person would.
ModalExpectation chooseFile(const QString &path)
{
    return ModalResponder::dialog(u"cdgOpenDatabase"_s, u"Open"_s, {}, [path](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        // The dialog leaves a file name box that has the focus alone, as typing goes there.
        if (QWidget *focus = dialog->focusWidget())
            focus->clearFocus();
        dialog->selectFile(path);
        static_cast<QDialog *>(dialog)->accept(); // as the dialog's own Open button does
    });
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

class TestFrmOpen : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<MainFrame> m_frame;
    ModalResponder *m_responder = nullptr;

    QWidget *showOpenForm()
    {
        QTest::mouseClick(m_frame->findChild<QToolButton *>(u"Open"_s), Qt::LeftButton);
        QWidget *form = FindForm(u"frmOpen"_s);
        if (form)
            activate(form);
        return form;
    }
    static void activate(QWidget *form)
    {
        form->activateWindow();
        // A window counts as active for Qt while its parent is; wait for its own turn.
        QVERIFY(QTest::qWaitFor([form] { return QApplication::activeWindow() == form; }));
    }
    QLineEdit *txtDataBase(QWidget *form)
    {
        return FindControl<QLineEdit>(form, u"txtDataBase"_s);
    }
    void click(QWidget *form, const QString &button)
    {
        QTest::mouseClick(FindControl<QPushButton>(form, button), Qt::LeftButton);
    }
    // Picks the file through "...", with the messages expected on the way.
    void choose(QWidget *form, const QString &path, const QList<ModalExpectation> &messages = {})
    {
        m_responder->expect(chooseFile(path));
        for (const ModalExpectation &message : messages)
            m_responder->expect(message);
        click(form, u"cmdFind"_s);
        const QString problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
    }
    void expectNoCatalogue()
    {
        QVERIFY(m_frame->session().strCataloguePath.isEmpty());
        QVERIFY(!m_frame->session().cnnCatalogue);
        QCOMPARE(m_frame->windowTitle(), u"Shelvane"_s);
    }

private Q_SLOTS:
    void init()
    {
        m_frame = std::make_unique<MainFrame>();
        registerDouble(*m_frame, {u"frmBookMaintenance"_s, u"Book Maintenance"_s, u"mnuBooks"_s});
        registerDouble(*m_frame, {u"frmBookStats"_s, u"Collection Statistics"_s, u"mnuStats"_s});
        m_frame->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
        m_responder = new ModalResponder;
    }

    void cleanup()
    {
        const QString problems = m_responder->finish(100);
        delete m_responder;
        m_frame.reset();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
    }

    void startsWithNoCatalogue()
    {
        expectNoCatalogue();
        QVERIFY(m_frame->forms().loadedForms().isEmpty());
    }

    void formShowsTheCatalogueBesideTheProgram()
    {
        QWidget *form = showOpenForm();
        QVERIFY(form);
        QCOMPARE(form->windowTitle(), u"Open Book Catalogue"_s);
        QCOMPARE(form->property("tag").toString(), u"Ignore"_s);
        QCOMPARE(txtDataBase(form)->text(),
                 QDir::toNativeSeparators(QCoreApplication::applicationDirPath() + u'/'
                                          + CatalogueName));
        QCOMPARE(txtDataBase(form)->toolTip(),
                 u"Type location ofcatalogue here or click the elipse button on the right"_s);
        QCOMPARE(FindControl<QWidget>(form, u"Label1"_s)->property("text").toString(),
                 u"Database Location:"_s);
        QCOMPARE(FindControl<QPushButton>(form, u"cmdFind"_s)->text(), u"..."_s);
        QCOMPARE(FindControl<QPushButton>(form, u"cmdOpen"_s)->text(), u"Open"_s);
        QCOMPARE(FindControl<QPushButton>(form, u"cmdExit"_s)->text(), u"Exit"_s);
        QCOMPARE(FindControl<QPushButton>(form, u"cmdHelp"_s)->text(), u"Help"_s);
        QVERIFY(!SaveScreenshot(form, u"frmOpen"_s).isEmpty());
    }

    void tabOrderRunsDownTheForm()
    {
        QWidget *form = showOpenForm();
        const QStringList expected{u"txtDataBase"_s, u"cmdFind"_s, u"cmdOpen"_s, u"cmdExit"_s,
                                   u"cmdHelp"_s};
        txtDataBase(form)->setFocus();
        for (const QString &name : expected) {
            QCOMPARE(QApplication::focusWidget()->objectName(), name);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(QApplication::focusWidget()->objectName(), expected.constFirst());
    }

    void typingIntoThePathChangesNothing()
    {
        QWidget *form = showOpenForm();
        QLineEdit *path = txtDataBase(form);
        const QString before = path->text();
        path->setFocus();
        QTest::keyClicks(path, u"abc"_s);
        QTest::keyClick(path, Qt::Key_Backspace);
        QTest::keyClick(path, Qt::Key_Delete);
        QTest::keyClick(path, Qt::Key_Return);
        QTest::keyClick(path, Qt::Key_Home);
        QTest::keyClick(path, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(path, Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(path->text(), before);
        QVERIFY(path->hasFocus());
        QTest::keyClick(path, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"cmdFind"_s);
        QCOMPARE(path->text(), before);
    }

    void findOffersDatabaseFilesBesideTheProgram()
    {
        QWidget *form = showOpenForm();
        const QString before = txtDataBase(form)->text();
        QStringList filters;
        QString folder;
        QFileDialog::FileMode mode = QFileDialog::AnyFile;
        m_responder->expect(ModalResponder::dialog(
            u"cdgOpenDatabase"_s, u"Open"_s, {}, [&](QWidget *window) {
                auto *dialog = qobject_cast<QFileDialog *>(window);
                filters = dialog->nameFilters();
                folder = dialog->directory().absolutePath();
                mode = dialog->fileMode();
                dialog->reject();
            }));
        click(form, u"cmdFind"_s);
        const QString problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QCOMPARE(filters, QStringList{u"Database Files (*.mdb)"_s});
        QCOMPARE(folder, QDir(QCoreApplication::applicationDirPath()).absolutePath());
        QCOMPARE(mode, QFileDialog::ExistingFile);
        // Cancelling says nothing and leaves the path as it was.
        QCOMPARE(txtDataBase(form)->text(), before);
    }

    void wronglyNamedFileIsShownThenRefusedByOpen()
    {
        QTemporaryDir folder;
        const QString books = QDir::toNativeSeparators(folder.filePath(u"books.mdb"_s));
        writeFile(books, "not a catalogue");
        QWidget *form = showOpenForm();
        choose(form, books, {incorrectName()});
        QCOMPARE(txtDataBase(form)->text(), books);

        m_responder->expect(incorrectName());
        click(form, u"cmdOpen"_s);
        const QString problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QVERIFY(FindForm(u"frmOpen"_s));
        expectNoCatalogue();
    }

    void nameInAnotherCaseIsRefused()
    {
        QTemporaryDir folder;
        const QString lower = QDir::toNativeSeparators(folder.filePath(CatalogueName.toLower()));
        writeFile(lower, "whatever");
        QWidget *form = showOpenForm();
        choose(form, lower, {incorrectName()});

        m_responder->expect(incorrectName());
        click(form, u"cmdOpen"_s);
        const QString problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        expectNoCatalogue();
    }

    void extraLeadingCharactersPassOpenButNotFind()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString longer =
            QDir::toNativeSeparators(catalogue.folder() + u"/Old"_s + CatalogueName);
        QVERIFY(QFile::copy(catalogue.path(), longer));
        QWidget *form = showOpenForm();
        choose(form, longer, {incorrectName()});
        QCOMPARE(txtDataBase(form)->text(), longer);

        m_responder->expect(openedMessage());
        click(form, u"cmdOpen"_s);
        const QString problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QCOMPARE(m_frame->session().strCataloguePath, longer);
        QCOMPARE(m_frame->session().cnnCatalogue->filePath(), longer);
    }

    void openChecksInOrder_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QByteArray>("content"); // empty: no file at all
        // The messages after "Open", in order; %1 stands for the chosen path.
        QTest::addColumn<QList<ModalExpectation>>("messages");

        QTest::newRow("wrong name is refused before the file is looked for")
            << u"Catalogue.mdb"_s << QByteArray() << QList<ModalExpectation>{incorrectName()};
        QTest::newRow("a missing file is refused before anything is opened")
            << CatalogueName << QByteArray() << QList<ModalExpectation>{doesNotExist()};
        QTest::newRow("success is announced before the file is read")
            << CatalogueName << QByteArray("plain text, no database")
            << QList<ModalExpectation>{
                   openedMessage(),
                   runtimeError(3343, u"Unrecognized database format '%1': the file is not a "
                                      "Shelvane catalogue."_s)};
    }

    void openChecksInOrder()
    {
        QFETCH(QString, fileName);
        QFETCH(QByteArray, content);
        QFETCH(QList<ModalExpectation>, messages);

        QTemporaryDir folder;
        const QString path = QDir::toNativeSeparators(folder.filePath(fileName));
        writeFile(path, "placeholder");
        QWidget *form = showOpenForm();
        choose(form, path, fileName == CatalogueName ? QList<ModalExpectation>{}
                                                      : QList<ModalExpectation>{incorrectName()});
        if (content.isEmpty())
            QVERIFY(QFile::remove(path));
        else
            writeFile(path, content);

        for (ModalExpectation message : messages) {
            message.text.replace(u"%1"_s, path);
            m_responder->expect(message);
        }
        click(form, u"cmdOpen"_s);
        const QString problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QVERIFY(FindForm(u"frmOpen"_s));
        expectNoCatalogue();
    }

    void successfulOpenSetsTheSession()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString problems = OpenCatalogueThroughForm(*m_frame, catalogue.path(), *m_responder);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));

        const Session &session = m_frame->session();
        QCOMPARE(session.strCataloguePath, QDir::toNativeSeparators(catalogue.path()));
        QVERIFY(session.cnnCatalogue && session.cnnCatalogue->isOpen());
        QCOMPARE(session.cnnCatalogue->filePath(), catalogue.path());
        QCOMPARE(session.strCurrencySymbol, u"£"_s);
        QCOMPARE(session.strPriceFormat, u"£###,##0.00"_s);
        QCOMPARE(m_frame->windowTitle(),
                 u"Shelvane - Open Catalogue: "_s
                     + catalogue.scalar(u"SELECT CatalogueName FROM tblCatalogueControl"_s)
                           .toString());
        // The book form is prepared out of sight; frmOpen is gone.
        QWidget *books = m_frame->forms().find(u"frmBookMaintenance"_s);
        QVERIFY(books);
        QVERIFY(!books->isVisible());
        QVERIFY(!m_frame->forms().find(u"frmOpen"_s));
        QTRY_VERIFY(!FindForm(u"frmOpen"_s));
        QVERIFY(!SaveScreenshot(m_frame.get(), u"MDIForm1-catalogue-open"_s).isEmpty());
    }

    void catalogueWithoutOwnerRecordIsNamedByItsPath()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QVERIFY(QSqlQuery(catalogue.db()).exec(u"DELETE FROM tblCatalogueControl"_s));
        const QString problems = OpenCatalogueThroughForm(*m_frame, catalogue.path(), *m_responder);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QCOMPARE(m_frame->windowTitle(),
                 u"Shelvane - Open Catalogue: "_s + QDir::toNativeSeparators(catalogue.path()));
    }

    void exitLeavesTheSessionAsItWas()
    {
        QWidget *form = showOpenForm();
        QVERIFY(form);
        click(form, u"cmdExit"_s);
        QVERIFY(!m_frame->forms().find(u"frmOpen"_s));
        QTRY_VERIFY(!FindForm(u"frmOpen"_s));
        expectNoCatalogue();
    }

    void wrongPathCannotBeLeftForAValidatingControl()
    {
        QTemporaryDir folder;
        const QString books = QDir::toNativeSeparators(folder.filePath(u"books.mdb"_s));
        writeFile(books, "x");
        QWidget *form = showOpenForm();
        choose(form, books, {incorrectName()});
        QLineEdit *path = txtDataBase(form);
        activate(form);
        QTest::mouseClick(path, Qt::LeftButton);
        QVERIFY(path->hasFocus());

        // Tab to "...": refused, the focus stays.
        m_responder->expect(incorrectName());
        QTest::keyClick(path, Qt::Key_Tab);
        QString problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        activate(form);
        QVERIFY(path->hasFocus());

        // A click on "Open" is lost to the same check: one message, not two.
        m_responder->expect(incorrectName());
        click(form, u"cmdOpen"_s);
        problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        activate(form);
        QVERIFY(path->hasFocus());

        // Exit is always possible, as the message says.
        click(form, u"cmdExit"_s);
        QVERIFY(!m_frame->forms().find(u"frmOpen"_s));
    }

    void openingWhileACatalogueIsOpenNeverReachesTheForm_data()
    {
        QTest::addColumn<bool>("fromToolbar");
        QTest::newRow("File > Open Catalogue") << false;
        QTest::newRow("toolbar Open File") << true;
    }

    void openingWhileACatalogueIsOpenNeverReachesTheForm()
    {
        QFETCH(bool, fromToolbar);
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QString problems = OpenCatalogueThroughForm(*m_frame, catalogue.path(), *m_responder);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QTRY_VERIFY(!FindForm(u"frmOpen"_s));

        m_responder->expect(ModalResponder::message(
            u"Shelvane"_s, u"Please close current Quireshelf database first!"_s,
            QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        if (fromToolbar)
            QTest::mouseClick(m_frame->findChild<QToolButton *>(u"Open"_s), Qt::LeftButton);
        else
            m_frame->action(u"mnuOpen"_s)->trigger();
        problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QVERIFY(!m_frame->forms().find(u"frmOpen"_s));
        QVERIFY(!FindForm(u"frmOpen"_s));
    }

    void closeUnloadsEveryFormAndResetsTheCaption()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QString problems = OpenCatalogueThroughForm(*m_frame, catalogue.path(), *m_responder);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        m_frame->action(u"mnuStats"_s)->trigger();
        m_frame->action(u"mnuAbout"_s)->trigger();
        QVERIFY(m_frame->forms().find(u"frmBookStats"_s));
        QVERIFY(!m_frame->action(u"mnuStats"_s)->isEnabled());

        m_responder->expect(ModalResponder::message(
            u"Close Catalogue"_s,
            u"Catalogue "_s + QDir::toNativeSeparators(catalogue.path()) + u" closed!"_s,
            QMessageBox::Information, {u"OK"_s}, u"OK"_s));
        m_frame->action(u"mnuClose"_s)->trigger();
        problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));

        QVERIFY(m_frame->forms().loadedForms().isEmpty());
        for (const QString &name :
             {u"frmBookStats"_s, u"frmBookMaintenance"_s, u"frmAbout"_s})
            QTRY_VERIFY2(!FindForm(name), qPrintable(name));
        QVERIFY(m_frame->action(u"mnuStats"_s)->isEnabled());
        expectNoCatalogue();

        m_responder->expect(ModalResponder::message(
            u"Shelvane"_s, u"Please open Quireshelf database first!"_s, QMessageBox::Warning,
            {u"OK"_s}, u"OK"_s));
        m_frame->action(u"mnuClose"_s)->trigger();
        problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        expectNoCatalogue();
    }

    void closeStopsAtAFormThatKeepsItsEdit()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QString problems = OpenCatalogueThroughForm(*m_frame, catalogue.path(), *m_responder);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        m_frame->action(u"mnuStats"_s)->trigger();
        auto *stats = qobject_cast<TaskFormDouble *>(m_frame->forms().find(u"frmBookStats"_s));
        QVERIFY(stats);
        stats->refuseClose = true;

        m_frame->action(u"mnuClose"_s)->trigger();
        QCOMPARE(m_frame->session().strCataloguePath, QDir::toNativeSeparators(catalogue.path()));
        QVERIFY(m_frame->session().cnnCatalogue);
        QCOMPARE(m_frame->forms().loadedForms(), QList<QWidget *>{stats});
        stats->refuseClose = false;
    }

    void helpOpensTheFormsOwnTopic()
    {
        QWidget *form = showOpenForm();
        click(form, u"cmdHelp"_s);
        HelpWindow *help = nullptr;
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (auto *candidate = qobject_cast<HelpWindow *>(window))
                help = candidate;
        }
        QVERIFY(help);
        QTRY_VERIFY(help->isVisible());
        const QUrl shown = help->currentPage();
        QVERIFY(help->showTopic(HelpTopicForForm(u"frmOpen"_s)));
        QCOMPARE(shown, help->currentPage());
        QVERIFY(help->showTopic(HelpTopic::Contents));
        QVERIFY(shown != help->currentPage());
        help->close();
    }
};

SHELVANE_TEST_MAIN(TestFrmOpen)
#include "tst_frmopen.moc"
