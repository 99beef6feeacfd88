#include "search/listviewroutines.h"

#include "data/fieldformat.h"
#include "search/booklistingmodel.h"

#include <QDate>
#include <QHash>
#include <QHeaderView>
#include <QLocale>
#include <QStyle>
#include <QTreeView>

#include <algorithm>

namespace {

// The room left around a column's text (about 200 twips at 96 dots per inch).
constexpr int TextPadding = 13;

BookListingModel &listingOf(const QTreeView *list)
{
    return *qobject_cast<BookListingModel *>(list->model());
}

// What a shown text stands for; 0 when it stands for nothing.
double valueOf(const QString &text, bool isDate)
{
    if (isDate)
        return QLocale().toDate(text, QLocale::ShortFormat).toJulianDay();
    return FieldFormats::parse(text, FieldFormat::Money).toDouble();
}

// The first column also holds the check box.
int checkBoxRoom(const QTreeView *list)
{
    const QStyle *style = list->style();
    return style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, list)
        + style->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, list);
}

int widestText(const QTreeView *list, int column, bool includeHeaders)
{
    const BookListingModel &rows = listingOf(list);
    const QFontMetrics metrics = list->fontMetrics();
    int widest = includeHeaders
        ? list->header()->fontMetrics().horizontalAdvance(BookListingModel::headers().at(column))
            + TextPadding
        : 0;
    // Many rows share a text (a condition, a publisher): each is measured once.
    QHash<QString, int> measured;
    for (int row = 0; row < rows.rowCount(); ++row) {
        const QString text = rows.text(row, column);
        auto width = measured.constFind(text);
        if (width == measured.cend())
            width = measured.insert(text, metrics.horizontalAdvance(text) + TextPadding);
        widest = std::max(widest, width.value());
    }
    return widest;
}

} // namespace

void ListViewSortOnNonStringField(QTreeView *list, int column, Qt::SortOrder order, bool isDate)
{
    // Hidden while the rows move, so that no half-sorted state is drawn.
    list->setUpdatesEnabled(false);
    BookListingModel &rows = listingOf(list);
    QList<double> values;
    values.reserve(rows.rowCount());
    for (int row = 0; row < rows.rowCount(); ++row)
        values.append(valueOf(rows.text(row, column), isDate));
    rows.sortByValue(values, order);
    list->setUpdatesEnabled(true);
}

void ListViewAdjustColumnWidth(QTreeView *list, bool includeHeaders)
{
    for (int column = 0; column < BookColumn::Count; ++column) {
        if (column == BookColumn::Title)
            continue;
        int width = widestText(list, column, includeHeaders);
        if (column == BookColumn::Author)
            width += checkBoxRoom(list);
        list->setColumnWidth(column, width);
    }
}
