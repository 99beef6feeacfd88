#pragma once

#include <QColor>
#include <QList>
#include <QMarginsF>
#include <QRectF>
#include <QSizeF>
#include <QString>

// A banded report as designed: sections stacked down the page, each holding controls placed
// on it. Lengths are in decipoints (1/720 inch), whatever device the report goes to.
namespace Decipoints {
inline constexpr qreal PerInch = 720;
inline constexpr qreal PerPoint = 10;
inline constexpr qreal fromMillimetres(qreal mm) { return mm * PerInch / 25.4; }
} // namespace Decipoints

enum class SectionKind { ReportHeader, PageHeader, GroupHeader, Detail, GroupFooter, PageFooter,
                         ReportFooter };

enum class ControlKind {
    Label,      // fixed text: its caption
    TextBox,    // the value of a field of the section's row
    Shape,      // an outline rectangle
    Line,       // a rule along the top of its rectangle
    PageNumber, // the number of the page it is printed on
    PrintDate,  // the day the report was made
    RunningHead, // in a page header: the first and last value of its field on the page
};

struct TextStyle
{
    qreal size = 10 * Decipoints::PerPoint;
    bool bold = false;
    bool italic = false;
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignTop;
    QColor colour = Qt::black;
};

struct ReportControl
{
    QString name;
    ControlKind kind = ControlKind::Label;
    QRectF rect; // within its section
    QString caption;
    QString field;
    // For numbers: a format such as "£###,##0.00" or "\"No. \"0"; empty prints the value as is.
    QString format;
    TextStyle style;
    // Text that does not fit wraps and the section grows; controls below move down.
    bool canGrow = false;
    // An empty text gives its height back, and controls below move up.
    bool canShrink = false;
    qreal lineWidth = Decipoints::PerPoint / 2; // shapes and lines
    // A field that must have a value in the row for the control to print at all: a label of
    // a sheet left empty (the padding of the last row, a place skipped on a part-used sheet)
    // prints nothing, so that label stays usable.
    QString presentWith;
    // Controls of the same section that this one introduces: it prints only when one of
    // them has something to print ("the collection of" says nothing without an owner).
    QStringList shownWith;
    // A caption that stands right before the text of the control named here, whatever that
    // text's width: "Page: " before a page number that ends at the right margin.
    QString standsBefore;
    // Added to the text when its section is printed again as a continuation.
    QString whenContinued;
};

struct ReportSection
{
    QString name = {};
    SectionKind kind = SectionKind::Detail;
    qreal height = 0;
    QList<ReportControl> controls = {};
    // The report header stands on a page of its own.
    bool pageBreakAfter = false;
    // A group heading never ends a page: it moves over with the first entry beneath it.
    bool keepWithNext = false;
    // A group heading printed again, as a continuation, at the top of every page its group
    // runs onto; the group ends with the section named here (its footer). Empty: never.
    QString continuedUntil = {};
};

// A control by position, counting sections and controls from 1.
struct ControlAddress
{
    int section;
    int control;
};

struct ReportDefinition
{
    QString name;
    QString caption;
    QString title;
    QString fontFamily = QStringLiteral("Arial");
    QSizeF pageSize;
    QMarginsF margins;
    QList<ReportSection> sections;
    // The price boxes, which take the session's price format when the report is activated.
    QList<ControlAddress> priceBoxes;
    // Label sheets: the labels across one detail row (0 for any other report), and the place
    // on the first sheet where printing starts, counted from 1 across and then down, so that
    // a part-used sheet can be used up.
    int labelsAcross = 0;
    int firstLabel = 1;

    // The part of the page a report may print on.
    QRectF printableRect() const;
    // -1 when there is none.
    int sectionIndex(const QString &name) const;
    int sectionIndex(SectionKind kind) const;
    // By name in any letter case, as the program addresses the front page's labels;
    // nullptr when the section has no such control.
    ReportControl *control(const QString &sectionName, const QString &controlName);
    // Counting sections and controls from 1, as the program addresses the price box.
    ReportControl &controlAt(int sectionNumber, int controlNumber);
    // What a report does on activation: every price box takes the session's price format,
    // whatever its design-time format.
    void applyPriceFormat(const QString &priceFormat);
    // Whether every price box has that format already.
    bool hasPriceFormat(const QString &priceFormat);
};
