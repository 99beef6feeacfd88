// File › Print Screen: the list of loaded forms it offers, and printing a form's image.
#include "app/printlist.h"
#include "mainframefixture.h"
#include "recordform/promptdialog.h"
#include "support/finders.h"
#include "support/screenshot.h"
#include "support/testmain.h"
#include "taskformdouble.h"

#include <QFile>
#include <QMenu>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestPrintScreen : public MainFrameTest
{
    Q_OBJECT

    // Opens File, as the user does before choosing Print Screen, and reads the print list.
    QStringList printList() const
    {
        auto *file = m_frame->findChild<QMenu *>(u"mnuFile"_s);
        file->popup(QPoint(0, 0));
        file->hide();
        QStringList captions;
        const QList<QAction *> items = m_frame->findChild<QMenu *>(u"mnuPrint"_s)->actions();
        for (qsizetype i = 1; i < items.size(); ++i)
            captions << items.at(i)->text() + u" ("_s + items.at(i)->data().toString() + u')';
        return captions;
    }

private Q_SLOTS:
    void printListShowsTheLoadedTaskFormsInLoadOrder()
    {
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        entry(u"mnuAuthorS"_s)->trigger();
        entry(u"mnuAbout"_s)->trigger();
        QCOMPARE(printList(), (QStringList{u"Book Maintenance (frmBookMaintenance)"_s,
                                           u"Collection Statistics (frmBookStats)"_s,
                                           u"Authors (frmAuthor)"_s}));
        for (const QString &menu : {u"mnuFile"_s, u"mnuPrint"_s}) {
            auto *shown = m_frame->findChild<QMenu *>(menu);
            shown->popup(QPoint(0, 0));
            QVERIFY(!SaveScreenshot(shown, u"MDIForm1-"_s + menu).isEmpty());
            shown->hide();
        }
        // Rebuilt each time: a form closed since is gone from it.
        closeForm(u"frmBookStats"_s);
        QCOMPARE(printList(), (QStringList{u"Book Maintenance (frmBookMaintenance)"_s,
                                           u"Authors (frmAuthor)"_s}));
    }

    void printListNeverShowsTheFrameTheOpenFormTheAboutBoxOrThePrompts()
    {
        QTest::mouseClick(button(u"Open"_s), Qt::LeftButton);
        entry(u"mnuAbout"_s)->trigger();
        QVERIFY(FindForm(u"frmOpen"_s) && FindForm(u"frmAbout"_s));
        QCOMPARE(printList(), QStringList());

        QStringList whileAddPrompt;
        QStringList whileDeletePrompt;
        m_responder->expect(ModalResponder::dialog(
            u"dlgAddPrompt"_s, u"Add New Book"_s, u"Cancel"_s,
            [&](QWidget *) { whileAddPrompt = printList(); }));
        PromptDialog::Ask(PromptKind::AddNew, u"frmBookMaintenance"_s);
        finish();
        m_responder->expect(ModalResponder::dialog(
            u"dlgDelPrompt"_s, u"Delete Book"_s, u"Cancel"_s,
            [&](QWidget *) { whileDeletePrompt = printList(); }));
        PromptDialog::Ask(PromptKind::Delete, u"frmBookMaintenance"_s);
        finish();
        QCOMPARE(whileAddPrompt, QStringList());
        QCOMPARE(whileDeletePrompt, QStringList());
    }

    void printingWithoutAPrinterSaysSo()
    {
        if (!QPrinterInfo::defaultPrinter().isNull())
            QSKIP("This machine has a default printer; the message is for machines without one.");
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        printList();
        QAction *item = m_frame->findChild<QMenu *>(u"mnuPrint"_s)->actions().at(2);
        QCOMPARE(item->data().toString(), u"frmBookStats"_s);
        m_responder->expect(ModalResponder::message(
            u"Print Screen"_s,
            u"There is no printer to print on.\r\nPlease install a printer and try again."_s,
            QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        item->trigger();
        finish();
    }

    void aFormThatIsNotPrintableIsListedButNotPrinted()
    {
        registerDouble(*m_frame, {u"frmNotes"_s, u"Notes"_s, {}, false /* printable */});
        m_frame->forms().show(u"frmNotes"_s);
        QCOMPARE(printList(), QStringList{u"Notes (frmNotes)"_s});
        // No printer message, no print: nothing happens at all.
        m_frame->findChild<QMenu *>(u"mnuPrint"_s)->actions().at(1)->trigger();
        finish();
    }

    void formImageIsPrintedOnAPage()
    {
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        QTemporaryDir folder;
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath(u"stats.pdf"_s));
        QVERIFY(printFormImage(loaded(u"frmBookStats"_s), printer));
        QFile pdf(folder.filePath(u"stats.pdf"_s));
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        QVERIFY(pdf.read(5) == "%PDF-");
        QVERIFY(pdf.size() > 1000);
    }
};

SHELVANE_TEST_MAIN(TestPrintScreen)
#include "tst_printscreen.moc"
