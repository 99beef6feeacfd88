#include "reports/bandsource.h"

#include "data/recordset.h"
#include "data/shape.h"
#include "reports/reportdefinition.h"

#include <vector>

using namespace Qt::StringLiterals;

BandSource::~BandSource() = default;

namespace {

class RecordsetBands : public BandSource
{
public:
    RecordsetBands(std::shared_ptr<const Recordset> records, int detailSection)
        : m_records(std::move(records))
        , m_section(detailSection)
    {
    }

    std::optional<BandRow> next() override
    {
        if (m_row >= m_records->recordCount())
            return std::nullopt;
        return BandRow{m_section, m_records.get(), m_row++};
    }

private:
    std::shared_ptr<const Recordset> m_records;
    int m_section;
    int m_row = 0;
};

class ShapedLevelBands : public BandSource
{
public:
    ShapedLevelBands(std::shared_ptr<const ShapedRecordset> shaped, const QStringList &levels,
                     const ReportDefinition &definition)
        : m_root(std::move(shaped))
        , m_levels(levels)
    {
        for (qsizetype level = 0; level < levels.size(); ++level) {
            const bool last = level == levels.size() - 1;
            m_sections.push_back(Sections{
                definition.sectionIndex(levels[level] + (last ? u"_Detail"_s : u"_Header"_s)),
                last ? -1 : definition.sectionIndex(levels[level] + u"_Footer"_s)});
        }
        m_stack.push_back(Frame{nullptr, m_root.get()});
    }

    std::optional<BandRow> next() override
    {
        while (!m_stack.empty()) {
            const int level = int(m_stack.size()) - 1;
            Frame &frame = m_stack.back();
            const Recordset &records = frame.level->records();
            if (frame.inside) {
                // Back from the rows beneath this one: its footer closes them.
                frame.inside = false;
                if (m_sections[level].footer >= 0)
                    return BandRow{m_sections[level].footer, &records, frame.row};
                continue;
            }
            if (++frame.row >= records.recordCount()) {
                m_stack.pop_back();
                continue;
            }
            if (level == m_levels.size() - 1) {
                if (m_sections[level].opening >= 0)
                    return BandRow{m_sections[level].opening, &records, frame.row};
                continue;
            }
            frame.inside = true;
            const BandRow header{m_sections[level].opening, &records, frame.row};
            std::unique_ptr<ShapedRecordset> chapter =
                frame.level->chapter(m_levels[level + 1], frame.row);
            const ShapedRecordset *below = chapter.get();
            if (below)
                m_stack.push_back(Frame{std::move(chapter), below});
            if (header.section >= 0)
                return header;
        }
        return std::nullopt;
    }

private:
    struct Sections
    {
        int opening; // the header, or the detail of the last level
        int footer;
    };
    struct Frame
    {
        std::unique_ptr<ShapedRecordset> owned; // null for the top level
        const ShapedRecordset *level;
        int row = -1;
        bool inside = false;
    };

    std::shared_ptr<const ShapedRecordset> m_root;
    QStringList m_levels;
    std::vector<Sections> m_sections;
    std::vector<Frame> m_stack;
};

} // namespace

std::unique_ptr<BandSource> DetailBands(std::shared_ptr<const Recordset> records,
                                        int detailSection)
{
    return std::make_unique<RecordsetBands>(std::move(records), detailSection);
}

std::unique_ptr<BandSource> ShapedBands(std::shared_ptr<const ShapedRecordset> shaped,
                                        const QStringList &levels,
                                        const ReportDefinition &definition)
{
    return std::make_unique<ShapedLevelBands>(std::move(shaped), levels, definition);
}
