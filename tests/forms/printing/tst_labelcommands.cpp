// File › Print Labels and the book form's single label, as a user meets them: the question,
// the label sheet's window, and what a second run does.
#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/printing/printingforms.h"
#include "forms/printing/reportwindow.h"
#include "reports/pdfexport.h"
#include "reports/reportfixture.h"
#include "reports/reportpage.h"
#include "reports/reportpaginator.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAction>
#include <QPointer>
#include <QSpinBox>
#include <QSqlQuery>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

ModalExpectation printLabelsQuestion(const QString &press)
{
    return ModalResponder::message(u"Print Labels!"_s,
                                   u"This will print labels for the whole of your collection!\r\n\r\n"
                                   "Are you sure you wish to continue?"_s,
                                   QMessageBox::Information, {u"Yes"_s, u"No"_s}, press);
}

} // namespace

class TestLabelCommands : public QObject
{
    Q_OBJECT

    std::unique_ptr<CatalogueOpener> m_opener;

    MainFrame &frame() { return m_opener->frame(); }

    int labelRows() const
    {
        return m_opener->catalogue().scalar(u"SELECT count(*) FROM tblLabelTable"_s).toInt();
    }

private Q_SLOTS:
    void init()
    {
        m_opener = std::make_unique<CatalogueOpener>(RegisterPrintingForms);
        QVERIFY2(m_opener->problems().isEmpty(), qPrintable(m_opener->problems()));
    }

    void cleanup() { m_opener.reset(); }

    void answeringNoPrintsNothing()
    {
        ModalResponder responder;
        responder.expect(printLabelsQuestion(u"No"_s));
        frame().action(u"mnuPrintLabels"_s)->trigger();
        QCOMPARE(responder.finish(), QString());
        QCOMPARE(labelRows(), 0);
        QVERIFY(!FindForm(u"DataReport4"_s));
    }

    void answeringYesShowsTheSheetAndDisablesNothing()
    {
        ModalResponder responder;
        responder.expect(printLabelsQuestion(u"Yes"_s));
        frame().action(u"mnuPrintLabels"_s)->trigger();
        QCOMPARE(responder.finish(), QString());
        auto *sheet = qobject_cast<ReportWindow *>(FindForm(u"DataReport4"_s));
        QVERIFY(sheet);
        QCOMPARE(sheet->windowTitle(), u"Catalogue Labels"_s);
        QVERIFY(labelRows() > 0);
        QVERIFY(frame().action(u"mnuPrintLabels"_s)->isEnabled());
        const QStringList prices = TextsOf(AllPages(sheet->pages()), u"txtBookPrice1"_s);
        QVERIFY(!prices.isEmpty());
        QVERIFY(prices.constFirst().startsWith(u"£"_s));

        QTemporaryDir folder;
        const QString pdf = folder.filePath(u"labels.pdf"_s);
        QCOMPARE(PdfExport::write(sheet->pages(), pdf, {}, nullptr), PdfExport::Outcome::Written);
        QVERIFY(SavePdfPictures(pdf, u"DataReport4"_s, 1, 1));

        // Again while the sheet is open: the labels are copied afresh into a new sheet.
        QPointer<QWidget> first(sheet);
        m_opener->catalogue().db().exec(u"UPDATE tblBook SET BookPrice = 1 WHERE BookID = 1"_s);
        responder.expect(printLabelsQuestion(u"Yes"_s));
        frame().action(u"mnuPrintLabels"_s)->trigger();
        QCOMPARE(responder.finish(), QString());
        QTRY_VERIFY(!first);
        sheet = qobject_cast<ReportWindow *>(FindForm(u"DataReport4"_s));
        QVERIFY(sheet);
        QCOMPARE(TextsOf(AllPages(sheet->pages()), u"txtBookPrice1"_s).constFirst(), u"£1.00"_s);
    }

    // A part-used sheet: the window's "Start at label" moves every label along, and the
    // listings have no such choice.
    void theSheetCanStartAtAnyPlaceOfTheFirstSheet()
    {
        ModalResponder responder;
        responder.expect(printLabelsQuestion(u"Yes"_s));
        frame().action(u"mnuPrintLabels"_s)->trigger();
        QCOMPARE(responder.finish(), QString());
        auto *sheet = qobject_cast<ReportWindow *>(FindForm(u"DataReport4"_s));
        QVERIFY(sheet);
        auto *firstLabel = sheet->findChild<QSpinBox *>(u"spnFirstLabel"_s);
        QVERIFY(firstLabel && firstLabel->isVisible());
        QCOMPARE(firstLabel->value(), 1);
        QCOMPARE(firstLabel->maximum() % 4, 0);
        const QStringList before = TextsOf(AllPages(sheet->pages()), u"txtBookId1"_s);
        const QString secondLabel = TextsOf(AllPages(sheet->pages()), u"Text1"_s).constFirst();

        firstLabel->selectAll();
        QTest::keyClicks(firstLabel, u"2"_s);
        QCOMPARE(firstLabel->value(), 2);
        const QList<const ReportPage *> pages = AllPages(sheet->pages());
        // The first place stays empty; the first label is now in the second place.
        QCOMPARE(TextsOf(pages, u"Text1"_s).constFirst(), before.constFirst());
        QVERIFY(TextsOf(pages, u"txtBookId1"_s).constFirst() != before.constFirst());
        QCOMPARE(TextsOf(pages, u"Text13"_s).constFirst(), secondLabel);
        QVERIFY(!SaveScreenshot(frame().forms().windowOf(sheet), u"DataReport4-window"_s).isEmpty());

        frame().action(u"mnuRepTitleOrder"_s)->trigger();
        QWidget *listing = FindForm(u"DataReport1"_s);
        QVERIFY(listing);
        QVERIFY(!listing->findChild<QSpinBox *>(u"spnFirstLabel"_s)->isVisible());
    }

    // On a large catalogue the copying shows its progress from the start, and Cancel stops it:
    // the labels copied so far stay in the table, as after a failing statement, and no sheet
    // opens.
    void copyingTheLabelsShowsProgressAndCanBeCancelled()
    {
        m_opener = std::make_unique<CatalogueOpener>(RegisterPrintingForms, TestCatalogue::Content::Large);
        QVERIFY2(m_opener->problems().isEmpty(), qPrintable(m_opener->problems()));
        const int labels = m_opener->catalogue().scalar(u"SELECT count(*) FROM qryBookLabel01"_s).toInt();
        ModalResponder responder;
        responder.expect(printLabelsQuestion(u"Yes"_s));
        responder.expect(ModalResponder::dialog(u"dlgReportProgress"_s, u"Catalogue Labels"_s,
                                                u"Cancel"_s, [](QWidget *dialog) {
                                                    QVERIFY(!SaveScreenshot(dialog, u"DataReport4-copying"_s).isEmpty());
                                                }));
        frame().action(u"mnuPrintLabels"_s)->trigger();
        QCOMPARE(responder.finish(), QString());
        QVERIFY(!FindForm(u"DataReport4"_s));
        QVERIFY(labelRows() > 0);
        QVERIFY(labelRows() < (labels + 3) / 4);
        // The next run copies them all again.
        responder.expect(printLabelsQuestion(u"Yes"_s));
        responder.expect(ModalResponder::dialog(u"dlgReportProgress"_s, u"Catalogue Labels"_s, {}));
        frame().action(u"mnuPrintLabels"_s)->trigger();
        QCOMPARE(responder.finish(), QString());
        QVERIFY(FindForm(u"DataReport4"_s));
        QCOMPARE(labelRows(), (labels + 3) / 4);
    }

    void singleLabelOpensForTheBookShown()
    {
        frame().runCommand(u"cmdPrintLabel"_s, u"17"_s);
        auto *label = qobject_cast<ReportWindow *>(FindForm(u"DataReport5"_s));
        QVERIFY(label);
        const QStringList numbers = TextsOf(AllPages(label->pages()), u"txtBookId"_s);
        QVERIFY(!numbers.isEmpty());
        QVERIFY(std::all_of(numbers.cbegin(), numbers.cend(), [](const QString &n) { return n == u"17"; }));

        QTemporaryDir folder;
        const QString pdf = folder.filePath(u"label.pdf"_s);
        QCOMPARE(PdfExport::write(label->pages(), pdf, {}, nullptr), PdfExport::Outcome::Written);
        QVERIFY(SavePdfPictures(pdf, u"DataReport5"_s, 1, 1));

        frame().runCommand(u"cmdPrintLabel"_s, u"18"_s);
        QTRY_VERIFY(FindForm(u"DataReport5"_s) && FindForm(u"DataReport5"_s) != label);
        label = qobject_cast<ReportWindow *>(FindForm(u"DataReport5"_s));
        QCOMPARE(TextsOf(AllPages(label->pages()), u"txtBookId"_s).constFirst(), u"18"_s);
    }
};

SHELVANE_TEST_MAIN(TestLabelCommands)
#include "tst_labelcommands.moc"
