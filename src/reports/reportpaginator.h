#pragma once

#include "reports/bandsource.h"
#include "reports/reportdefinition.h"
#include "reports/reportpage.h"
#include "reports/textmeasure.h"

#include <QDate>
#include <QList>

#include <deque>
#include <memory>
#include <unordered_map>

// Lays a report's sections out into pages, one page at a time and only as far as asked:
// the first page of a long catalogue is ready without the rest. A section is never split
// over two pages; a group heading moves to the next page with the first entry beneath it,
// and one marked so is printed again, continued, on each page its group runs onto; the
// report header fills the first page; page header and footer frame every page after it
// (the footer also the first), the header's running head naming the page's first and last
// entry.
class ReportPaginator
{
public:
    ReportPaginator(ReportDefinition definition, std::unique_ptr<BandSource> bands,
                    QDate printDate);
    ~ReportPaginator();

    const ReportDefinition &definition() const { return m_definition; }

    // The page at `index` (from 0), laying out the pages before it first; nullptr when the
    // report has fewer pages.
    const ReportPage *page(int index);
    int pagesLaidOut() const { return int(m_pages.size()); }
    // Whether every page has been laid out, so that pagesLaidOut() is the page count.
    bool isComplete() const { return m_complete; }
    // Lays out every page.
    int pageCount();
    // A device that takes the pages in order needs those it has taken no more: their items
    // are freed, and page() gives them no longer.
    void releasePagesBefore(int index);

private:
    struct Band
    {
        int section = -1;
        qreal height = 0;
        QList<PageItem> items; // placed at the section's top left
        // The value the page header's running head reads from this band's row.
        QString running;
        // A heading printed again on the pages its group runs onto: this one, continued.
        std::shared_ptr<const Band> continued;
    };
    // The field each control of a section reads, and the one it is present with, in rows
    // with these field names; -1 for none.
    struct Fields
    {
        QStringList names;
        QList<int> value;
        QList<int> presence;
        int running = -1;
    };
    // What a section's texts may say besides its row's fields.
    struct Printing
    {
        int pageNumber = 0;
        QString runningHead = {};
        bool continued = false;
    };

    bool layOutNextPage();
    void placeContinuedHeading(ReportPage &page, qreal &y);
    Band layOut(int section, const Recordset *records, int row, const Printing &printing);
    static QString runningHead(const QStringList &values);
    void standBefore(const ReportSection &section, QList<PageItem> &items);
    QString textOf(const ReportControl &control, const Recordset *records, int row, int field,
                   const Printing &printing) const;
    const Band *peek(size_t ahead);
    Band take();
    // Puts a band's items on a page, the band's top left at `at`.
    static void place(QList<PageItem> &onto, QList<PageItem> items, QPointF at);
    const Fields &fieldsOf(int section, const Recordset &records);

    ReportDefinition m_definition;
    std::unique_ptr<BandSource> m_bands;
    QString m_printDate;
    int m_reportHeader, m_pageHeader, m_pageFooter, m_reportFooter;
    QString m_runningField; // the field the page header's running head reads; empty: none
    bool m_reportHeaderDone = false;
    bool m_sourceDone = false;
    bool m_complete = false;
    std::deque<Band> m_ahead;
    // The heading of the group being printed, while it asks to be continued, and the section
    // that ends its group.
    std::shared_ptr<const Band> m_openHeading;
    int m_headingEnd = -1;
    // A deque, so that pages handed out stay where they are while more are laid out.
    std::deque<ReportPage> m_pages;
    int m_released = 0; // pages before this one have been released
    TextMeasure m_measure;
    std::unordered_map<int, Fields> m_fields; // by section
};
