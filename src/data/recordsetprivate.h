#pragma once

#include "data/connection.h"
#include "data/lazyrows.h"
#include "data/recordset.h"
#include "data/rowstore.h"
#include "data/tablewriter.h"

#include <QHash>
#include <QStringList>

#include <optional>
#include <vector>

// What a record set holds: its rows, read all at once or, for an ordered select over one
// table (alone or joined with others), by their keys first and their fields as the rows are
// visited; its position; the record being edited; and the key index Find uses.
struct Recordset::Private
{
    Connection *connection = nullptr;
    QString sql;
    bool readWhole = false; // every row at once, even where they could be read as visited
    bool open = false;
    QStringList fields;
    QHash<QString, int> fieldByName; // lower-case name to index
    // Rows not yet read hold only their key; `lazy` reads them when they are visited.
    mutable RowStore store;
    mutable std::optional<LazyRows> lazy;
    std::vector<Bookmark> serials; // ascending, so a bookmark is found by binary search
    Bookmark nextSerial = 1;
    int pos = -1;     // -1 BOF, count EOF
    bool gap = false; // on the place of a deleted row, which pos now names the row after
    EditMode mode = EditMode::None;
    QVariantList pending;
    int rowBeforeAdd = -1;
    std::optional<TableWriter> writer;
    mutable QHash<qint64, int> keyIndex; // each key's first row
    mutable bool keyIndexValid = false;
    mutable bool keysUnique = true;

    int count() const { return store.rowCount(); }
    bool onRow() const { return open && !gap && pos >= 0 && pos < count(); }

    void setFields(const QStringList &names);
    void appendRow(const QVariantList &values);
    // Makes sure a row's fields have been read.
    void read(int row) const;

    void fetch();
    // Reads only the keys, in order, when the select is over one table with a key.
    bool fetchKeys();
    void fetchAll();

    // The column of the key rows are found by: the lazy rows' key, else the written table's;
    // -1 when there is none.
    int keyColumn() const;

    // A field by name or position; an unknown one is ADO's "Item cannot be found".
    int field(const QString &name) const;
    void checkField(int index) const;
    // The first row of a key, through an index built at the first use after the rows changed.
    int rowOf(qint64 key) const;
    // Whether no key is on two rows (a join can give a row twice).
    bool eachKeyOnce() const;
};
