#pragma once

#include <QByteArray>
#include <QVariant>

#include <cstdint>
#include <vector>

// The rows of a record set, column by column: whole numbers and reals as plain 8-byte
// values, text as UTF-8 in one pool per column. A catalogue of thirty thousand books fits
// in little more than the bytes of its text and numbers; a QVariant per cell would take
// several times that.
class RowStore
{
public:
    void reset(int columnCount);
    int rowCount() const { return m_rowCount; }
    int columnCount() const { return int(m_columns.size()); }

    QVariant value(int row, int column) const;
    QVariantList row(int row) const;
    void appendRow(const QVariantList &values);
    void setRow(int row, const QVariantList &values);
    void setValue(int row, int column, const QVariant &value);
    void removeRow(int row);
    // Gives back the room reserved for growth, once all rows are in.
    void squeeze();

    // Bytes held for the rows' values, for the benchmarks.
    qint64 bytesUsed() const;

private:
    enum class Kind : std::uint8_t { Unset, Integer, Real, Text, Variant };
    struct TextRef
    {
        std::uint32_t offset = 0;
        std::uint32_t length = 0;
    };
    struct Column
    {
        Kind kind = Kind::Unset;
        std::vector<bool> isNull;
        std::vector<qint64> integers;
        std::vector<double> reals;
        std::vector<TextRef> texts;
        QByteArray pool;
        std::vector<QVariant> variants;
    };

    static Kind kindOf(const QVariant &value);
    static void widen(Column &column, Kind kind, int rows);
    void store(Column &column, int row, const QVariant &value);
    void appendCell(Column &column, const QVariant &value);

    std::vector<Column> m_columns;
    int m_rowCount = 0;
};
