// The report windows as a user meets them: the Reports menu and the "Reports" drop-down,
// their states while a listing is open, the run-time error of a bad owner row, the preview's
// page buttons and zoom, and Export to PDF giving what the catalogue tool writes.
#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/recordset.h"
#include "forms/printing/printingforms.h"
#include "forms/printing/reportcommands.h"
#include "forms/printing/reportwindow.h"
#include "forms/printing/workprogress.h"
#include "reports/reportfixture.h"
#include "reports/reportpaginator.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QScrollArea>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

struct ListingCommand
{
    QString entry;
    QString item;
    QString report;
    QString caption;
};

const QList<ListingCommand> commands{
    {u"mnuRepTitleOrder"_s, u"TitleRep"_s, u"DataReport1"_s, u"Listing by Title"_s},
    {u"mnuRepAuthorOrder"_s, u"AuthorRep"_s, u"DataReport2"_s, u"Listing by Author"_s},
    {u"mnuRepTopicOrder"_s, u"TopicRep"_s, u"DataReport3"_s, u"Listing by Topic"_s}};

ModalExpectation openFirst()
{
    return ModalResponder::message(u"Shelvane"_s, u"Please open Quireshelf database first!"_s,
                                   QMessageBox::Warning, {u"OK"_s}, u"OK"_s);
}

ModalExpectation runTimeError(int number, const QString &description)
{
    return ModalResponder::message(u"prjQuireshelf"_s,
                                   u"Run-time error '%1':\r\n\r\n%2"_s.arg(number).arg(description),
                                   QMessageBox::Critical, {u"OK"_s}, u"OK"_s);
}

void click(QWidget *form, const QString &button)
{
    auto *control = FindControl<QAbstractButton>(form, button);
    QVERIFY2(control, qPrintable(button));
    QTest::mouseClick(control, Qt::LeftButton);
}

QString labelText(QWidget *form, const QString &name)
{
    auto *label = FindControl<QLabel>(form, name);
    return label ? label->text() : u"(no %1)"_s.arg(name);
}

QString pageBox(QWidget *form)
{
    return FindControl<QLineEdit>(form, u"txtPage"_s)->text();
}

} // namespace

class TestReportWindow : public QObject
{
    Q_OBJECT

    std::unique_ptr<CatalogueOpener> m_opener;

    MainFrame &frame() { return m_opener->frame(); }

    ReportWindow *openThroughMenu(const QString &entry, const QString &report)
    {
        frame().action(entry)->trigger();
        return qobject_cast<ReportWindow *>(FindForm(report));
    }

    void closeReport(QWidget *report)
    {
        QPointer<QWidget> watched(report);
        frame().forms().windowOf(report)->close();
        QTRY_VERIFY(!watched);
    }

    void execOnCatalogue(const QString &sql)
    {
        QSqlQuery query(m_opener->catalogue().db());
        QVERIFY2(query.exec(sql), qPrintable(sql));
    }

private Q_SLOTS:
    void init()
    {
        m_opener = std::make_unique<CatalogueOpener>(RegisterPrintingForms);
        QVERIFY2(m_opener->problems().isEmpty(), qPrintable(m_opener->problems()));
    }

    void cleanup() { m_opener.reset(); }

    void reportCommandsNeedAnOpenCatalogue()
    {
        m_opener.reset();
        MainFrame bare;
        RegisterPrintingForms(bare);
        bare.show();
        ModalResponder responder;
        for (const ListingCommand &command : commands) {
            responder.expect(openFirst());
            bare.action(command.entry)->trigger();
            QCOMPARE(responder.finish(), QString());
            responder.expect(openFirst());
            bare.action(command.item)->trigger();
            QCOMPARE(responder.finish(), QString());
            QVERIFY(!FindForm(command.report));
            QVERIFY(bare.action(command.entry)->isEnabled());
        }
    }

    void eachEntryPointOpensItsListingAndIsDisabledUntilItCloses_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<bool>("fromDropDown");
        for (int i = 0; i < commands.size(); ++i) {
            QTest::newRow(qPrintable(commands[i].entry)) << i << false;
            QTest::newRow(qPrintable(commands[i].item)) << i << true;
        }
    }

    void eachEntryPointOpensItsListingAndIsDisabledUntilItCloses()
    {
        QFETCH(int, index);
        QFETCH(bool, fromDropDown);
        const ListingCommand &command = commands[index];
        QAction *entry = frame().action(command.entry);
        QAction *item = frame().action(command.item);
        (fromDropDown ? item : entry)->trigger();

        QWidget *report = FindForm(command.report);
        QVERIFY(report);
        QVERIFY(report->isVisible());
        QCOMPARE(report->windowTitle(), command.caption);
        QVERIFY(qobject_cast<QMdiSubWindow *>(frame().forms().windowOf(report)));
        QVERIFY(!entry->isEnabled());
        QVERIFY(!item->isEnabled());
        // A second run is impossible: both ways in are disabled until the report closes.
        entry->trigger();
        QCOMPARE(frame().forms().loadedForms().count(report), 1);

        closeReport(report);
        QVERIFY(entry->isEnabled());
        QVERIFY(item->isEnabled());
        QVERIFY(!FindForm(command.report));
    }

    void differentListingsAreOpenTogether()
    {
        for (const ListingCommand &command : commands)
            frame().action(command.entry)->trigger();
        for (const ListingCommand &command : commands) {
            QVERIFY(FindForm(command.report));
            QVERIFY(!frame().action(command.entry)->isEnabled());
            QVERIFY(!frame().action(command.item)->isEnabled());
        }
        closeReport(FindForm(u"DataReport2"_s));
        QVERIFY(frame().action(u"mnuRepAuthorOrder"_s)->isEnabled());
        QVERIFY(frame().action(u"AuthorRep"_s)->isEnabled());
        QVERIFY(!frame().action(u"mnuRepTitleOrder"_s)->isEnabled());
        QVERIFY(!frame().action(u"TopicRep"_s)->isEnabled());
        // Closing the catalogue closes every report and enables every entry again.
        ModalResponder responder;
        responder.expect(ModalResponder::message(u"Close Catalogue"_s,
                                                 u"Catalogue "_s + m_opener->catalogue().path() + u" closed!"_s,
                                                 QMessageBox::Information, {u"OK"_s}, u"OK"_s));
        frame().action(u"mnuClose"_s)->trigger();
        QCOMPARE(responder.finish(), QString());
        for (const ListingCommand &command : commands) {
            QTRY_VERIFY(!FindForm(command.report));
            QVERIFY(frame().action(command.entry)->isEnabled());
            QVERIFY(frame().action(command.item)->isEnabled());
        }
    }

    void windowsAndSectionsCarryTheirNames()
    {
        const QStringList listingSections{u"FrontPage"_s, u"Section2"_s, u"BookLine"_s,
                                          u"PageFooter"_s, u"Section5"_s};
        const QStringList topicSections{
            u"FrontPage"_s, u"PageHeader"_s, u"ByTopicDescription_Header"_s,
            u"cmdReport3_Header"_s, u"cmdReport3Sub_Detail"_s, u"cmdReport3_Footer"_s,
            u"ByTopicDescription_Footer"_s, u"PageFooter"_s, u"ReportFooter"_s};
        for (const ListingCommand &command : commands) {
            QWidget *report = openThroughMenu(command.entry, command.report);
            QVERIFY(report);
            const QStringList sections = command.report == u"DataReport3" ? topicSections : listingSections;
            QStringList found;
            for (QObject *child : report->children()) {
                if (sections.contains(child->objectName()))
                    found.append(child->objectName());
            }
            QCOMPARE(found, sections);
            QObject *detail = report->findChild<QObject *>(sections[sections.size() == 5 ? 2 : 4]);
            QStringList controls;
            for (QObject *control : detail->children())
                controls.append(control->objectName());
            QCOMPARE(controls, QStringList({u"txtBookDescription"_s, u"txtBookPrice"_s, u"txtBookId"_s,
                                            u"txtBookOtherDets"_s, u"txtBookDet3"_s, u"Shape1"_s}));
            QObject *front = report->findChild<QObject *>(u"FrontPage"_s);
            for (const QString &label : {u"lblTitle"_s, u"lblName"_s, u"lblAddr1"_s, u"lblAddr5"_s,
                                         u"lblPostCode"_s, u"lblTelephone"_s, u"lblFax"_s, u"lblEmail"_s})
                QVERIFY2(front->findChild<QObject *>(label), qPrintable(label));
            if (command.report == u"DataReport3")
                QVERIFY(report->findChild<QObject *>(u"ByTopicDescription_Header"_s)->findChild<QObject *>(u"Text1"_s));
        }
    }

    void missingOwnerRowGivesTheRunTimeErrorAndNoWindow()
    {
        execOnCatalogue(u"DELETE FROM tblCatalogueControl"_s);
        ModalResponder responder;
        responder.expect(runTimeError(3021, u"Either BOF or EOF is True, or the current record has "
                                            "been deleted. Requested operation requires a current record."_s));
        frame().action(u"mnuRepTitleOrder"_s)->trigger();
        QCOMPARE(responder.finish(), QString());
        QVERIFY(!FindForm(u"DataReport1"_s));
        QVERIFY(frame().action(u"mnuRepTitleOrder"_s)->isEnabled());
        QVERIFY(frame().action(u"TitleRep"_s)->isEnabled());
    }

    void nullOwnerColumnGivesTheRunTimeErrorAndNoWindow()
    {
        execOnCatalogue(u"DROP TABLE tblCatalogueControl"_s);
        execOnCatalogue(u"CREATE TABLE tblCatalogueControl (CatalogueName TEXT, Firstname TEXT, "
                        "Surname TEXT, Addr1 TEXT, Addr2 TEXT, Addr3 TEXT, Addr4 TEXT, Addr5 TEXT, "
                        "PostCode TEXT, TelNo1 TEXT, TelNo2 TEXT, FaxNo TEXT, Email TEXT)"_s);
        execOnCatalogue(u"INSERT INTO tblCatalogueControl VALUES ('Mine', 'A', NULL, '', '', '', "
                        "'', '', '', '', '', '', '')"_s);
        ModalResponder responder;
        responder.expect(runTimeError(94, u"Invalid use of Null"_s));
        frame().action(u"mnuRepTopicOrder"_s)->trigger();
        QCOMPARE(responder.finish(), QString());
        QVERIFY(!FindForm(u"DataReport3"_s));
        QVERIFY(frame().action(u"mnuRepTopicOrder"_s)->isEnabled());
        // From the drop-down the error abandons the click before the item is disabled.
        responder.expect(runTimeError(94, u"Invalid use of Null"_s));
        frame().action(u"TopicRep"_s)->trigger();
        QCOMPARE(responder.finish(), QString());
        QVERIFY(!FindForm(u"DataReport3"_s));
        QVERIFY(frame().action(u"mnuRepTopicOrder"_s)->isEnabled());
        QVERIFY(frame().action(u"TopicRep"_s)->isEnabled());
    }

    void dataEnvironmentPointsAtTheOpenCatalogue()
    {
        auto *reports = frame().findChild<ReportCommands *>();
        QVERIFY(reports);
        QVERIFY(!reports->dataEnvironment());
        QVERIFY(openThroughMenu(u"mnuRepAuthorOrder"_s, u"DataReport2"_s));
        DataEnvironment *deShelvane = reports->dataEnvironment();
        QVERIFY(deShelvane);
        const QString expected = u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s
                                 + m_opener->catalogue().path() + u";Persist Security Info=False"_s;
        for (const QString &name : {u"Shelvane"_s, u"Report1Conn"_s, u"LabelConn"_s, u"LablesConn"_s})
            QCOMPARE(deShelvane->connectionString(name), expected);
        // The report holds its rows; nothing keeps the catalogue file open for it.
        QVERIFY(!deShelvane->hasOpenConnection());
    }

    // Compacting the catalogue closes every connection to it, deShelvane's among them.
    void closingTheConnectionsClosesTheDataEnvironment()
    {
        QVERIFY(openThroughMenu(u"mnuRepTitleOrder"_s, u"DataReport1"_s));
        DataEnvironment *deShelvane = frame().findChild<ReportCommands *>()->dataEnvironment();
        QVERIFY(deShelvane);
        QVERIFY(deShelvane->run(u"cmdLabels"_s));
        QVERIFY(deShelvane->hasOpenConnection());
        Q_EMIT frame().closingConnections();
        QVERIFY(!deShelvane->hasOpenConnection());
    }

    void frontPageIsFilledAfreshEachRun()
    {
        QWidget *report = openThroughMenu(u"mnuRepTitleOrder"_s, u"DataReport1"_s);
        auto *window = qobject_cast<ReportWindow *>(report);
        QCOMPARE(window->pages().page(0)->textsOf(u"lblTitle"_s), QStringList({u"The Whitcombe Library"_s}));
        closeReport(report);
        execOnCatalogue(u"UPDATE tblCatalogueControl SET CatalogueName = 'Ex Libris O''Hara'"_s);
        window = openThroughMenu(u"mnuRepTitleOrder"_s, u"DataReport1"_s);
        QCOMPARE(window->pages().page(0)->textsOf(u"lblTitle"_s), QStringList({u"Ex Libris O'Hara"_s}));
    }

    void pricesFollowTheSessionFormatOnActivation()
    {
        frame().session().strPriceFormat = u"€###,##0.00"_s;
        ReportWindow *title = openThroughMenu(u"mnuRepTitleOrder"_s, u"DataReport1"_s);
        ReportWindow *author = openThroughMenu(u"mnuRepAuthorOrder"_s, u"DataReport2"_s);
        QVERIFY(title && author);
        QVERIFY(TextsOf(AllPages(title->pages()), u"txtBookPrice"_s).contains(u"€8,400.00"_s));

        frame().session().strPriceFormat = u"£###,##0.00"_s;
        frame().mdiArea()->setActiveSubWindow(qobject_cast<QMdiSubWindow *>(frame().forms().windowOf(title)));
        const QStringList prices = TextsOf(AllPages(title->pages()), u"txtBookPrice"_s);
        QVERIFY(prices.contains(u"£8,400.00"_s));
        QVERIFY(!prices.join(u' ').contains(u'€'));
    }

    void pageButtonsPageBoxAndZoom()
    {
        ReportWindow *report = openThroughMenu(u"mnuRepTopicOrder"_s, u"DataReport3"_s);
        QVERIFY(report);
        const int pages = report->pages().pageCount();
        QVERIFY(pages > 4);
        QCOMPARE(pageBox(report), u"1"_s);
        QTRY_COMPARE(labelText(report, u"lblPageCount"_s), u"of %1"_s.arg(pages));
        QVERIFY(!FindControl<QToolButton>(report, u"cmdPrevious"_s)->isEnabled());
        QVERIFY(!FindControl<QToolButton>(report, u"cmdFirst"_s)->isEnabled());

        click(report, u"cmdNext"_s);
        QCOMPARE(pageBox(report), u"2"_s);
        QCOMPARE(report->currentPage(), 1);
        click(report, u"cmdLast"_s);
        QCOMPARE(pageBox(report), QString::number(pages));
        QVERIFY(!FindControl<QToolButton>(report, u"cmdNext"_s)->isEnabled());
        QVERIFY(!FindControl<QToolButton>(report, u"cmdLast"_s)->isEnabled());
        click(report, u"cmdPrevious"_s);
        QCOMPARE(pageBox(report), QString::number(pages - 1));
        click(report, u"cmdFirst"_s);
        QCOMPARE(pageBox(report), u"1"_s);

        auto *box = FindControl<QLineEdit>(report, u"txtPage"_s);
        box->selectAll();
        QTest::keyClicks(box, u"3x"_s);
        QCOMPARE(box->text(), u"3"_s); // only digits go in
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(report->currentPage(), 2);
        box->selectAll();
        QTest::keyClicks(box, u"999"_s);
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(pageBox(report), QString::number(pages));

        auto *zoom = FindControl<QComboBox>(report, u"cboZoom"_s);
        QCOMPARE(zoom->currentText(), u"Fit width"_s);
        auto *preview = FindControl<QWidget>(report, u"pagePreview"_s);
        auto *scroller = FindControl<QScrollArea>(report, u"scrPages"_s);
        QVERIFY(preview->width() <= scroller->viewport()->width());
        zoom->setCurrentText(u"100%"_s);
        // A4 is 595 points across: at 96 pixels an inch, 794 pixels and the grey desk round it.
        QVERIFY(qAbs(preview->width() - (794 + 32)) <= 2);
        zoom->setCurrentText(u"Fit page"_s);
        QVERIFY(preview->height() <= scroller->viewport()->height());
        zoom->setCurrentText(u"Fit width"_s);

        click(report, u"cmdFirst"_s);
        frame().forms().windowOf(report)->showMaximized();
        QVERIFY(!SaveScreenshot(frame().forms().windowOf(report), u"DataReport3-window"_s).isEmpty());
        click(report, u"cmdNext"_s);
        QVERIFY(!SaveScreenshot(frame().forms().windowOf(report), u"DataReport3-window-page2"_s).isEmpty());
    }

    void exportFromTheWindowHoldsWhatTheToolWrites()
    {
        ReportWindow *report = openThroughMenu(u"mnuRepTitleOrder"_s, u"DataReport1"_s);
        QVERIFY(report);
        QTemporaryDir folder;
        const QString exported = folder.filePath(u"from the window.pdf"_s);
        ModalResponder responder;
        responder.expect(ModalResponder::dialog(u"cdgExportPdf"_s, u"Export to PDF"_s, {},
                                                [exported](QWidget *window) {
                                                    auto *dialog = qobject_cast<QFileDialog *>(window);
                                                    if (QWidget *focus = dialog->focusWidget())
                                                        focus->clearFocus();
                                                    dialog->selectFile(exported);
                                                    static_cast<QDialog *>(dialog)->accept();
                                                }));
        click(report, u"cmdExport"_s);
        QCOMPARE(responder.finish(), QString());
        QVERIFY(QFile::exists(exported));

        const QString written = folder.filePath(u"from the tool.pdf"_s);
        const ToolRun run = RunCatalogueTool({u"report"_s, m_opener->catalogue().path(), u"--by"_s,
                                              u"title"_s, u"--pdf"_s, written});
        QCOMPARE(run.status, 0);
        const QString text = PdfText(exported);
        QVERIFY(text.contains(u"Main Book Listing"_s));
        QVERIFY(text.contains(u"Page: "_s));
        QCOMPARE(PdfText(written), text);
    }

    void printAsksForPrinterAndPages()
    {
        ReportWindow *report = openThroughMenu(u"mnuRepTitleOrder"_s, u"DataReport1"_s);
        const int pages = report->pages().pageCount();
        ModalResponder responder;
        responder.expect(ModalResponder::dialog(u"dlgPrint"_s, u"Print"_s, {}, [pages](QWidget *window) {
            auto *dialog = qobject_cast<QPrintDialog *>(window);
            QCOMPARE(dialog->minPage(), 1);
            QCOMPARE(dialog->maxPage(), pages);
            QVERIFY(dialog->testOption(QAbstractPrintDialog::PrintPageRange));
            dialog->reject();
        }));
        click(report, u"cmdPrint"_s);
        QCOMPARE(responder.finish(), QString());
    }

    void printingToAFileGivesTheListingsPages()
    {
        ReportWindow *report = openThroughMenu(u"mnuRepTopicOrder"_s, u"DataReport3"_s);
        QTemporaryDir folder;
        const QString printed = folder.filePath(u"printed.pdf"_s);
        ModalResponder responder;
        responder.expect(ModalResponder::dialog(u"dlgPrint"_s, u"Print"_s, {}, [printed](QWidget *window) {
            // The dialog's own choice of printing to a file, and the file's name.
            auto *printers = window->findChild<QComboBox *>(u"printers"_s);
            printers->setCurrentIndex(printers->findText(u"Print to File (PDF)"_s));
            window->findChild<QLineEdit *>(u"filename"_s)->setText(printed);
            static_cast<QDialog *>(window)->accept();
        }));
        click(report, u"cmdPrint"_s);
        QCOMPARE(responder.finish(), QString());
        const QString text = PdfText(printed);
        QVERIFY2(text.contains(u"Listing by Topic"_s), qPrintable(text.left(200)));
        QVERIFY(text.contains(u"Page: %1"_s.arg(report->pages().pageCount())));
        QVERIFY(SavePdfPictures(printed, u"DataReport3-printed"_s, 2, 2));
    }

    // The progress of a long export is a dialog titled with the report's caption, wide enough
    // for the whole title beside the title bar's buttons.
    void progressDialogShowsItsTitleWhole()
    {
        ReportWindow *report = openThroughMenu(u"mnuRepTitleOrder"_s, u"DataReport1"_s);
        WorkProgress progress(report, report->windowTitle(), u"Exporting to PDF..."_s, 5000);
        QVERIFY(progress.step(100));
        auto *dialog = report->findChild<QProgressDialog *>(u"dlgReportProgress"_s);
        QVERIFY(dialog);
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->windowTitle(), u"Listing by Title"_s);
        QFont titleFont = dialog->font();
        titleFont.setBold(true);
        QVERIFY2(dialog->width() >= QFontMetrics(titleFont).horizontalAdvance(dialog->windowTitle()) + 150,
                 qPrintable(u"%1 pixels wide"_s.arg(dialog->width())));
        QVERIFY(!SaveScreenshot(dialog, u"DataReport1-exporting"_s).isEmpty());
    }

    void exportCancelledInTheFileDialogWritesNothing()
    {
        ReportWindow *report = openThroughMenu(u"mnuRepAuthorOrder"_s, u"DataReport2"_s);
        QTemporaryDir folder;
        ModalResponder responder;
        responder.expect(ModalResponder::dialog(u"cdgExportPdf"_s, u"Export to PDF"_s, {},
                                                [](QWidget *window) {
                                                    static_cast<QDialog *>(window)->reject();
                                                }));
        click(report, u"cmdExport"_s);
        QCOMPARE(responder.finish(), QString());
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
    }
};

SHELVANE_TEST_MAIN(TestReportWindow)
#include "tst_reportwindow.moc"
