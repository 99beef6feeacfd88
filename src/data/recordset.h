#pragma once

#include "data/connection.h"
#include "data/rowstore.h"

#include <QObject>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <optional>

// A client-side static cursor: the rows of a query, in order, held in memory, with the
// moves, finds, bookmarks and edits the forms rely on. An ordered select over one table with
// a key reads only the keys when it opens and each row's fields when the row is first
// visited (see LazyRows, which also says what another connection's changes do); any other
// select is read whole. A record set over
// one table that has a key writes its changes back to that table by key, with bound
// parameters. A move off an edited row writes it first; a write that fails leaves the edit
// pending and throws the ProviderError.
class Recordset : public QObject
{
    Q_OBJECT

public:
    enum class EditMode { None = 0, InProgress = 1, Add = 2 };
    // Why a row is about to change: the first edit of a row, or a write of it.
    enum class ChangeReason { FirstChange, Write, Delete };
    // AbsolutePosition when there is no current row.
    static constexpr int PositionUnknown = -1;
    static constexpr int PositionBOF = -2;
    static constexpr int PositionEOF = -3;

    using Bookmark = qint64;

    // How the rows are read: as visited where the select allows it, or every row at once,
    // for a caller that visits them all.
    enum class Reading { AsVisited, Whole };

    // Runs a select (through the Jet SQL translator) on the connection. Throws ProviderError.
    static std::unique_ptr<Recordset> open(Connection &connection, const QString &commandText,
                                           CommandType type = CommandType::Text,
                                           Reading reading = Reading::AsVisited);
    // A read-only record set over rows already in hand (the chapters of a shaped command).
    static std::unique_ptr<Recordset> fromRows(const QStringList &fieldNames,
                                               const QList<QVariantList> &rows);
    ~Recordset() override;

    bool isOpen() const;
    void close();

    bool bof() const;
    bool eof() const;
    int recordCount() const;
    // 1-based position of the current row; PositionBOF, PositionEOF or PositionUnknown when
    // there is none.
    int absolutePosition() const;
    // 0-based index of the current row among the rows, or -1.
    int currentRow() const;

    void moveFirst();
    void movePrevious();
    void moveNext();
    void moveLast();
    // Moves n rows from the current one; Move(0) writes a pending change and stays.
    void move(int n);
    void moveTo(int row);
    // Finds the next row (or previous, when !forward) meeting a criterion "Column = value",
    // starting `skip` rows away from the current one. Ends at EOF (or BOF) when none does.
    // Throws ProviderError for a criterion it cannot read.
    bool find(const QString &criterion, int skip = 0, bool forward = true);

    Bookmark bookmark() const;
    void setBookmark(Bookmark bookmark);

    int fieldCount() const;
    QStringList fieldNames() const;
    // Index of a field by name, in any letter case; -1 when there is none.
    int fieldIndex(const QString &name) const;
    // The current row's value (with its pending edit). Throws ProviderError when there is no
    // current row or no such field.
    QVariant value(const QString &name) const;
    QVariant value(int field) const;
    void setValue(const QString &name, const QVariant &value);
    void setValue(int field, const QVariant &value);
    // Any row's value without moving to it (a pending edit shows on its row).
    QVariant valueAt(int row, int field) const;
    // The first row whose field shows `text` (a Null shows as empty), or -1. Rows not read
    // yet are looked up in the catalogue rather than read one page after another.
    int firstRowShowing(int field, const QString &text, Qt::CaseSensitivity cs) const;

    void addNew();
    void update();
    void cancelUpdate();
    // Deletes the current row from its table; the cursor stays on the gap until it moves.
    void deleteCurrent();
    EditMode editMode() const;

    void requery();

    // Bytes held for the rows' values, for the benchmarks.
    qint64 bytesHeld() const;
    // Rows whose fields are in memory: all of them unless the record set reads lazily.
    int rowsRead() const;

    bool isUpdatable() const;
    QString baseTable() const;
    QString keyField() const;

Q_SIGNALS:
    void willChangeRecord(Recordset::ChangeReason reason);
    void moveComplete();
    // For views over the rows: the about-to signals come before the change, the others after.
    void aboutToReset();
    void resetDone();
    void aboutToInsertRow(int row);
    void rowInserted(int row);
    void aboutToRemoveRow(int row);
    void rowRemoved(int row);
    void rowChanged(int row);
    // One field of a row was edited (not yet written).
    void fieldChanged(int row, int field);

private:
    Recordset();
    struct Private;
    std::unique_ptr<Private> d;
};
