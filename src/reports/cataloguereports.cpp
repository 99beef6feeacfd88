#include "reports/cataloguereports.h"

#include "data/recordset.h"
#include "data/shape.h"
#include "reports/dataenvironment.h"
#include "reports/frontpage.h"

#include <QPageSize>

using namespace Qt::StringLiterals;
using Decipoints::fromMillimetres;

namespace {

constexpr qreal pt = Decipoints::PerPoint;
const QColor secondaryInk(0x3c, 0x3c, 0x3c);
const QColor quietInk(0x6e, 0x6e, 0x6e);

QSizeF a4()
{
    return QPageSize(QPageSize::A4).size(QPageSize::Point) * pt;
}

const QMarginsF pageMargins(fromMillimetres(20), fromMillimetres(18), fromMillimetres(20),
                            fromMillimetres(15));
const qreal width = a4().width() - pageMargins.left() - pageMargins.right();

TextStyle style(qreal points, bool bold = false, bool italic = false,
                Qt::Alignment alignment = Qt::AlignLeft, QColor colour = Qt::black)
{
    return TextStyle{points * pt, bold, italic, alignment | Qt::AlignTop, colour};
}

ReportControl label(const QString &name, const QString &caption, QRectF rect, TextStyle look)
{
    ReportControl control;
    control.name = name;
    control.caption = caption;
    control.rect = rect;
    control.style = look;
    return control;
}

ReportControl textBox(const QString &name, const QString &field, QRectF rect, TextStyle look)
{
    ReportControl control = label(name, {}, rect, look);
    control.kind = ControlKind::TextBox;
    control.field = field;
    return control;
}

ReportControl growing(ReportControl control, bool shrinks)
{
    control.canGrow = true;
    control.canShrink = shrinks;
    return control;
}

ReportControl outline(const QString &name, ControlKind kind, QRectF rect, qreal lineWidth,
                      QColor colour = Qt::black)
{
    ReportControl control;
    control.name = name;
    control.kind = kind;
    control.rect = rect;
    control.lineWidth = lineWidth;
    control.style.colour = colour;
    return control;
}

ReportControl furniture(const QString &name, ControlKind kind, const QString &caption,
                        QRectF rect, TextStyle look)
{
    ReportControl control = label(name, caption, rect, look);
    control.kind = kind;
    return control;
}

// A framed title page: the catalogue's name, the listing, and who owns the collection.
ReportSection frontPage(const QString &title)
{
    const qreal height = a4().height() - pageMargins.top() - pageMargins.bottom() - 40 * pt;
    const qreal inset = 30 * pt;
    const qreal middle = width / 2;
    const QRectF line(inset, 0, width - 2 * inset, 20 * pt);
    auto centred = [&](qreal top, qreal lineHeight) {
        return QRectF(inset, top, width - 2 * inset, lineHeight);
    };
    ReportSection section{.name = u"FrontPage"_s, .kind = SectionKind::ReportHeader,
                          .height = height, .pageBreakAfter = true};
    QList<ReportControl> &c = section.controls;
    c.append(growing(label(u"lblTitle"_s, u"Title"_s, centred(150 * pt, 40 * pt),
                           style(28, true, false, Qt::AlignHCenter)), false));
    c.append(label(u"lblName"_s, u"Name"_s, centred(390 * pt, 22 * pt),
                   style(15, false, false, Qt::AlignHCenter)));
    for (int i = 1; i <= 5; ++i) {
        c.append(label(u"lblAddr%1"_s.arg(i), u"Addr%1"_s.arg(i),
                       centred((420 + 17 * i) * pt, line.height()),
                       style(11, false, false, Qt::AlignHCenter, secondaryInk)));
    }
    c.append(label(u"lblPostCode"_s, u"PostCode"_s, centred(540 * pt, line.height()),
                   style(11, false, false, Qt::AlignHCenter, secondaryInk)));
    const QList<std::tuple<QString, QString, QString, QString>> contacts{
        {u"lblTelephoneCaption"_s, u"Telephone: "_s, u"lblTelephone"_s, u"Telephone1"_s},
        {u"lblFaxCaption"_s, u"Fax:"_s, u"lblFax"_s, u"Fax"_s},
        {u"lblEmailCaption"_s, u"E-mail: "_s, u"lblEmail"_s, u"Email"_s}};
    qreal top = 580 * pt;
    for (const auto &[captionName, caption, valueName, design] : contacts) {
        c.append(label(captionName, caption, QRectF(inset, top, middle - inset - 4 * pt, 16 * pt),
                       style(10, false, true, Qt::AlignRight, quietInk)));
        c.append(label(valueName, design, QRectF(middle + 4 * pt, top, middle - inset, 16 * pt),
                       style(10, false, false, Qt::AlignLeft, secondaryInk)));
        top += 16 * pt;
    }
    // Inset by half its line, so that the stroke too stays inside the printable area.
    c.append(outline(u"shpOuterFrame"_s, ControlKind::Shape,
                     QRectF(0.75 * pt, 0.75 * pt, width - 1.5 * pt, height - 1.5 * pt), 1.5 * pt));
    c.append(outline(u"shpInnerFrame"_s, ControlKind::Shape,
                     QRectF(5 * pt, 5 * pt, width - 10 * pt, height - 10 * pt), 0.5 * pt));
    c.append(outline(u"linTitleRule"_s, ControlKind::Line,
                     QRectF(middle - 60 * pt, 230 * pt, 120 * pt, 0), 0.75 * pt));
    c.append(label(u"lblReportTitle"_s, title, centred(245 * pt, 24 * pt),
                   style(16, false, true, Qt::AlignHCenter)));
    // The page's own additions say nothing without an owner: a catalogue whose owner's details
    // are empty has a front page of its name and the listing's only.
    const QStringList owner{u"lblName"_s, u"lblAddr1"_s, u"lblAddr2"_s, u"lblAddr3"_s,
                            u"lblAddr4"_s, u"lblAddr5"_s, u"lblPostCode"_s, u"lblTelephone"_s,
                            u"lblFax"_s, u"lblEmail"_s};
    c.append(label(u"lblCollectionOf"_s, u"the collection of"_s, centred(365 * pt, 16 * pt),
                   style(10, false, true, Qt::AlignHCenter, quietInk)));
    c.last().shownWith = owner;
    c.append(furniture(u"txtPrinted"_s, ControlKind::PrintDate, u"Printed "_s,
                       centred(height - 60 * pt, 16 * pt),
                       style(9, false, true, Qt::AlignHCenter, quietInk)));
    c.last().shownWith = owner;
    return section;
}

// The catalogue's name and the listing's; a listing whose entries stand under a name (the
// author listing) also heads each page, between the two, with the first and last of them.
ReportSection pageHeader(const QString &name, const QString &title, const QString &runningField)
{
    const qreal listing = runningField.isEmpty() ? 0.6 * width : 0.8 * width;
    const qreal catalogue = runningField.isEmpty() ? listing : 0.25 * width;
    ReportSection section{
        .name = name, .kind = SectionKind::PageHeader, .height = 30 * pt,
        .controls = {label(u"lblCatalogueName"_s, {}, QRectF(0, 0, catalogue, 14 * pt), style(9, true)),
                     label(u"lblListing"_s, title, QRectF(listing, 0, width - listing, 14 * pt),
                           style(9, false, true, Qt::AlignRight, secondaryInk)),
                     outline(u"linHeaderRule"_s, ControlKind::Line, QRectF(0, 17 * pt, width, 0),
                             0.75 * pt)}};
    if (!runningField.isEmpty()) {
        ReportControl head = furniture(u"txtRunningHead"_s, ControlKind::RunningHead, {},
                                       QRectF(catalogue, 0, listing - catalogue, 14 * pt),
                                       style(9, true, false, Qt::AlignHCenter));
        head.field = runningField;
        section.controls.append(head);
    }
    return section;
}

// One book: its title in bold, the lines of details beneath, the price and book number in a
// column at the right, in a light frame.
ReportSection bookEntry(const QString &name, const QString &designPriceFormat)
{
    const qreal column = width - 100 * pt;
    const qreal textWidth = column - 16 * pt;
    ReportControl price = textBox(u"txtBookPrice"_s, u"BookPrice"_s,
                                  QRectF(column, 6 * pt, 92 * pt, 14 * pt),
                                  style(10.5, true, false, Qt::AlignRight));
    price.format = designPriceFormat;
    ReportControl number = textBox(u"txtBookId"_s, u"Expr1"_s,
                                   QRectF(column, 21 * pt, 92 * pt, 12 * pt),
                                   style(8.5, false, false, Qt::AlignRight, quietInk));
    number.format = u"\"Book No. \"0"_s;
    return ReportSection{
        .name = name, .kind = SectionKind::Detail, .height = 50 * pt,
        .controls = {growing(textBox(u"txtBookDescription"_s, u"BookDets1"_s,
                         QRectF(8 * pt, 6 * pt, textWidth, 14 * pt), style(10.5, true)), false),
         price, number,
         growing(textBox(u"txtBookOtherDets"_s, u"BookDets2"_s,
                         QRectF(8 * pt, 21 * pt, textWidth, 12 * pt),
                         style(9, false, false, Qt::AlignLeft, secondaryInk)), true),
         growing(textBox(u"txtBookDet3"_s, u"BookDets3"_s,
                         QRectF(8 * pt, 33 * pt, textWidth, 11 * pt),
                         style(8.5, false, true, Qt::AlignLeft, quietInk)), true),
         outline(u"Shape1"_s, ControlKind::Shape, QRectF(0, 0, width, 47 * pt), 0.4 * pt,
                 QColor(0xb4, 0xb4, 0xb4))}};
}

// The date at the left; "Page: " and the number at the right, ending where the rule ends.
ReportSection pageFooter()
{
    const qreal top = 10 * pt;
    ReportControl page = label(u"lblPage"_s, u"Page: "_s,
                               QRectF(width - 110 * pt, top, 70 * pt, 12 * pt),
                               style(9, false, false, Qt::AlignRight));
    page.standsBefore = u"txtPageNumber"_s;
    return ReportSection{
        .name = u"PageFooter"_s, .kind = SectionKind::PageFooter, .height = 26 * pt,
        .controls = {outline(u"linFooterRule"_s, ControlKind::Line, QRectF(0, 4 * pt, width, 0),
                             0.5 * pt),
                     furniture(u"txtPrintDate"_s, ControlKind::PrintDate, {},
                               QRectF(0, top, width / 2, 12 * pt),
                               style(8, false, true, Qt::AlignLeft, quietInk)),
                     page,
                     furniture(u"txtPageNumber"_s, ControlKind::PageNumber, {},
                               QRectF(width - 40 * pt, top, 40 * pt, 12 * pt),
                               style(9, false, false, Qt::AlignRight))}};
}

ReportSection reportFooter(const QString &name)
{
    return ReportSection{
        .name = name, .kind = SectionKind::ReportFooter, .height = 40 * pt,
        .controls = {label(u"lblEndOfListing"_s, u"End of listing"_s,
                           QRectF(0, 16 * pt, width, 14 * pt),
                           style(9, false, true, Qt::AlignHCenter, quietInk))}};
}

// A topic's heading, printed again as "… (continued)" on each page its books run onto.
ReportSection topicHeading()
{
    ReportControl topic = growing(textBox(u"Text1"_s, u"TopicDescription"_s,
                                          QRectF(0, 12 * pt, width, 16 * pt), style(13, true)),
                                  false);
    topic.whenContinued = u" (continued)"_s;
    return ReportSection{
        .name = u"ByTopicDescription_Header"_s, .kind = SectionKind::GroupHeader,
        .height = 34 * pt,
        .controls = {topic, outline(u"linTopicRule"_s, ControlKind::Line,
                                    QRectF(0, 30 * pt, width, 0), 0.75 * pt)},
        .keepWithNext = true,
        .continuedUntil = u"ByTopicDescription_Footer"_s};
}

ReportSection emptySection(const QString &name, SectionKind kind, qreal height = 0)
{
    return ReportSection{.name = name, .kind = kind, .height = height};
}

} // namespace

const CatalogueListingInfo &ListingInfo(CatalogueListing listing)
{
    static const CatalogueListingInfo listings[] = {
        {u"DataReport1"_s, u"Listing by Title"_s, u"Main Book Listing"_s, u"cmdReport1"_s, {3, 2}},
        {u"DataReport2"_s, u"Listing by Author"_s, u"Listing by Author"_s, u"cmdReport2"_s, {3, 2}},
        {u"DataReport3"_s, u"Listing by Topic"_s, u"Listing by Topic"_s, u"ByTopicDescription"_s,
         {5, 2}},
    };
    return listings[int(listing)];
}

ReportDefinition CatalogueListingDefinition(CatalogueListing listing)
{
    const CatalogueListingInfo &info = ListingInfo(listing);
    ReportDefinition report;
    report.name = info.reportName;
    report.caption = info.caption;
    report.title = info.title;
    report.pageSize = a4();
    report.margins = pageMargins;
    report.priceBoxes = {info.priceBox};
    if (listing == CatalogueListing::ByTopic) {
        report.sections = {frontPage(info.title),
                           pageHeader(u"PageHeader"_s, info.title, {}),
                           topicHeading(),
                           emptySection(u"cmdReport3_Header"_s, SectionKind::GroupHeader),
                           bookEntry(u"cmdReport3Sub_Detail"_s, u"\"£\"#,##0.00"_s),
                           emptySection(u"cmdReport3_Footer"_s, SectionKind::GroupFooter),
                           emptySection(u"ByTopicDescription_Footer"_s, SectionKind::GroupFooter,
                                        8 * pt),
                           pageFooter(),
                           reportFooter(u"ReportFooter"_s)};
    } else {
        // The title listing was designed with a dollar format, the author listing with pounds;
        // activation replaces both.
        const QString designFormat = listing == CatalogueListing::ByTitle ? u"$#,##0.00"_s
                                                                          : u"\"£\"#,##0.00"_s;
        // The author listing prints a book under each of its authors; its running head says
        // whose books a page holds.
        const QString runningField = listing == CatalogueListing::ByAuthor ? u"ListedAuthor"_s
                                                                           : QString();
        report.sections = {frontPage(info.title),
                           pageHeader(u"Section2"_s, info.title, runningField),
                           bookEntry(u"BookLine"_s, designFormat), pageFooter(),
                           reportFooter(u"Section5"_s)};
    }
    return report;
}

ReportDocument LoadCatalogueListing(CatalogueListing listing, DataEnvironment &deShelvane,
                                    const QString &cataloguePath)
{
    const CatalogueListingInfo &info = ListingInfo(listing);
    ReportDocument document;
    document.definition = CatalogueListingDefinition(listing);
    if (deShelvane.isShaped(info.command)) {
        std::shared_ptr<const ShapedRecordset> rows = deShelvane.runShaped(info.command);
        document.bands = [rows](const ReportDefinition &report) {
            return ShapedBands(rows, {u"ByTopicDescription"_s, u"cmdReport3"_s, u"cmdReport3Sub"_s},
                               report);
        };
    } else {
        std::shared_ptr<const Recordset> rows = deShelvane.run(info.command);
        document.bands = [rows](const ReportDefinition &report) {
            return DetailBands(rows, report.sectionIndex(SectionKind::Detail));
        };
    }
    FillFrontPage(document.definition, cataloguePath);
    return document;
}
