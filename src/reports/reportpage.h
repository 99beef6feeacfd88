#pragma once

#include "reports/reportdefinition.h"

#include <QList>
#include <QRectF>
#include <QString>

// One thing printed on a page, where it goes and what it says, already laid out: painting
// needs nothing else, and tests read pages without a device.
struct PageItem
{
    enum class Kind { Text, Rectangle, Line };

    Kind kind = Kind::Text;
    QRectF rect; // on the page, in decipoints
    QString text;
    // Where a text of one line starts, from the top left of rect, at its baseline; a text
    // that wraps is drawn into rect instead.
    bool wraps = false;
    QPointF textOrigin;
    TextStyle style;
    qreal lineWidth = 0;
    QString section;
    QString control;
};

struct ReportPage
{
    int number = 0; // from 1
    QSizeF size;
    QRectF printableRect;
    QString fontFamily;
    QList<PageItem> items;

    QStringList texts() const;
    // The texts a control printed on this page, in order.
    QStringList textsOf(const QString &control) const;
};
