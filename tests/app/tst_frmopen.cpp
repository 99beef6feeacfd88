// frmOpen: the catalogue it offers, choosing a file, the checks of Open and their order,
// Exit and help.
#include "app/formregistry.h"
#include "app/helptopics.h"
#include "app/helpwindow.h"
#include "frmopenfixture.h"
#include "support/finders.h"
#include "support/screenshot.h"
#include "support/testcatalogue.h"
#include "support/testmain.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestFrmOpen : public FrmOpenTest
{
    Q_OBJECT

private Q_SLOTS:
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
