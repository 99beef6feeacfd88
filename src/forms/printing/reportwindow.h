#pragma once

#include "reports/reportdocument.h"

#include <QWidget>

#include <memory>

namespace Ui {
class ReportWindow;
}
class PagePreview;
class ReportPaginator;
struct Session;

// A report window (the listings DataReport1 to DataReport3, the labels DataReport4 and
// DataReport5): one report shown a page at a time, laid out only as far as the pages looked
// at, with the report viewer's own page buttons, zoom, Print and Export to PDF. The price
// format is taken from the session each time the window becomes active.
class ReportWindow : public QWidget
{
    Q_OBJECT

public:
    ReportWindow(const Session &session, ReportDocument document, QWidget *parent = nullptr);
    ~ReportWindow() override;

    // The pages as laid out for this window; its printing and export use them too.
    ReportPaginator &pages();
    int currentPage() const { return m_current; }
    void showPageAt(int index);

private Q_SLOTS:
    void on_cmdFirst_clicked();
    void on_cmdPrevious_clicked();
    void on_cmdNext_clicked();
    void on_cmdLast_clicked();
    void on_txtPage_returnPressed();
    void on_cboZoom_currentIndexChanged(int index);
    void on_spnFirstLabel_valueChanged(int place);
    void on_cmdPrint_clicked();
    void on_cmdExport_clicked();

protected:
    void showEvent(QShowEvent *event) override;
    // Follows the preview's viewport: a page fitted to the window is fitted again.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void activate();
    void offerFirstLabel();
    void layOutAfresh();
    void layOutMorePages();
    void nameSections();
    void refresh();
    qreal scaleFor(const QSizeF &pageSize) const;
    void updateControls();

    std::unique_ptr<Ui::ReportWindow> ui;
    const Session &m_session;
    ReportDocument m_document;
    std::unique_ptr<ReportPaginator> m_pages;
    PagePreview *m_preview;
    int m_current = 0;
    bool m_followsActivation = false;
};
