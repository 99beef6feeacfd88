#pragma once

#include <QRectF>

class QPainter;
struct ReportPage;

// Paints a laid-out page into `target` (in the painter's coordinates), scaled to fill it:
// the preview, a printer's sheet and a PDF page all get the same picture.
void PaintPage(QPainter &painter, const ReportPage &page, const QRectF &target);
