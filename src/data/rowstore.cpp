#include "data/rowstore.h"

void RowStore::reset(int columnCount)
{
    m_columns.assign(std::size_t(columnCount), Column{});
    m_rowCount = 0;
}

RowStore::Kind RowStore::kindOf(const Cell &cell)
{
    switch (cell.type) {
    case Cell::Type::Null:
        return Kind::Unset;
    case Cell::Type::Integer:
        return Kind::Integer;
    case Cell::Type::Real:
        return Kind::Real;
    case Cell::Type::Text:
        return Kind::Text;
    case Cell::Type::Other:
        break;
    }
    return Kind::Variant;
}

RowStore::Cell RowStore::cellOf(const QVariant &value, QByteArray &utf8)
{
    Cell cell;
    cell.other = value; // what a mixed column keeps, as given
    if (value.isNull())
        return cell;
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        cell.type = Cell::Type::Integer;
        cell.integer = value.toLongLong();
        break;
    case QMetaType::Double:
    case QMetaType::Float:
        cell.type = Cell::Type::Real;
        cell.real = value.toDouble();
        break;
    case QMetaType::QString:
        utf8 = value.toString().toUtf8();
        cell.type = Cell::Type::Text;
        cell.text = utf8;
        break;
    default:
        cell.type = Cell::Type::Other;
        break;
    }
    return cell;
}

QVariant RowStore::variantOf(const Cell &cell)
{
    if (cell.other.isValid())
        return cell.other;
    switch (cell.type) {
    case Cell::Type::Integer:
        return QVariant(cell.integer);
    case Cell::Type::Real:
        return QVariant(cell.real);
    case Cell::Type::Text:
        return QString::fromUtf8(cell.text);
    case Cell::Type::Null:
    case Cell::Type::Other:
        break;
    }
    return cell.other;
}

QVariant RowStore::value(int row, int column) const
{
    const Column &c = m_columns[std::size_t(column)];
    const auto r = std::size_t(row);
    if (c.kind == Kind::Variant)
        return c.variants[r];
    if (c.kind == Kind::Unset || c.isNull[r])
        return {};
    switch (c.kind) {
    case Kind::Integer:
        return QVariant(c.integers[r]);
    case Kind::Real:
        return QVariant(c.reals[r]);
    case Kind::Text: {
        const TextRef ref = c.texts[r];
        return QString::fromUtf8(c.pool.constData() + ref.offset, ref.length);
    }
    default:
        return {};
    }
}

QVariantList RowStore::row(int row) const
{
    QVariantList values;
    values.reserve(columnCount());
    for (int column = 0; column < columnCount(); ++column)
        values.append(value(row, column));
    return values;
}

// Moves a column to a kind that can hold both what it has and a value of `kind`: whole
// numbers become reals when a real arrives; anything else mixed becomes variants.
void RowStore::widen(Column &column, Kind kind, int rows)
{
    if (column.kind == kind || kind == Kind::Unset || column.kind == Kind::Variant)
        return;
    if (column.kind == Kind::Unset) {
        column.kind = kind;
        if (kind == Kind::Variant) {
            column.variants.assign(std::size_t(rows), QVariant());
            column.isNull.clear();
            return;
        }
        column.integers.assign(kind == Kind::Integer ? std::size_t(rows) : 0, 0);
        column.reals.assign(kind == Kind::Real ? std::size_t(rows) : 0, 0.0);
        column.texts.assign(kind == Kind::Text ? std::size_t(rows) : 0, TextRef{});
        return;
    }
    if (column.kind == Kind::Integer && kind == Kind::Real) {
        column.reals.assign(column.integers.begin(), column.integers.end());
        column.integers = {};
        column.kind = Kind::Real;
        return;
    }
    if (column.kind == Kind::Real && kind == Kind::Integer)
        return; // a real column holds whole numbers as they are
    std::vector<QVariant> variants;
    variants.reserve(std::size_t(rows));
    for (int r = 0; r < rows; ++r) {
        const auto i = std::size_t(r);
        if (column.isNull[i])
            variants.emplace_back();
        else if (column.kind == Kind::Integer)
            variants.emplace_back(column.integers[i]);
        else if (column.kind == Kind::Real)
            variants.emplace_back(column.reals[i]);
        else
            variants.emplace_back(QString::fromUtf8(column.pool.constData() + column.texts[i].offset,
                                                    column.texts[i].length));
    }
    column = Column{};
    column.kind = Kind::Variant;
    column.variants = std::move(variants);
}

void RowStore::store(Column &column, int row, const Cell &cell)
{
    const auto r = std::size_t(row);
    if (column.kind == Kind::Variant) {
        column.variants[r] = variantOf(cell);
        return;
    }
    const bool null = cell.type == Cell::Type::Null;
    column.isNull[r] = null;
    if (null)
        return;
    switch (column.kind) {
    case Kind::Integer:
        column.integers[r] = cell.integer;
        break;
    case Kind::Real:
        column.reals[r] = cell.type == Cell::Type::Integer ? double(cell.integer) : cell.real;
        break;
    case Kind::Text:
        column.texts[r] = TextRef{std::uint32_t(column.pool.size()), std::uint32_t(cell.text.size())};
        column.pool.append(cell.text);
        break;
    default:
        break;
    }
}

void RowStore::appendCell(Column &column, const Cell &cell)
{
    widen(column, kindOf(cell), m_rowCount);
    switch (column.kind) {
    case Kind::Variant:
        column.variants.emplace_back();
        break;
    case Kind::Integer:
        column.integers.push_back(0);
        break;
    case Kind::Real:
        column.reals.push_back(0.0);
        break;
    case Kind::Text:
        column.texts.push_back(TextRef{});
        break;
    case Kind::Unset:
        break;
    }
    if (column.kind != Kind::Variant)
        column.isNull.push_back(true);
    if (column.kind != Kind::Unset)
        store(column, m_rowCount, cell);
}

void RowStore::appendRow(const QVariantList &values)
{
    QByteArray utf8;
    for (int c = 0; c < columnCount(); ++c)
        appendCell(m_columns[std::size_t(c)], cellOf(values.value(c), utf8));
    ++m_rowCount;
}

void RowStore::appendRow(std::span<const Cell> cells)
{
    for (int c = 0; c < columnCount(); ++c)
        appendCell(m_columns[std::size_t(c)], std::size_t(c) < cells.size() ? cells[c] : Cell{});
    ++m_rowCount;
}

void RowStore::appendKeyRows(int keyColumn, std::span<const qint64> keys)
{
    const std::size_t rows = std::size_t(m_rowCount) + keys.size();
    for (int c = 0; c < columnCount(); ++c) {
        Column &column = m_columns[std::size_t(c)];
        if (c == keyColumn && !keys.empty())
            widen(column, Kind::Integer, m_rowCount);
        switch (column.kind) {
        case Kind::Variant:
            column.variants.resize(rows);
            break;
        case Kind::Integer:
            column.integers.resize(rows);
            break;
        case Kind::Real:
            column.reals.resize(rows);
            break;
        case Kind::Text:
            column.texts.resize(rows);
            break;
        case Kind::Unset:
            break;
        }
        if (column.kind != Kind::Variant)
            column.isNull.resize(rows, c != keyColumn);
    }
    const int first = m_rowCount;
    m_rowCount = int(rows);
    if (keyColumn < 0 || keyColumn >= columnCount())
        return;
    Column &column = m_columns[std::size_t(keyColumn)];
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::size_t r = std::size_t(first) + i;
        if (column.kind == Kind::Integer)
            column.integers[r] = keys[i];
        else
            store(column, int(r), Cell{Cell::Type::Integer, keys[i], 0, {}, {}});
    }
}

void RowStore::setCell(int row, int column, const Cell &cell)
{
    Column &c = m_columns[std::size_t(column)];
    widen(c, kindOf(cell), m_rowCount);
    if (c.kind != Kind::Unset)
        store(c, row, cell);
}

void RowStore::setValue(int row, int column, const QVariant &value)
{
    QByteArray utf8;
    setCell(row, column, cellOf(value, utf8));
}

void RowStore::setRow(int row, const QVariantList &values)
{
    QByteArray utf8;
    for (int c = 0; c < columnCount(); ++c)
        setCell(row, c, cellOf(values.value(c), utf8));
}

void RowStore::setRow(int row, std::span<const Cell> cells)
{
    for (int c = 0; c < columnCount(); ++c)
        setCell(row, c, std::size_t(c) < cells.size() ? cells[c] : Cell{});
}

void RowStore::removeRow(int row)
{
    const auto r = std::ptrdiff_t(row);
    for (Column &c : m_columns) {
        if (c.kind == Kind::Variant) {
            c.variants.erase(c.variants.begin() + r);
            continue;
        }
        c.isNull.erase(c.isNull.begin() + r);
        if (c.kind == Kind::Integer)
            c.integers.erase(c.integers.begin() + r);
        else if (c.kind == Kind::Real)
            c.reals.erase(c.reals.begin() + r);
        else if (c.kind == Kind::Text)
            c.texts.erase(c.texts.begin() + r);
    }
    --m_rowCount;
}

void RowStore::squeeze()
{
    for (Column &c : m_columns) {
        c.isNull.shrink_to_fit();
        c.integers.shrink_to_fit();
        c.reals.shrink_to_fit();
        c.texts.shrink_to_fit();
        c.pool.squeeze();
        c.variants.shrink_to_fit();
    }
}

qint64 RowStore::bytesUsed() const
{
    qint64 bytes = 0;
    for (const Column &c : m_columns) {
        bytes += qint64(c.isNull.capacity() / 8);
        bytes += qint64(c.integers.capacity() * sizeof(qint64));
        bytes += qint64(c.reals.capacity() * sizeof(double));
        bytes += qint64(c.texts.capacity() * sizeof(TextRef));
        bytes += c.pool.capacity();
        bytes += qint64(c.variants.capacity() * sizeof(QVariant));
        for (const QVariant &v : c.variants)
            if (v.typeId() == QMetaType::QString)
                bytes += v.toString().capacity() * qint64(sizeof(QChar));
    }
    return bytes;
}
