#include "data/shape.h"

#include "data/connection.h"
#include "data/providererror.h"
#include "data/recordset.h"

#include <QHash>

#include <cmath>
#include <numeric>
#include <optional>

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

// A whole number, whether it comes as an integer or as a real; none for anything else.
std::optional<qint64> wholeNumber(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return value.toLongLong();
    case QMetaType::Float:
    case QMetaType::Double: {
        constexpr double exactIntegers = 9.0e15;
        const double number = value.toDouble();
        if (number == std::trunc(number) && std::abs(number) < exactIntegers)
            return qint64(number);
        return std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

// Values the catalogue counts as equal share a key: text in any letter case, and whole
// numbers whether they come as integers or as reals.
QString matchKey(const QVariant &value)
{
    if (value.isNull())
        return u"~"_s;
    if (const std::optional<qint64> number = wholeNumber(value))
        return u"#"_s + QString::number(*number);
    switch (value.typeId()) {
    case QMetaType::Float:
    case QMetaType::Double:
        return u"#"_s + QString::number(value.toDouble(), 'g', 17);
    default:
        return u"'"_s + value.toString().toCaseFolded();
    }
}

// For every parent row, the child rows whose value matches its own (a Null matches nothing):
// the child rows are indexed by their key once.
template<typename Key, typename KeyOf>
QList<QList<int>> matchedRows(const Recordset &parentRows, int parentColumn,
                              const Recordset &childRows, int childColumn, KeyOf keyOf)
{
    QHash<Key, QList<int>> childRowsByKey;
    for (int r = 0; r < childRows.recordCount(); ++r) {
        if (const std::optional<Key> key = keyOf(childRows.valueAt(r, childColumn)))
            childRowsByKey[*key].append(r);
    }
    QList<QList<int>> matched;
    matched.reserve(parentRows.recordCount());
    for (int r = 0; r < parentRows.recordCount(); ++r) {
        const std::optional<Key> key = keyOf(parentRows.valueAt(r, parentColumn));
        matched.append(key ? childRowsByKey.value(*key) : QList<int>());
    }
    return matched;
}

// Whether every value of a column that is not Null is a whole number, as keys nearly always
// are: they are then matched as numbers, which is much quicker than through their text.
bool wholeNumbersOnly(const Recordset &rows, int column)
{
    for (int r = 0; r < rows.recordCount(); ++r) {
        const QVariant value = rows.valueAt(r, column);
        if (!value.isNull() && !wholeNumber(value))
            return false;
    }
    return true;
}

std::shared_ptr<ShapeLevel> runSource(Connection &connection, const ShapeSource &source)
{
    if (source.nested)
        return runShape(connection, *source.nested);
    auto level = std::make_shared<ShapeLevel>();
    // Every row is related, so every row is read.
    level->rows = Recordset::open(connection, source.selectText, CommandType::Text,
                                  Recordset::Reading::Whole);
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

    ShapeLevel::Chapter chapter{child.chapterName, std::move(childLevel), {}};
    if (wholeNumbersOnly(childRows, childColumn)) {
        chapter.childRowsOf = matchedRows<qint64>(parentRows, parentColumn, childRows,
                                                  childColumn, wholeNumber);
    } else {
        chapter.childRowsOf = matchedRows<QString>(
            parentRows, parentColumn, childRows, childColumn,
            [](const QVariant &value) -> std::optional<QString> {
                return value.isNull() ? std::nullopt : std::optional(matchKey(value));
            });
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
