#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>
#include <vector>

class Connection;
class RowStore;

// The rows of an ordered select read as they are visited: a select over one table with a
// key, or a select of one table's fields joined with other tables (each of its rows is a row
// of that table; the join says which, and how many times). Opening reads only the keys, in
// order: that fixes which rows there are and where, until the next requery. The other
// fields of a row are read, by key and with bound parameters, with its page the first time a
// row of the page is visited, and then kept.
//
// What another connection does meanwhile: a row it changes before its page is read shows
// the new values (as a full read made at that moment would); a row it deletes keeps its
// place and its key, with every other field Null, as a row deleted under a static cursor
// does (for a join, so does a row the join no longer gives); a row it adds is not among the
// rows until the next requery.
class LazyRows
{
public:
    // Rows a visit reads at once; a scan in order reads ever longer runs.
    static constexpr int PageRows = 64;
    static constexpr int LongestRun = 4096;

    // Lazy reading for a select of the form "select <fields> from <table> [where ...] order
    // by ..."; none for anything else (joins, groups, limits, sub-selects).
    static std::optional<LazyRows> forSelect(const QString &select);
    // Lazy reading for "select <table>.* (or <table>.<field>, ...) from <table>, <others>
    // [where ...] order by ..." (or "<table> [inner|left|cross] join ..."); none for anything
    // else (fields of the other tables, groups, limits, sub-selects, text in quotes).
    static std::optional<LazyRows> forJoin(const QString &select);

    // The select's field names, found without reading a row, when the table's key is among
    // them; none when the catalogue refuses or the key is not read (the full read then tells).
    std::optional<QStringList> fieldNames(Connection &connection);
    QString keyField() const { return m_keyField; }
    int keyColumn() const { return m_keyColumn; }
    // The keys of the rows in order (ties broken by key); none when the catalogue refuses
    // the statement or a key is not a whole number, so the caller reads every row instead.
    std::optional<std::vector<qint64>> readKeys(Connection &connection);

    bool isRead(int row) const { return m_read[std::size_t(row)]; }
    int rowsRead() const { return int(m_read.size()) - m_unread; }
    // Reads the page holding `row` into the store, whose key column already holds every
    // row's key. Throws ProviderError.
    void readPage(Connection &connection, RowStore &store, int row);
    // The keys of the rows whose text field may equal `text` (in any letter case when
    // asked), from the catalogue: every row that does is among them. None when the catalogue
    // cannot tell (the field is not a text column of the table, or the letter case of the
    // text goes beyond what the catalogue folds).
    std::optional<QVariantList> keysMaybeWithText(Connection &connection, const QString &field,
                                                  const QString &text,
                                                  Qt::CaseSensitivity cs) const;
    // A row added at the end by this record set, and one it removed.
    void rowAppended();
    void rowRemoved(int row);

private:
    QString m_fields;
    QString m_table;
    QString m_from;      // the tables as the select names them
    QString m_where;
    QString m_pageWhere; // what else a row must meet when its page is read
    QString m_order;
    QString m_keyField;
    int m_keyColumn = -1;
    std::vector<bool> m_read;
    int m_unread = 0;
    int m_run = PageRows;
};
