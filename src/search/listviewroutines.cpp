#include "search/listviewroutines.h"

#include "search/booklistingmodel.h"

#include <QDate>
#include <QHash>
#include <QHeaderView>
#include <QLocale>
#include <QStyle>
#include <QTreeView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The room left around a column's text (about 200 twips at 96 dots per inch).
constexpr int TextPadding = 13;

BookListingModel &listingOf(const QTreeView *list)
{
    return *qobject_cast<BookListingModel *>(list->model());
}

// What a shown text stands for, written with the locale's symbols (an amount may carry the
// currency symbol and group separators); 0 when it stands for nothing. The symbols are looked
// up once for all rows, and the plain number left is read without the locale, which is many
// times quicker for a list of thousands.
class ShownValue
{
public:
    explicit ShownValue(bool isDate)
        : m_isDate(isDate)
        , m_currencySymbol(m_locale.currencySymbol())
        , m_groupSeparator(m_locale.groupSeparator())
        , m_decimalPoint(m_locale.decimalPoint())
    {
    }

    double operator()(QString text) const
    {
        if (m_isDate)
            return m_locale.toDate(text, QLocale::ShortFormat).toJulianDay();
        text.remove(m_currencySymbol).remove(m_groupSeparator).replace(m_decimalPoint, u"."_s);
        return text.trimmed().toDouble();
    }

private:
    QLocale m_locale;
    bool m_isDate;
    QString m_currencySymbol;
    QString m_groupSeparator;
    QString m_decimalPoint;
};

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
    listingOf(list).sortByValue(column, ShownValue(isDate), order);
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
