#include "reports/reportpage.h"

QStringList ReportPage::texts() const
{
    QStringList all;
    for (const PageItem &item : items) {
        if (item.kind == PageItem::Kind::Text)
            all.append(item.text);
    }
    return all;
}

QStringList ReportPage::textsOf(const QString &control) const
{
    QStringList found;
    for (const PageItem &item : items) {
        if (item.kind == PageItem::Kind::Text && item.control == control)
            found.append(item.text);
    }
    return found;
}
