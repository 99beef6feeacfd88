#pragma once

#include "data/fieldformat.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QPointer>

class DataControl;
class Recordset;

// The rows of a data control for Qt's views: a QTableView shows them as a grid, a
// QDataWidgetMapper binds text boxes, check boxes and combos to the current row, and a
// QComboBox lists one column. Display and edit roles give the text as the user sees it
// (after the column's format); setData() reads it back and edits the record set's row.
class RecordsetModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit RecordsetModel(DataControl *control, QObject *parent = nullptr);

    void setColumnFormat(const QString &field, FieldFormat format);
    // The model column of a field, by name in any letter case; -1 when there is none.
    int column(const QString &field) const;
    // The row of the record set's current record, or -1.
    int currentRow() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    // A search for a text from the first row (a combo's findText) asks the record set, which
    // need not read every row before the one it finds.
    QModelIndexList match(const QModelIndex &start, int role, const QVariant &value, int hits = 1,
                          Qt::MatchFlags flags = Qt::MatchFlags(Qt::MatchStartsWith
                                                                | Qt::MatchWrap)) const override;

Q_SIGNALS:
    // The record set moved: views select this row, mappers show it.
    void currentRowChanged(int row);

private:
    void attach();

    QPointer<DataControl> m_control;
    QPointer<Recordset> m_recordset;
    QHash<int, FieldFormat> m_formats;
};
