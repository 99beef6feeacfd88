#include "data/shape.h"

#include "data/connection.h"
#include "data/providererror.h"
#include "data/recordset.h"

#include <QHash>

#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

// The whole rows of one level, and for each chapter the child rows under each of them.
struct ShapeLevel
{
    struct Chapter
    {
        QString name;
        std::shared_ptr<const ShapeLevel> child;
        QList<QList<int>> childRowsOf; // indexed by this level's row
    };

    std::unique_ptr<Recordset> rows;
    std::vector<Chapter> chapters;
};

namespace {

std::shared_ptr<ShapeLevel> runShape(Connection &connection, const ShapeNode &node);

int columnOf(const Recordset &rows, const QString &column, const QString &clause,
             const QString &alias)
{
    const int index = rows.fieldIndex(column);
    if (index < 0) {
        throw ProviderError::general(
            ProviderErrorNumber::Syntax,
            u"Shape command: '%1' named after %2 is not a column of %3."_s.arg(column, clause, alias));
    }
    return index;
}

// Values the catalogue counts as equal share a key: text in any letter case, and whole
// numbers whether they come as integers or as reals.
QString matchKey(const QVariant &value)
{
    if (value.isNull())
        return u"~"_s;
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return u"#"_s + QString::number(value.toLongLong());
    case QMetaType::Float:
    case QMetaType::Double: {
        constexpr double exactIntegers = 9.0e15;
        const double number = value.toDouble();
        if (number == std::trunc(number) && std::abs(number) < exactIntegers)
            return u"#"_s + QString::number(qint64(number));
        return u"#"_s + QString::number(number, 'g', 17);
    }
    default:
        return u"'"_s + value.toString().toCaseFolded();
    }
}

std::shared_ptr<ShapeLevel> runSource(Connection &connection, const ShapeSource &source)
{
    if (source.nested)
        return runShape(connection, *source.nested);
    auto level = std::make_shared<ShapeLevel>();
    level->rows = Recordset::open(connection, source.selectText);
    return level;
}

void addChapter(ShapeLevel &level, ShapeLevel::Chapter chapter)
{
    for (const ShapeLevel::Chapter &earlier : level.chapters) {
        if (earlier.name.compare(chapter.name, Qt::CaseInsensitive) == 0) {
            throw ProviderError::general(
                ProviderErrorNumber::Syntax,
                u"Shape command: the chapter name '%1' is used twice."_s.arg(chapter.name));
        }
    }
    level.chapters.push_back(std::move(chapter));
}

// Indexes the child rows by their TO value once, then hands every parent row the rows of
// its RELATE value. A null matches nothing.
ShapeLevel::Chapter relate(const ShapeLevel &parent, const QString &parentAlias,
                           const ShapeChild &child, std::shared_ptr<const ShapeLevel> childLevel)
{
    const Recordset &parentRows = *parent.rows;
    const Recordset &childRows = *childLevel->rows;
    const int parentColumn = columnOf(parentRows, child.relateColumn, u"RELATE"_s, parentAlias);
    const int childColumn = columnOf(childRows, child.toColumn, u"TO"_s, child.alias);

    QHash<QString, QList<int>> childRowsByKey;
    for (int r = 0; r < childRows.recordCount(); ++r) {
        const QVariant value = childRows.valueAt(r, childColumn);
        if (!value.isNull())
            childRowsByKey[matchKey(value)].append(r);
    }
    ShapeLevel::Chapter chapter{child.chapterName, std::move(childLevel), {}};
    chapter.childRowsOf.reserve(parentRows.recordCount());
    for (int r = 0; r < parentRows.recordCount(); ++r) {
        const QVariant value = parentRows.valueAt(r, parentColumn);
        chapter.childRowsOf.append(value.isNull() ? QList<int>()
                                                  : childRowsByKey.value(matchKey(value)));
    }
    return chapter;
}

std::shared_ptr<ShapeLevel> runAppend(Connection &connection, const ShapeNode &node)
{
    std::shared_ptr<ShapeLevel> level = runSource(connection, node.source);
    for (const ShapeChild &child : node.children)
        addChapter(*level, relate(*level, node.alias, child, runSource(connection, child.source)));
    return level;
}

// One row per distinct set of BY values, in the order the inner rows first show it, with
// the inner rows of that group as its chapter.
std::shared_ptr<ShapeLevel> runCompute(Connection &connection, const ShapeNode &node)
{
    const ShapeNode &innerNode = *node.source.nested;
    std::shared_ptr<const ShapeLevel> inner = runShape(connection, innerNode);
    const Recordset &innerRows = *inner->rows;

    QList<int> columns;
    QStringList names;
    for (const QString &column : node.byColumns) {
        columns.append(columnOf(innerRows, column, u"BY"_s, innerNode.alias));
        names.append(innerRows.fieldNames().at(columns.last()));
    }

    QHash<QStringList, int> groupOfKey;
    QList<QVariantList> groupValues;
    ShapeLevel::Chapter chapter{node.alias, inner, {}};
    for (int r = 0; r < innerRows.recordCount(); ++r) {
        QStringList key;
        QVariantList values;
        for (int column : columns) {
            values.append(innerRows.valueAt(r, column));
            key.append(matchKey(values.last()));
        }
        auto group = groupOfKey.constFind(key);
        if (group == groupOfKey.cend()) {
            group = groupOfKey.insert(key, int(groupValues.size()));
            groupValues.append(values);
            chapter.childRowsOf.append(QList<int>());
        }
        chapter.childRowsOf[group.value()].append(r);
    }

    auto level = std::make_shared<ShapeLevel>();
    level->rows = Recordset::fromRows(names, groupValues);
    level->chapters.push_back(std::move(chapter));
    return level;
}

std::shared_ptr<ShapeLevel> runShape(Connection &connection, const ShapeNode &node)
{
    return node.kind == ShapeNode::Kind::Compute ? runCompute(connection, node)
                                                 : runAppend(connection, node);
}

} // namespace

ShapedRecordset::ShapedRecordset(std::unique_ptr<Recordset> records,
                                 std::shared_ptr<const ShapeLevel> level, QList<int> levelRows)
    : m_records(std::move(records))
    , m_level(std::move(level))
    , m_levelRows(std::move(levelRows))
{
}

ShapedRecordset::~ShapedRecordset() = default;

Recordset &ShapedRecordset::records()
{
    return *m_records;
}

const Recordset &ShapedRecordset::records() const
{
    return *m_records;
}

QStringList ShapedRecordset::chapterNames() const
{
    QStringList names;
    for (const ShapeLevel::Chapter &chapter : m_level->chapters)
        names.append(chapter.name);
    return names;
}

std::unique_ptr<ShapedRecordset> ShapedRecordset::chapter(const QString &name, int row) const
{
    if (row < 0 || row >= m_levelRows.size())
        return nullptr;
    for (const ShapeLevel::Chapter &chapter : m_level->chapters) {
        if (chapter.name.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        const QList<int> &childRows = chapter.childRowsOf.at(m_levelRows.at(row));
        const Recordset &source = *chapter.child->rows;
        QList<QVariantList> values;
        values.reserve(childRows.size());
        for (int r : childRows) {
            QVariantList value;
            for (int f = 0; f < source.fieldCount(); ++f)
                value.append(source.valueAt(r, f));
            values.append(value);
        }
        return std::unique_ptr<ShapedRecordset>(new ShapedRecordset(
            Recordset::fromRows(source.fieldNames(), values), chapter.child, childRows));
    }
    return nullptr;
}

namespace {

const ShapeLevel::Chapter *chapterNamed(const ShapeLevel &level, const QString &name)
{
    for (const ShapeLevel::Chapter &chapter : level.chapters) {
        if (chapter.name.compare(name, Qt::CaseInsensitive) == 0)
            return &chapter;
    }
    return nullptr;
}

} // namespace

QList<int> ShapedRecordset::chapterRows(const QString &name, int row) const
{
    const ShapeLevel::Chapter *chapter = chapterNamed(*m_level, name);
    if (!chapter || row < 0 || row >= m_levelRows.size())
        return {};
    return chapter->childRowsOf.at(m_levelRows.at(row));
}

const Recordset *ShapedRecordset::chapterRecords(const QString &name) const
{
    const ShapeLevel::Chapter *chapter = chapterNamed(*m_level, name);
    return chapter ? chapter->child->rows.get() : nullptr;
}

ShapeCommand::ShapeCommand(const QString &text)
    : m_tree(ShapeParser::parse(text))
{
}

QString ShapeCommand::name() const
{
    return m_tree.commandName;
}

std::unique_ptr<ShapedRecordset> ShapeCommand::execute(Connection &connection) const
{
    std::shared_ptr<ShapeLevel> level = runShape(connection, m_tree.root);
    // The top level's rows become the result's own; only the chapters' rows stay shared.
    std::unique_ptr<Recordset> records = std::move(level->rows);
    QList<int> rows(records->recordCount());
    std::iota(rows.begin(), rows.end(), 0);
    return std::unique_ptr<ShapedRecordset>(
        new ShapedRecordset(std::move(records), std::move(level), std::move(rows)));
}
