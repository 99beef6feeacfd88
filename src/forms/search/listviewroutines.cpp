#include "forms/search/listviewroutines.h"

#include "data/moneyreader.h"
#include "forms/search/booklistingmodel.h"

#include <QDate>
#include <QHeaderView>
#include <QLocale>
#include <QStyle>
#include <QTreeView>

#include <algorithm>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// The room left around a column's text (about 200 twips at 96 dots per inch).
constexpr int TextPadding = 13;

BookListingModel &listingOf(const QTreeView *list)
{
    return *qobject_cast<BookListingModel *>(list->model());
}

// What a shown text stands for: an amount as the locale shows money, or a date; 0 when it
// stands for nothing. The locale's marks are looked up once for all rows.
class ShownValue
{
public:
    explicit ShownValue(bool isDate)
        : m_isDate(isDate)
    {
    }

    double operator()(const QString &text) const
    {
        if (m_isDate)
            return m_locale.toDate(text, QLocale::ShortFormat).toJulianDay();
        return m_amount(text).value_or(0);
    }

private:
    QLocale m_locale;
    bool m_isDate;
    MoneyReader m_amount{m_locale};
};

// The first column also holds the check box.
int checkBoxRoom(const QTreeView *list)
{
    const QStyle *style = list->style();
    return style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, list)
        + style->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, list);
}

// Sizes texts of the list as drawn. Laying out each of thousands of texts is slow, so every
// text is first sized by the sum of its characters' advances, which comes within a few
// pixels of its drawn width; only the widest few by that are laid out.
class TextWidths
{
public:
    explicit TextWidths(const QFontMetrics &metrics)
        : m_metrics(metrics)
        , m_advances(std::numeric_limits<char16_t>::max() + 1, -1)
    {
    }

    int widest(const BookListingModel &rows, int column)
    {
        constexpr int LaidOut = 32;
        std::vector<std::pair<int, int>> estimates; // estimate, row
        estimates.reserve(rows.rowCount());
        for (int row = 0; row < rows.rowCount(); ++row)
            estimates.emplace_back(estimate(rows.text(row, column)), row);
        const auto widestFew = estimates.begin() + std::min<qsizetype>(LaidOut, estimates.size());
        std::partial_sort(estimates.begin(), widestFew, estimates.end(),
                          [](const auto &a, const auto &b) { return a.first > b.first; });
        int widest = 0;
        for (auto candidate = estimates.begin(); candidate != widestFew; ++candidate) {
            const int drawn = m_metrics.horizontalAdvance(rows.text(candidate->second, column));
            widest = std::max(widest, drawn);
        }
        return widest;
    }

private:
    int estimate(const QString &text)
    {
        int width = 0;
        for (const QChar character : text) {
            int &advance = m_advances[character.unicode()];
            if (advance < 0)
                advance = m_metrics.horizontalAdvance(character);
            width += advance;
        }
        return width;
    }

    QFontMetrics m_metrics;
    std::vector<int> m_advances; // by UTF-16 code unit; -1 until asked for
};

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
    const BookListingModel &rows = listingOf(list);
    TextWidths widths(list->fontMetrics());
    const QFontMetrics headerMetrics = list->header()->fontMetrics();
    for (int column = 0; column < BookColumn::Count; ++column) {
        if (column == BookColumn::Title)
            continue;
        int width = rows.rowCount() > 0 ? widths.widest(rows, column) + TextPadding : 0;
        if (includeHeaders) {
            const QString header = BookListingModel::headers().at(column);
            width = std::max(width, headerMetrics.horizontalAdvance(header) + TextPadding);
        }
        if (column == BookColumn::Author)
            width += checkBoxRoom(list);
        list->setColumnWidth(column, width);
    }
}
