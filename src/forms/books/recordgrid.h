#pragma once

#include <QList>
#include <QTableView>

class RecordsetModel;

// A grid's column: the field it shows, its caption and its width (0: the rest of the grid).
struct GridColumn
{
    QString field;
    QString caption;
    int width = 0;
};

// A grid over a data control's rows. Rows are selected only by clicking the record selectors
// at the far left (with Ctrl or Shift for more than one); clicking a cell makes its row the
// current one without selecting it.
class RecordGrid : public QTableView
{
    Q_OBJECT

public:
    explicit RecordGrid(QWidget *parent = nullptr);

    void setRows(RecordsetModel *rows, const QList<GridColumn> &columns);

    int selectedCount() const;
    // The row the grid is on: the one last clicked, else the record set's current row.
    int currentRecord() const;
    // A field's value in that row, as the grid shows it.
    QString valueInCurrentRecord(int column) const;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;

private:
    void sizeColumns();

    RecordsetModel *m_rows = nullptr;
    QList<GridColumn> m_columns;
};
