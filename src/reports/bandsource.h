#pragma once

#include <QStringList>

#include <memory>
#include <optional>

class Recordset;
class ShapedRecordset;
struct ReportDefinition;

// One printing of a section: the section and the row its text boxes read. The row stays
// readable until the next call of next().
struct BandRow
{
    int section = -1;
    const Recordset *records = nullptr;
    int row = -1;
};

// The sections to print between the report header and the report footer, in order, as the
// rows of the report's command call for them.
class BandSource
{
public:
    virtual ~BandSource();
    virtual std::optional<BandRow> next() = 0;
};

// One detail section for every row of a plain record set.
std::unique_ptr<BandSource> DetailBands(std::shared_ptr<const Recordset> records,
                                        int detailSection);

// A shaped record set walked level by level: at each level, for every row, the section
// "<level>_Header", then the next level down under that row, then "<level>_Footer"; the
// last level prints "<level>_Detail" for every row. `levels` names the top level and then
// the chapter followed at each step down. Sections the report does not have are skipped.
std::unique_ptr<BandSource> ShapedBands(std::shared_ptr<const ShapedRecordset> shaped,
                                        const QStringList &levels,
                                        const ReportDefinition &definition);
