#include "reports/reportpaginator.h"

#include "data/recordset.h"
#include "reports/numberformat.h"

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

// How much each control grows (or, shrinking, gives back), and where that leaves the others:
// a control below a grown one moves down by its growth, one that encloses it stretches.
void applyGrowth(QList<PageItem> &items, const QList<qreal> &growth)
{
    if (std::all_of(growth.cbegin(), growth.cend(), [](qreal grown) { return grown == 0; }))
        return;
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

// Whether one of the controls that `control` introduces has something to print: more than
// blanks.
bool introducesSomething(const ReportControl &control, const QList<PageItem> &items)
{
    for (const PageItem &item : items) {
        if (item.kind == PageItem::Kind::Text && control.shownWith.contains(item.control)
            && !item.text.trimmed().isEmpty())
            return true;
    }
    return false;
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
    , m_measure(m_definition.fontFamily)
{
    if (m_pageHeader >= 0) {
        for (const ReportControl &control : m_definition.sections[m_pageHeader].controls) {
            if (control.kind == ControlKind::RunningHead)
                m_runningField = control.field;
        }
    }
}

ReportPaginator::~ReportPaginator() = default;

const ReportPage *ReportPaginator::page(int index)
{
    while (index >= int(m_pages.size()) && layOutNextPage()) {
    }
    if (index < m_released || index >= int(m_pages.size()))
        return nullptr;
    return &m_pages[size_t(index)];
}

int ReportPaginator::pageCount()
{
    while (layOutNextPage()) {
    }
    return int(m_pages.size());
}

void ReportPaginator::releasePagesBefore(int index)
{
    for (; m_released < std::min(index, int(m_pages.size())); ++m_released)
        m_pages[size_t(m_released)].items = QList<PageItem>();
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
        footer = layOut(m_pageFooter, nullptr, -1, Printing{.pageNumber = page.number});
    const qreal bottom = area.bottom() - footer.height;
    qreal y = area.top();

    const bool frontPage = !m_reportHeaderDone && m_reportHeader >= 0;
    // The page header's room is kept now; what its running head says is known only once the
    // page's entries are in place.
    const bool headed = !frontPage && m_pageHeader >= 0;
    if (headed)
        y += layOut(m_pageHeader, nullptr, -1, Printing{.pageNumber = page.number}).height;
    bool pageFull = false;
    if (frontPage) {
        const Band header =
            layOut(m_reportHeader, nullptr, -1, Printing{.pageNumber = page.number});
        place(page.items, header.items, {area.left(), y});
        y += header.height;
        pageFull = m_definition.sections[m_reportHeader].pageBreakAfter;
    }
    m_reportHeaderDone = true;
    if (!pageFull)
        placeContinuedHeading(page, y);

    const qreal contentTop = y;
    QStringList running; // the running head's values of the page's entries
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
        Band placed = take();
        if (!placed.running.isEmpty())
            running.append(placed.running);
        place(page.items, std::move(placed.items), {area.left(), y});
        y += placed.height;
    }

    if (headed) {
        const Printing printing{.pageNumber = page.number, .runningHead = runningHead(running)};
        QList<PageItem> header;
        place(header, layOut(m_pageHeader, nullptr, -1, printing).items, area.topLeft());
        page.items = header + page.items;
    }
    place(page.items, std::move(footer.items), {area.left(), bottom});
    m_pages.push_back(std::move(page));
    m_complete = !peek(0);
    return true;
}

// A page that goes on with the group of the page before it opens with that group's heading,
// marked as continued, unless all that is left of the group is its footer.
void ReportPaginator::placeContinuedHeading(ReportPage &page, qreal &y)
{
    if (!m_openHeading)
        return;
    const Band *next = peek(0);
    if (!next || next->section == m_headingEnd)
        return;
    place(page.items, m_openHeading->items, {page.printableRect.left(), y});
    y += m_openHeading->height;
}

// The first and last value of the running head's field among the page's entries, as a
// dictionary heads its pages; one value when they are the same.
QString ReportPaginator::runningHead(const QStringList &values)
{
    if (values.isEmpty())
        return {};
    const QString &first = values.constFirst();
    const QString &last = values.constLast();
    return first == last ? first : first + u" \u2013 "_s + last;
}

const ReportPaginator::Band *ReportPaginator::peek(size_t ahead)
{
    while (m_ahead.size() <= ahead && !m_sourceDone) {
        if (const std::optional<BandRow> row = m_bands->next()) {
            Band band = layOut(row->section, row->records, row->row, Printing{});
            if (!m_definition.sections[row->section].continuedUntil.isEmpty()) {
                band.continued = std::make_shared<const Band>(
                    layOut(row->section, row->records, row->row, Printing{.continued = true}));
            }
            m_ahead.push_back(std::move(band));
        } else {
            m_sourceDone = true;
            if (m_reportFooter >= 0)
                m_ahead.push_back(layOut(m_reportFooter, nullptr, -1, Printing{}));
        }
    }
    return ahead < m_ahead.size() ? &m_ahead[ahead] : nullptr;
}

ReportPaginator::Band ReportPaginator::take()
{
    Band band = std::move(m_ahead.front());
    m_ahead.pop_front();
    if (band.continued) {
        m_openHeading = band.continued;
        m_headingEnd = m_definition.sectionIndex(m_definition.sections[band.section].continuedUntil);
    } else if (band.section == m_headingEnd) {
        m_openHeading.reset();
        m_headingEnd = -1;
    }
    return band;
}

void ReportPaginator::place(QList<PageItem> &onto, QList<PageItem> items, QPointF at)
{
    for (PageItem &item : items)
        item.rect.translate(at);
    onto.append(std::move(items));
}

ReportPaginator::Band ReportPaginator::layOut(int sectionIndex, const Recordset *records,
                                              int row, const Printing &printing)
{
    const ReportSection &section = m_definition.sections[sectionIndex];
    const Fields *fields = records ? &fieldsOf(sectionIndex, *records) : nullptr;
    Band band;
    band.section = sectionIndex;
    band.items.reserve(section.controls.size());
    QList<qreal> growth(section.controls.size(), 0);
    QList<bool> leftOut(section.controls.size(), false);
    for (qsizetype i = 0; i < section.controls.size(); ++i) {
        const ReportControl &control = section.controls[i];
        if (!control.presentWith.isEmpty()) {
            const int presence = fields ? fields->presence[i] : -1;
            leftOut[i] = presence < 0 || records->valueAt(row, presence).isNull();
        }
        PageItem item;
        item.kind = itemKind(control.kind);
        item.rect = control.rect;
        item.style = control.style;
        item.lineWidth = control.lineWidth;
        item.section = section.name;
        item.control = control.name;
        if (isText(control.kind)) {
            QString text = textOf(control, records, row, fields ? fields->value[i] : -1, printing);
            if (printing.continued)
                text += control.whenContinued;
            const QFontMetricsF &fm = m_measure.metrics(control.style);
            const qreal width = control.rect.width();
            qreal advance = m_measure.advance(control.style, text);
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
            } else if (advance > width) {
                item.text = fm.elidedText(text, Qt::ElideRight, width);
                advance = fm.horizontalAdvance(item.text);
            } else {
                item.text = text;
            }
            item.textOrigin = QPointF(alignedLeft(control.style.alignment, width, advance),
                                      fm.ascent());
        }
        band.items.append(std::move(item));
    }
    applyGrowth(band.items, growth);
    standBefore(section, band.items);
    for (qsizetype i = 0; i < section.controls.size(); ++i) {
        if (!section.controls[i].shownWith.isEmpty())
            leftOut[i] = leftOut[i] || !introducesSomething(section.controls[i], band.items);
    }
    for (qsizetype i = leftOut.size() - 1; i >= 0; --i) {
        if (leftOut[i])
            band.items.removeAt(i);
    }
    qreal total = section.height;
    for (qreal grown : growth)
        total += grown;
    band.height = std::max<qreal>(0, total);
    // A shrunk text leaves nothing to print.
    band.items.removeIf([](const PageItem &item) {
        return item.kind == PageItem::Kind::Text && item.text.isEmpty();
    });
    if (fields && fields->running >= 0)
        band.running = records->valueAt(row, fields->running).toString();
    return band;
}

// Where a section's controls find their fields: looked up by name once for each kind of row,
// not for every control of every row.
const ReportPaginator::Fields &ReportPaginator::fieldsOf(int sectionIndex, const Recordset &records)
{
    Fields &fields = m_fields[sectionIndex];
    const QStringList names = records.fieldNames();
    if (fields.names == names && !fields.value.isEmpty())
        return fields;
    fields.names = names;
    fields.value.clear();
    fields.presence.clear();
    for (const ReportControl &control : m_definition.sections[sectionIndex].controls) {
        fields.value.append(control.field.isEmpty() ? -1 : records.fieldIndex(control.field));
        fields.presence.append(control.presentWith.isEmpty() ? -1
                                                             : records.fieldIndex(control.presentWith));
    }
    fields.running = m_runningField.isEmpty() ? -1 : records.fieldIndex(m_runningField);
    return fields;
}

// Moves each caption that stands before another control so that its text ends where that
// control's text begins.
void ReportPaginator::standBefore(const ReportSection &section, QList<PageItem> &items)
{
    for (qsizetype i = 0; i < section.controls.size(); ++i) {
        const QString &target = section.controls[i].standsBefore;
        if (target.isEmpty())
            continue;
        PageItem &caption = items[i];
        for (const PageItem &other : std::as_const(items)) {
            if (other.control != target || other.wraps)
                continue;
            const qreal captionEnd = caption.rect.left() + caption.textOrigin.x()
                                     + m_measure.advance(caption.style, caption.text);
            caption.rect.translate(other.rect.left() + other.textOrigin.x() - captionEnd, 0);
            break;
        }
    }
}

QString ReportPaginator::textOf(const ReportControl &control, const Recordset *records, int row,
                                int field, const Printing &printing) const
{
    switch (control.kind) {
    case ControlKind::Label:
        return control.caption;
    case ControlKind::PageNumber:
        return QString::number(printing.pageNumber);
    case ControlKind::PrintDate:
        return control.caption + m_printDate;
    case ControlKind::RunningHead:
        return printing.runningHead;
    case ControlKind::TextBox: {
        if (!records)
            return {};
        if (field < 0)
            throw ProviderError::general(ProviderErrorNumber::ItemNotFound,
                                         u"Data field '%1' not found"_s.arg(control.field));
        return FormatNumber(records->valueAt(row, field), control.format);
    }
    default:
        return {};
    }
}

