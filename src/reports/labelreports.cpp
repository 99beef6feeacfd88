#include "reports/labelreports.h"

#include "data/recordset.h"
#include "reports/dataenvironment.h"

#include <QPageSize>

using namespace Qt::StringLiterals;
using Decipoints::fromMillimetres;

namespace {

constexpr qreal pt = Decipoints::PerPoint;
const qreal margin = fromMillimetres(10);
const qreal labelWidth = fromMillimetres(67);
const qreal labelHeight = 122 * pt;
const qreal gap = 8 * pt;
const qreal inset = 6 * pt;
const qreal line = 10 * pt;
const QColor quietInk(0x55, 0x55, 0x55);

// The fields of a label, in the order of its bound boxes.
const QStringList labelFields{u"BookId"_s, u"BookDescription"_s, u"BookNotes"_s,
                              u"AuthorFirstName"_s, u"AuthorSurname"_s, u"PublisherName"_s,
                              u"PublisherPlace"_s, u"BookWhenPublished"_s, u"Book1stEd"_s,
                              u"BookBibliography"_s, u"BookPagesText"_s, u"BookPrice"_s};

ReportControl box(const QString &name, ControlKind kind, QRectF rect, bool bold = false,
                  bool italic = false, QColor colour = Qt::black)
{
    ReportControl control;
    control.name = name;
    control.kind = kind;
    control.rect = rect;
    control.style = TextStyle{7.5 * pt, bold, italic, Qt::AlignLeft | Qt::AlignTop, colour};
    return control;
}

// One label's block at `left`: the bound boxes named `names` (in the order of labelFields)
// reading the fields with `suffix`, and the fixed texts, in the designed control order.
QList<ReportControl> labelBlock(qreal left, const QStringList &names, const QString &suffix)
{
    const qreal x = left + inset;
    const qreal width = labelWidth - 2 * inset;
    // Short yes/no and page values on the left, the longer price on the right.
    const qreal right = x + 70 * pt;
    const qreal rightWidth = x + width - right;
    const qreal caption = 40 * pt;
    const qreal bibliographyCaption = 58 * pt;
    const qreal priceCaption = 30 * pt;
    auto row = [&](int n) { return inset + n * line; };
    auto bound = [&](int index, QRectF rect, bool bold = false, bool italic = false) {
        ReportControl control = box(names[index], ControlKind::TextBox, rect, bold, italic);
        control.field = labelFields[index] + suffix;
        return control;
    };
    auto fixed = [&](const QString &name, const QString &text, QRectF rect) {
        ReportControl control = box(name, ControlKind::Label, rect, false, true, quietInk);
        control.caption = text;
        return control;
    };
    ReportControl firstEd = bound(8, QRectF(x + caption, row(8), right - x - caption, line));
    ReportControl bibliography = bound(9, QRectF(right + bibliographyCaption, row(8),
                                                 rightWidth - bibliographyCaption, line));
    firstEd.format = bibliography.format = u"Yes/No"_s;
    ReportControl price = bound(11, QRectF(right + priceCaption, row(9), rightWidth - priceCaption,
                                           line), true);
    price.format = u"\"£\"#,##0.00"_s;
    return {
        bound(0, QRectF(x + 56 * pt, row(0), width - 56 * pt, line), true),
        fixed(u"lblBookNumber"_s + suffix, u"Book Number : "_s, QRectF(x, row(0), 56 * pt, line)),
        bound(1, QRectF(x, row(1), width, line), true),
        bound(2, QRectF(x, row(2), width, line), false, true),
        bound(3, QRectF(x, row(3), width, line)),
        bound(4, QRectF(x, row(4), width, line)),
        bound(5, QRectF(x, row(5), width, line)),
        bound(6, QRectF(x, row(6), width, line)),
        bound(7, QRectF(x, row(7), width, line)),
        fixed(u"lblFirstEd"_s + suffix, u"First Ed : "_s, QRectF(x, row(8), caption, line)),
        fixed(u"lblBibliography"_s + suffix, u"Bibliography : "_s,
              QRectF(right, row(8), bibliographyCaption, line)),
        fixed(u"lblPages"_s + suffix, u"Pages : "_s, QRectF(x, row(9), caption, line)),
        fixed(u"lblPrice"_s + suffix, u"Price : "_s, QRectF(right, row(9), priceCaption, line)),
        firstEd,
        bibliography,
        bound(10, QRectF(x + caption, row(9), right - x - caption, line)),
        price,
    };
}

ReportControl topicBox(const QString &name, qreal left, const QString &suffix)
{
    ReportControl control = box(name, ControlKind::TextBox,
                                QRectF(left + inset, inset + 10 * line, labelWidth - 2 * inset, line),
                                true);
    control.field = u"TopicDescription"_s + suffix;
    return control;
}

ReportControl outline(const QString &name, qreal left)
{
    ReportControl shape = box(name, ControlKind::Shape, QRectF(left, 0, labelWidth, labelHeight));
    shape.lineWidth = 0.5 * pt;
    return shape;
}

QStringList blockNames(int block)
{
    if (block == 1) {
        return {u"txtBookId1"_s, u"txtBookDescription1"_s, u"txtBookNotes1"_s,
                u"txtAuthorFirstName1"_s, u"txtAuthorSurname1"_s, u"txtPublisherName1"_s,
                u"txtPublisherPlace1"_s, u"txtBookWhenPublished1"_s, u"txtBook1stEd1"_s,
                u"txtBookBibliography1"_s, u"txtBookPagesText1"_s, u"txtBookPrice1"_s};
    }
    QStringList names;
    for (int i = 1; i <= 12; ++i)
        names.append(u"Text%1"_s.arg((block - 2) * 12 + i));
    return names;
}

ReportDocument detailDocument(ReportDefinition definition, std::shared_ptr<const Recordset> rows)
{
    ReportDocument document;
    document.definition = std::move(definition);
    document.bands = [rows](const ReportDefinition &report) {
        return DetailBands(rows, report.sectionIndex(SectionKind::Detail));
    };
    return document;
}

} // namespace

ReportDefinition LabelSheetDefinition()
{
    ReportDefinition report;
    report.name = u"DataReport4"_s;
    report.caption = u"Catalogue Labels"_s;
    report.title = report.caption;
    report.pageSize = QPageSize(QPageSize::A4).size(QPageSize::Point).transposed() * pt;
    report.margins = QMarginsF(margin, margin, margin, margin);
    ReportSection section{.name = u"Section1"_s, .kind = SectionKind::Detail,
                          .height = labelHeight + gap};
    auto leftOf = [](int block) { return (block - 1) * (labelWidth + gap); };
    for (int block = 1; block <= LabelsAcross; ++block)
        section.controls.append(outline(u"Shape%1"_s.arg(block), leftOf(block)));
    for (int block = 1; block <= LabelsAcross; ++block)
        section.controls += labelBlock(leftOf(block), blockNames(block), QString::number(block));
    section.controls.append(topicBox(u"txtTopicDescription1"_s, leftOf(1), u"1"_s));
    for (int block = 2; block <= LabelsAcross; ++block)
        section.controls.append(topicBox(u"Text%1"_s.arg(35 + block), leftOf(block),
                                         QString::number(block)));
    // Every control of a block prints only where that block holds a label.
    for (ReportControl &control : section.controls) {
        const QString block = control.field.isEmpty() ? control.name.right(1) : control.field.right(1);
        control.presentWith = u"BookId"_s + block;
    }
    report.sections = {section};
    report.priceBoxes = {{1, 21}, {1, 38}, {1, 55}, {1, 72}};
    report.labelsAcross = LabelsAcross;
    return report;
}

ReportDefinition SingleLabelDefinition()
{
    ReportDefinition report;
    report.name = u"DataReport5"_s;
    report.caption = u"Book Label"_s;
    report.title = report.caption;
    report.pageSize = QSizeF(labelWidth + 2 * margin, labelHeight + gap + 2 * margin);
    report.margins = QMarginsF(margin, margin, margin, margin);
    QStringList names;
    for (const QString &field : labelFields)
        names.append(u"txt"_s + field);
    ReportSection section{.name = u"Section1"_s, .kind = SectionKind::Detail,
                          .height = labelHeight + gap};
    section.controls.append(outline(u"Shape1"_s, 0));
    section.controls += labelBlock(0, names, QString());
    section.controls.append(topicBox(u"txtTopicDescription"_s, 0, QString()));
    report.sections = {section};
    report.priceBoxes = {{1, 18}};
    return report;
}

ReportDocument LoadLabelSheet(DataEnvironment &deShelvane)
{
    std::shared_ptr<const Recordset> table = deShelvane.run(u"cmdLabels"_s);
    ReportDocument document;
    document.definition = LabelSheetDefinition();
    document.bands = [table](const ReportDefinition &report) {
        return LabelSheetBands(table, report.firstLabel, report.sectionIndex(SectionKind::Detail));
    };
    return document;
}

namespace {

class LabelRows : public BandSource
{
public:
    LabelRows(std::shared_ptr<const Recordset> table, int firstLabel, int detailSection)
        : m_table(std::move(table))
        , m_section(detailSection)
        , m_perLabel(m_table->fieldCount() / LabelsAcross)
        , m_emptyPlaces(std::max(0, firstLabel - 1))
    {
    }

    std::optional<BandRow> next() override
    {
        // Empty places still print while labels follow them.
        if (!findLabel())
            return std::nullopt;
        // A row of four labels on a sheet that starts at its first place prints as it stands.
        if (m_emptyPlaces == 0 && m_block == 0 && isFull(m_tableRow))
            return BandRow{m_section, m_table.get(), m_tableRow++};
        QVariantList row;
        row.reserve(m_table->fieldCount());
        for (int place = 0; place < LabelsAcross; ++place) {
            if (m_emptyPlaces > 0) {
                --m_emptyPlaces;
                row += QVariantList(m_perLabel);
            } else if (findLabel()) {
                for (int field = 0; field < m_perLabel; ++field)
                    row.append(m_table->valueAt(m_tableRow, m_block * m_perLabel + field));
                ++m_block;
            } else {
                row += QVariantList(m_perLabel);
            }
        }
        // The band laid out from the row before reads it no more: it makes way for this one.
        m_row = Recordset::fromRows(m_table->fieldNames(), {row});
        return BandRow{m_section, m_row.get(), 0};
    }

private:
    bool isFull(int tableRow) const
    {
        for (int place = 0; place < LabelsAcross; ++place) {
            if (m_table->valueAt(tableRow, place * m_perLabel).isNull())
                return false;
        }
        return true;
    }

    // Moves on to the table's next label, passing over the padding of its last row; false
    // when there is none.
    bool findLabel()
    {
        for (; m_tableRow < m_table->recordCount(); ++m_tableRow, m_block = 0) {
            for (; m_block < LabelsAcross; ++m_block) {
                if (!m_table->valueAt(m_tableRow, m_block * m_perLabel).isNull())
                    return true;
            }
        }
        return false;
    }

    std::shared_ptr<const Recordset> m_table;
    int m_section;
    int m_perLabel;
    int m_emptyPlaces;
    int m_tableRow = 0;
    int m_block = 0; // the place of m_tableRow read next
    std::unique_ptr<Recordset> m_row;
};

} // namespace

std::unique_ptr<BandSource> LabelSheetBands(std::shared_ptr<const Recordset> table,
                                            int firstLabel, int detailSection)
{
    return std::make_unique<LabelRows>(std::move(table), firstLabel, detailSection);
}

ReportDocument LoadSingleLabel(DataEnvironment &deShelvane, const QString &bookNumber)
{
    deShelvane.setCommandText(u"cmdOneLabel"_s,
                              u"select * from `qryBookLabel01` where BookId = "_s + bookNumber);
    return detailDocument(SingleLabelDefinition(), deShelvane.run(u"cmdOneLabel"_s));
}
