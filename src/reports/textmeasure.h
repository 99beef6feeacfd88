#pragma once

#include "reports/reportdefinition.h"

#include <QFontMetricsF>
#include <QHash>
#include <QString>

#include <unordered_map>

// The widths of texts in a report's fonts, one set of metrics for each look of text, and the
// widths of the texts that come again and again (captions, names, places, topics) measured
// once: a label sheet prints the same few thousand texts hundreds of thousands of times.
class TextMeasure
{
public:
    explicit TextMeasure(const QString &family);

    const QFontMetricsF &metrics(const TextStyle &style);
    qreal advance(const TextStyle &style, const QString &text);

private:
    struct Look
    {
        QFontMetricsF metrics;
        QHash<QString, qreal> advances;
    };

    Look &look(const TextStyle &style);

    QString m_family;
    std::unordered_map<quint64, Look> m_looks;
};
