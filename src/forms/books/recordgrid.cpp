#include "forms/books/recordgrid.h"

#include "data/recordsetmodel.h"

#include <QHeaderView>
#include <QIdentityProxyModel>

namespace {

constexpr int RecordSelectorWidth = 18;

// Shows the grid's own captions over the record set's fields.
class CaptionedColumns : public QIdentityProxyModel
{
public:
    CaptionedColumns(const QList<GridColumn> &columns, QObject *parent)
        : QIdentityProxyModel(parent)
        , m_columns(columns)
    {
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation == Qt::Vertical && role == Qt::DisplayRole)
            return QString();
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return fieldHeader(section, orientation, role);
        const QVariant field = fieldHeader(section, orientation, Qt::DisplayRole);
        for (const GridColumn &column : m_columns) {
            if (column.field.compare(field.toString(), Qt::CaseInsensitive) == 0)
                return column.caption;
        }
        return field;
    }

private:
    // The record set's own header: the field's name. The edit role asks for that name.
    QVariant fieldHeader(int section, Qt::Orientation orientation, int role) const
    {
        const int asked = role == Qt::EditRole ? int(Qt::DisplayRole) : role;
        return QIdentityProxyModel::headerData(section, orientation, asked);
    }

    QList<GridColumn> m_columns;
};

} // namespace

RecordGrid::RecordGrid(QWidget *parent)
    : QTableView(parent)
{
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setFixedWidth(RecordSelectorWidth);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setStretchLastSection(true);
    // A stretched last column is never narrower than the default; keep that small.
    horizontalHeader()->setDefaultSectionSize(RecordSelectorWidth * 4);
    setWordWrap(false);
}

void RecordGrid::setRows(RecordsetModel *rows, const QList<GridColumn> &columns)
{
    m_rows = rows;
    m_columns = columns;
    auto *captions = new CaptionedColumns(columns, this);
    captions->setSourceModel(rows);
    setModel(captions);
    // A new record source brings the columns back at their default width.
    connect(captions, &QAbstractItemModel::modelReset, this, &RecordGrid::sizeColumns);
    sizeColumns();
}

void RecordGrid::sizeColumns()
{
    for (int section = 0; section < model()->columnCount(); ++section) {
        const QString field = model()->headerData(section, Qt::Horizontal, Qt::EditRole).toString();
        for (const GridColumn &column : std::as_const(m_columns)) {
            if (column.width > 0 && column.field.compare(field, Qt::CaseInsensitive) == 0)
                setColumnWidth(section, column.width);
        }
    }
}

int RecordGrid::selectedCount() const
{
    return selectionModel() ? int(selectionModel()->selectedRows().size()) : 0;
}

int RecordGrid::currentRecord() const
{
    if (currentIndex().isValid())
        return currentIndex().row();
    return m_rows ? m_rows->currentRow() : -1;
}

QString RecordGrid::valueInCurrentRecord(int column) const
{
    const int row = currentRecord();
    if (!model() || row < 0)
        return {};
    return model()->index(row, column).data(Qt::EditRole).toString();
}

// Clicks and keys in the cells only move the current row; the record selectors (which
// select through the header, without an event of the cells) select.
QItemSelectionModel::SelectionFlags RecordGrid::selectionCommand(const QModelIndex &index,
                                                                 const QEvent *event) const
{
    if (event)
        return QItemSelectionModel::NoUpdate;
    return QTableView::selectionCommand(index, event);
}
