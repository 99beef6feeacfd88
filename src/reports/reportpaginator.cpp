#include "reports/reportpaginator.h"

#include "data/recordset.h"
#include "reports/numberformat.h"
#include "reports/reportfont.h"

#include <QFontMetricsF>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal unbounded = 1e9;

bool isText(ControlKind kind)
{
    return kind != ControlKind::Shape && kind != ControlKind::Line;
}

PageItem::Kind itemKind(ControlKind kind)
{
    switch (kind) {
    case ControlKind::Shape:
        return PageItem::Kind::Rectangle;
    case ControlKind::Line:
        return PageItem::Kind::Line;
    default:
        return PageItem::Kind::Text;
    }
}

// Where a line of text starts across its box, for the box's alignment.
qreal alignedLeft(Qt::Alignment alignment, qreal boxWidth, qreal advance)
{
    if (alignment & Qt::AlignRight)
        return boxWidth - advance;
    if (alignment & Qt::AlignHCenter)
        return (boxWidth - advance) / 2;
    return 0;
}

QString styleKey(const TextStyle &style)
{
    return u"%1/%2/%3"_s.arg(style.size).arg(style.bold).arg(style.italic);
}

// How much each control grows (or, shrinking, gives back), and where that leaves the others:
// a control below a grown one moves down by its growth, one that encloses it stretches.
void applyGrowth(QList<PageItem> &items, const QList<qreal> &growth)
{
    const QList<PageItem> designed = items;
    for (qsizetype j = 0; j < items.size(); ++j) {
        const QRectF &own = designed[j].rect;
        qreal shift = 0;
        qreal stretch = growth[j];
        for (qsizetype i = 0; i < items.size(); ++i) {
            if (i == j || growth[i] == 0)
                continue;
            const QRectF &grown = designed[i].rect;
            if (grown.bottom() <= own.top() + 0.5)
                shift += growth[i];
            else if (own.top() <= grown.top() && grown.bottom() <= own.bottom() + 0.5)
                stretch += growth[i];
        }
        items[j].rect.translate(0, shift);
        items[j].rect.setHeight(std::max<qreal>(0, own.height() + stretch));
    }
}

} // namespace

ReportPaginator::ReportPaginator(ReportDefinition definition, std::unique_ptr<BandSource> bands,
                                 QDate printDate)
    : m_definition(std::move(definition))
    , m_bands(std::move(bands))
    , m_printDate(QLocale().toString(printDate, u"d MMMM yyyy"_s))
    , m_reportHeader(m_definition.sectionIndex(SectionKind::ReportHeader))
    , m_pageHeader(m_definition.sectionIndex(SectionKind::PageHeader))
    , m_pageFooter(m_definition.sectionIndex(SectionKind::PageFooter))
    , m_reportFooter(m_definition.sectionIndex(SectionKind::ReportFooter))
{
}

ReportPaginator::~ReportPaginator() = default;

const ReportPage *ReportPaginator::page(int index)
{
    while (index >= int(m_pages.size()) && layOutNextPage()) {
    }
    if (index < 0 || index >= int(m_pages.size()))
        return nullptr;
    return &m_pages[size_t(index)];
}

int ReportPaginator::pageCount()
{
    while (layOutNextPage()) {
    }
    return int(m_pages.size());
}

bool ReportPaginator::layOutNextPage()
{
    if (m_complete)
        return false;
    ReportPage page;
    page.number = int(m_pages.size()) + 1;
    page.size = m_definition.pageSize;
    page.printableRect = m_definition.printableRect();
    page.fontFamily = m_definition.fontFamily;
    const QRectF area = page.printableRect;

    Band footer;
    if (m_pageFooter >= 0)
        footer = layOut(m_pageFooter, nullptr, -1, page.number);
    const qreal bottom = area.bottom() - footer.height;
    qreal y = area.top();

    const bool frontPage = !m_reportHeaderDone && m_reportHeader >= 0;
    if (!frontPage && m_pageHeader >= 0) {
        const Band header = layOut(m_pageHeader, nullptr, -1, page.number);
        place(page, header, {area.left(), y});
        y += header.height;
    }
    const qreal contentTop = y;
    bool pageFull = false;
    if (frontPage) {
        const Band header = layOut(m_reportHeader, nullptr, -1, page.number);
        place(page, header, {area.left(), y});
        y += header.height;
        pageFull = m_definition.sections[m_reportHeader].pageBreakAfter;
    }
    m_reportHeaderDone = true;

    while (!pageFull) {
        const Band *band = peek(0);
        if (!band)
            break;
        qreal needed = band->height;
        if (m_definition.sections[band->section].keepWithNext) {
            if (const Band *following = peek(1))
                needed += following->height;
        }
        // On an empty page a band goes in whatever its height, or it would never be printed.
        if (y + needed > bottom && y > contentTop)
            break;
        const Band placed = take();
        place(page, placed, {area.left(), y});
        y += placed.height;
    }

    place(page, footer, {area.left(), bottom});
    m_pages.push_back(std::move(page));
    m_complete = !peek(0);
    return true;
}

const ReportPaginator::Band *ReportPaginator::peek(size_t ahead)
{
    while (m_ahead.size() <= ahead && !m_sourceDone) {
        if (const std::optional<BandRow> row = m_bands->next()) {
            m_ahead.push_back(layOut(row->section, row->records, row->row, 0));
        } else {
            m_sourceDone = true;
            if (m_reportFooter >= 0)
                m_ahead.push_back(layOut(m_reportFooter, nullptr, -1, 0));
        }
    }
    return ahead < m_ahead.size() ? &m_ahead[ahead] : nullptr;
}

ReportPaginator::Band ReportPaginator::take()
{
    Band band = std::move(m_ahead.front());
    m_ahead.pop_front();
    return band;
}

void ReportPaginator::place(ReportPage &page, const Band &band, QPointF at)
{
    for (PageItem item : band.items) {
        item.rect.translate(at);
        page.items.append(std::move(item));
    }
}

ReportPaginator::Band ReportPaginator::layOut(int sectionIndex, const Recordset *records,
                                              int row, int pageNumber)
{
    const ReportSection &section = m_definition.sections[sectionIndex];
    Band band;
    band.section = sectionIndex;
    band.items.reserve(section.controls.size());
    QList<qreal> growth(section.controls.size(), 0);
    QList<qsizetype> absent;
    for (qsizetype i = 0; i < section.controls.size(); ++i) {
        const ReportControl &control = section.controls[i];
        if (!control.presentWith.isEmpty() && !hasValue(records, row, control.presentWith))
            absent.append(i);
        PageItem item;
        item.kind = itemKind(control.kind);
        item.rect = control.rect;
        item.style = control.style;
        item.lineWidth = control.lineWidth;
        item.section = section.name;
        item.control = control.name;
        if (isText(control.kind)) {
            const QString text = textOf(control, records, row, pageNumber);
            const QFontMetricsF &fm = metrics(control.style);
            const qreal width = control.rect.width();
            qreal advance = fm.horizontalAdvance(text);
            if (text.isEmpty() && control.canShrink) {
                growth[i] = -control.rect.height();
            } else if (control.canGrow) {
                item.wraps = text.contains(u'\n') || advance > width;
                const qreal needed = item.wraps ? fm.boundingRect(QRectF(0, 0, width, unbounded),
                                                                  Qt::TextWordWrap | control.style.alignment,
                                                                  text).height()
                                                : fm.height();
                growth[i] = std::max<qreal>(0, needed - control.rect.height());
                item.text = text;
            } else {
                item.text = advance > width ? fm.elidedText(text, Qt::ElideRight, width) : text;
                advance = fm.horizontalAdvance(item.text);
            }
            item.textOrigin = QPointF(alignedLeft(control.style.alignment, width, advance),
                                      fm.ascent());
        }
        band.items.append(std::move(item));
    }
    applyGrowth(band.items, growth);
    for (auto index = absent.crbegin(); index != absent.crend(); ++index)
        band.items.removeAt(*index);
    qreal total = section.height;
    for (qreal grown : growth)
        total += grown;
    band.height = std::max<qreal>(0, total);
    // A shrunk text leaves nothing to print.
    band.items.removeIf([](const PageItem &item) {
        return item.kind == PageItem::Kind::Text && item.text.isEmpty();
    });
    return band;
}

bool ReportPaginator::hasValue(const Recordset *records, int row, const QString &field)
{
    if (!records)
        return false;
    const int index = records->fieldIndex(field);
    return index >= 0 && !records->valueAt(row, index).isNull();
}

QString ReportPaginator::textOf(const ReportControl &control, const Recordset *records, int row,
                                int pageNumber) const
{
    switch (control.kind) {
    case ControlKind::Label:
        return control.caption;
    case ControlKind::PageNumber:
        return QString::number(pageNumber);
    case ControlKind::PrintDate:
        return control.caption + m_printDate;
    case ControlKind::TextBox: {
        if (!records)
            return {};
        const int field = records->fieldIndex(control.field);
        if (field < 0)
            throw ProviderError::general(ProviderErrorNumber::ItemNotFound,
                                         u"Data field '%1' not found"_s.arg(control.field));
        return FormatNumber(records->valueAt(row, field), control.format);
    }
    default:
        return {};
    }
}

const QFontMetricsF &ReportPaginator::metrics(const TextStyle &style)
{
    const QString key = styleKey(style);
    auto found = m_metrics.constFind(key);
    if (found == m_metrics.cend())
        found = m_metrics.insert(key, std::make_shared<QFontMetricsF>(
                                          ReportFont(m_definition.fontFamily, style)));
    return **found;
}
