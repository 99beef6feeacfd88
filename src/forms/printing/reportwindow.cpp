#include "forms/printing/reportwindow.h"
#include "ui_reportwindow.h"

#include "catalogue/session.h"
#include "forms/printing/pagepreview.h"
#include "forms/printing/reportoutput.h"
#include "recordform/keyfilters.h"
#include "recordform/runtimeerrorreport.h"
#include "reports/reportpaginator.h"

#include <QGuiApplication>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int fitPage = -1;
constexpr int fitWidth = -2;
constexpr int desk = 32; // the preview's grey border on both sides, in pixels

// Holds the wait cursor while pages are laid out.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};

} // namespace

ReportWindow::ReportWindow(const Session &session, ReportDocument document, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::ReportWindow>())
    , m_session(session)
    , m_document(std::move(document))
    , m_preview(new PagePreview)
{
    ui->setupUi(this);
    setObjectName(m_document.definition.name);
    setWindowTitle(m_document.definition.caption);
    nameSections();
    ui->scrPages->setWidget(m_preview);
    ui->scrPages->viewport()->installEventFilter(this);
    ui->scrPages->setBackgroundRole(QPalette::Dark);
    InstallKeyFilter(ui->txtPage, KeyFilter::DigitsOnly);
    const QSignalBlocker quiet(ui->cboZoom);
    ui->cboZoom->addItem(u"Fit page"_s, fitPage);
    ui->cboZoom->addItem(u"Fit width"_s, fitWidth);
    for (int percent : {50, 75, 100, 125, 150, 200})
        ui->cboZoom->addItem(u"%1%"_s.arg(percent), percent);
    ui->cboZoom->setCurrentIndex(1);
    offerFirstLabel();
}

// A label sheet can start at any place of a part-used first sheet; other reports have no
// such choice.
void ReportWindow::offerFirstLabel()
{
    const ReportDefinition &report = m_document.definition;
    const int detail = report.sectionIndex(SectionKind::Detail);
    const bool labels = report.labelsAcross > 0 && detail >= 0;
    ui->lblFirstLabel->setVisible(labels);
    ui->spnFirstLabel->setVisible(labels);
    if (!labels)
        return;
    const int rowsPerSheet = std::max(
        1, int(report.printableRect().height() / report.sections.at(detail).height));
    const QSignalBlocker quiet(ui->spnFirstLabel);
    ui->spnFirstLabel->setRange(1, rowsPerSheet * report.labelsAcross);
    ui->spnFirstLabel->setValue(report.firstLabel);
}

ReportWindow::~ReportWindow() = default;

// The window carries its sections and their controls as named objects, as designed.
void ReportWindow::nameSections()
{
    for (const ReportSection &section : m_document.definition.sections) {
        auto *sectionObject = new QObject(this);
        sectionObject->setObjectName(section.name);
        for (const ReportControl &control : section.controls)
            (new QObject(sectionObject))->setObjectName(control.name);
    }
}

ReportPaginator &ReportWindow::pages()
{
    if (!m_pages)
        activate();
    return *m_pages;
}

void ReportWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_followsActivation) {
        if (auto *frame = qobject_cast<QMdiSubWindow *>(parentWidget())) {
            connect(frame, &QMdiSubWindow::windowStateChanged, this,
                    [this](Qt::WindowStates, Qt::WindowStates now) {
                        if (now.testFlag(Qt::WindowActive))
                            RunHandler([this] { activate(); });
                    });
        }
        m_followsActivation = true;
    }
    RunHandler([this] { activate(); });
}

// Every activation gives the price box the session's format; the pages are laid out again
// only when that changes it.
void ReportWindow::activate()
{
    ReportDefinition &report = m_document.definition;
    if (m_pages && report.hasPriceFormat(m_session.strPriceFormat))
        return;
    report.applyPriceFormat(m_session.strPriceFormat);
    layOutAfresh();
}

void ReportWindow::layOutAfresh()
{
    m_pages = m_document.paginate();
    m_current = 0;
    refresh();
    QTimer::singleShot(0, this, &ReportWindow::layOutMorePages);
}

// The pages after the first are laid out a few at a time while the window is idle, so the
// first page shows at once and the page count follows soon after.
void ReportWindow::layOutMorePages()
{
    if (!m_pages)
        return;
    constexpr int pagesAtATime = 20;
    bool laidOut = false;
    RunHandler([this, &laidOut] {
        m_pages->page(m_pages->pagesLaidOut() + pagesAtATime - 1);
        laidOut = true;
    });
    updateControls();
    if (laidOut && !m_pages->isComplete())
        QTimer::singleShot(0, this, &ReportWindow::layOutMorePages);
}

void ReportWindow::showPageAt(int index)
{
    ReportPaginator &report = pages();
    if (!report.page(index))
        index = report.pagesLaidOut() - 1;
    m_current = std::max(0, index);
    refresh();
}

void ReportWindow::refresh()
{
    const ReportPage *page = pages().page(m_current);
    m_preview->showPage(page, page ? scaleFor(page->size) : 1);
    updateControls();
}

qreal ReportWindow::scaleFor(const QSizeF &pageSize) const
{
    const int zoom = ui->cboZoom->currentData().toInt();
    if (zoom > 0)
        return zoom / 100.0 * logicalDpiX() / Decipoints::PerInch;
    const QSize room = ui->scrPages->viewport()->size() - QSize(desk, desk);
    const qreal across = room.width() / pageSize.width();
    if (zoom == fitWidth)
        return std::max<qreal>(0.01, across - ui->scrPages->verticalScrollBar()->sizeHint().width()
                                                  / pageSize.width());
    return std::max<qreal>(0.01, std::min(across, room.height() / pageSize.height()));
}

void ReportWindow::updateControls()
{
    const ReportPaginator &report = *m_pages;
    const int laidOut = report.pagesLaidOut();
    ui->txtPage->setText(QString::number(m_current + 1));
    ui->lblPageCount->setText(report.isComplete() ? u"of %1"_s.arg(laidOut)
                                                  : u"of %1 or more"_s.arg(laidOut));
    const bool last = report.isComplete() && m_current == laidOut - 1;
    ui->cmdFirst->setEnabled(m_current > 0);
    ui->cmdPrevious->setEnabled(m_current > 0);
    ui->cmdNext->setEnabled(!last);
    ui->cmdLast->setEnabled(!last);
}

void ReportWindow::on_cmdFirst_clicked()
{
    showPageAt(0);
}

void ReportWindow::on_cmdPrevious_clicked()
{
    showPageAt(m_current - 1);
}

void ReportWindow::on_cmdNext_clicked()
{
    showPageAt(m_current + 1);
}

void ReportWindow::on_cmdLast_clicked()
{
    const WaitCursor waiting;
    showPageAt(pages().pageCount() - 1);
}

void ReportWindow::on_txtPage_returnPressed()
{
    const int typed = ui->txtPage->text().toInt();
    const WaitCursor waiting;
    showPageAt(std::max(1, typed) - 1);
}

void ReportWindow::on_cboZoom_currentIndexChanged(int)
{
    if (m_pages)
        refresh();
}

void ReportWindow::on_spnFirstLabel_valueChanged(int place)
{
    m_document.definition.firstLabel = place;
    RunHandler([this] { layOutAfresh(); });
}

bool ReportWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui->scrPages->viewport() && event->type() == QEvent::Resize && m_pages
        && ui->cboZoom->currentData().toInt() < 0)
        refresh();
    return QWidget::eventFilter(watched, event);
}

void ReportWindow::on_cmdPrint_clicked()
{
    PrintReport(this, pages());
}

void ReportWindow::on_cmdExport_clicked()
{
    ExportReportToPdf(this, pages());
}
