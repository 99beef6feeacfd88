#pragma once

#include <QWidget>

struct ReportPage;

// One report page on screen, drawn at a scale (screen pixels per decipoint) on a grey
// desk, as it will print.
class PagePreview : public QWidget
{
    Q_OBJECT

public:
    explicit PagePreview(QWidget *parent = nullptr);

    // The page stays owned by the caller and must outlive its showing here.
    void showPage(const ReportPage *page, qreal scale);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRectF sheet() const;

    const ReportPage *m_page = nullptr;
    qreal m_scale = 1;
};
