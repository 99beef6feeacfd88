#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QVariant>

#include <cstdint>
#include <span>
#include <vector>

// The rows of a record set, column by column: whole numbers and reals as plain 8-byte
// values, text as UTF-8 in one pool per column. A catalogue of thirty thousand books fits
// in little more than the bytes of its text and numbers; a QVariant per cell would take
// several times that.
class RowStore
{
public:
    // One value as a reader of many rows has it at hand, without a QVariant: text as UTF-8
    // bytes that need to live only until the row is stored.
    struct Cell
    {
        enum class Type : std::uint8_t { Null, Integer, Real, Text, Other };
        Type type = Type::Null;
        qint64 integer = 0;
        double real = 0;
        QByteArrayView text;
        // The value itself when the reader has one (a blob, or how a Null shows); a column of
        // mixed kinds keeps it as it is.
        QVariant other;
    };

    void reset(int columnCount);
    int rowCount() const { return m_rowCount; }
    int columnCount() const { return int(m_columns.size()); }

    QVariant value(int row, int column) const;
    QVariantList row(int row) const;
    void appendRow(const QVariantList &values);
    void appendRow(std::span<const Cell> cells);
    // Rows holding only their key, every other field Null.
    void appendKeyRows(int keyColumn, std::span<const qint64> keys);
    void setRow(int row, const QVariantList &values);
    void setRow(int row, std::span<const Cell> cells);
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

    static Kind kindOf(const Cell &cell);
    // A QVariant as a cell; its text's bytes are kept in `utf8`.
    static Cell cellOf(const QVariant &value, QByteArray &utf8);
    static QVariant variantOf(const Cell &cell);
    static void widen(Column &column, Kind kind, int rows);
    void store(Column &column, int row, const Cell &cell);
    void appendCell(Column &column, const Cell &cell);
    void setCell(int row, int column, const Cell &cell);

    std::vector<Column> m_columns;
    int m_rowCount = 0;
};
