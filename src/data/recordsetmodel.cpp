#include "data/recordsetmodel.h"

#include "data/datacontrol.h"
#include "data/providererror.h"
#include "data/recordset.h"

using namespace Qt::StringLiterals;

namespace {

QString lineFeedsOnly(QString text)
{
    return text.replace(u"\r\n"_s, u"\n"_s);
}

} // namespace

RecordsetModel::RecordsetModel(DataControl *control, QObject *parent)
    : QAbstractTableModel(parent)
    , m_control(control)
{
    connect(control, &DataControl::recordsetChanged, this, [this] {
        beginResetModel();
        attach();
        endResetModel();
        Q_EMIT currentRowChanged(currentRow());
    });
    connect(control, &DataControl::moveComplete, this,
            [this] { Q_EMIT currentRowChanged(currentRow()); });
    attach();
}

// Follows the control's record set: its row changes become the model's signals.
void RecordsetModel::attach()
{
    if (m_recordset)
        disconnect(m_recordset, nullptr, this, nullptr);
    m_recordset = m_control ? m_control->recordset() : nullptr;
    if (!m_recordset)
        return;
    Recordset *rs = m_recordset;
    connect(rs, &Recordset::aboutToReset, this, &RecordsetModel::beginResetModel);
    connect(rs, &Recordset::resetDone, this, &RecordsetModel::endResetModel);
    connect(rs, &Recordset::aboutToInsertRow, this,
            [this](int row) { beginInsertRows({}, row, row); });
    connect(rs, &Recordset::rowInserted, this, &RecordsetModel::endInsertRows);
    connect(rs, &Recordset::aboutToRemoveRow, this,
            [this](int row) { beginRemoveRows({}, row, row); });
    connect(rs, &Recordset::rowRemoved, this, &RecordsetModel::endRemoveRows);
    connect(rs, &Recordset::rowChanged, this, [this](int row) {
        if (row >= 0 && row < rowCount())
            Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
    });
    // Only the edited cell: a mapper refreshes every widget a change covers, which would
    // throw away what the user typed into the others and has not submitted yet.
    connect(rs, &Recordset::fieldChanged, this, [this](int row, int field) {
        Q_EMIT dataChanged(index(row, field), index(row, field));
    });
}

void RecordsetModel::setColumnFormat(const QString &field, FieldFormat format)
{
    const int c = column(field);
    if (c >= 0)
        m_formats.insert(c, format);
}

int RecordsetModel::column(const QString &field) const
{
    return m_recordset ? m_recordset->fieldIndex(field) : -1;
}

int RecordsetModel::currentRow() const
{
    return m_recordset ? m_recordset->currentRow() : -1;
}

int RecordsetModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !m_recordset || !m_recordset->isOpen() ? 0
                                                                      : m_recordset->recordCount();
}

int RecordsetModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() || !m_recordset ? 0 : m_recordset->fieldCount();
}

QVariant RecordsetModel::data(const QModelIndex &index, int role) const
{
    // An editable combo with no row chosen asks for the icon of "no row": nothing, quietly.
    if (!index.isValid())
        return {};
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || !m_recordset)
        return {};
    QVariant value;
    try {
        value = m_recordset->valueAt(index.row(), index.column());
    } catch (const ProviderError &) {
        return {}; // a page the catalogue refused to read shows empty; the next visit retries
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return FieldFormats::display(value, m_formats.value(index.column(), FieldFormat::Plain));
    case Qt::CheckStateRole:
        return {};
    default:
        return {};
    }
}

bool RecordsetModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !checkIndex(index, CheckIndexOption::IndexIsValid) || !m_recordset)
        return false;
    const FieldFormat format = m_formats.value(index.column(), FieldFormat::Plain);
    const QVariant current = m_recordset->valueAt(index.row(), index.column());
    QVariant stored = value;
    if (value.typeId() == QMetaType::QString && format != FieldFormat::Plain) {
        stored = FieldFormats::parse(value.toString(), format);
        if (!stored.isValid())
            return false;
    }
    // A bound widget refilled by the program is not an edit of the row, and neither is an
    // empty box over an empty (null) field, nor a multi-line box that gives back with line
    // feeds alone the lines a note broke with CR LF.
    if (lineFeedsOnly(FieldFormats::display(stored, format))
        == lineFeedsOnly(FieldFormats::display(current, format)))
        return true;
    return m_control->guarded([&](Recordset &rs) {
        if (rs.currentRow() != index.row())
            rs.moveTo(index.row());
        rs.setValue(index.column(), stored);
    });
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || !m_recordset)
        return {};
    if (orientation == Qt::Horizontal && section >= 0 && section < columnCount())
        return m_recordset->fieldNames().at(section);
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags RecordsetModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid() && m_recordset && m_recordset->isUpdatable())
        flags |= Qt::ItemIsEditable;
    return flags;
}

QModelIndexList RecordsetModel::match(const QModelIndex &start, int role, const QVariant &value,
                                      int hits, Qt::MatchFlags flags) const
{
    const Qt::MatchFlags how = flags & ~Qt::MatchFlags(Qt::MatchCaseSensitive);
    const bool textSearch = (how == Qt::MatchExactly || how == Qt::MatchFixedString)
        && value.typeId() == QMetaType::QString;
    const bool plain = m_formats.value(start.column(), FieldFormat::Plain) == FieldFormat::Plain;
    if (!m_recordset || !start.isValid() || start.row() != 0 || hits != 1
        || (role != Qt::DisplayRole && role != Qt::EditRole) || !textSearch || !plain)
        return QAbstractTableModel::match(start, role, value, hits, flags);
    // Exactly is an exact comparison of the shown text, whatever the case flag says.
    const Qt::CaseSensitivity cs = how == Qt::MatchFixedString && !(flags & Qt::MatchCaseSensitive)
        ? Qt::CaseInsensitive
        : Qt::CaseSensitive;
    int row = -1;
    try {
        row = m_recordset->firstRowShowing(start.column(), value.toString(), cs);
    } catch (const ProviderError &) {
        return {};
    }
    return row < 0 ? QModelIndexList() : QModelIndexList{index(row, start.column())};
}
