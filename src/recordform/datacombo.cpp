#include "recordform/datacombo.h"

#include "data/recordsetmodel.h"

#include <QListView>

using namespace Qt::StringLiterals;

DataCombo::DataCombo(QWidget *parent)
    : QComboBox(parent)
{
    // A list of thousands of rows opens as a scrolling list of about twenty, never as a menu
    // the height of the screen (which some styles make of a combo's list).
    setStyleSheet(u"QComboBox { combobox-popup: 0; }"_s);
    setMaxVisibleItems(VisibleRows);
    // Every entry is one line of text: the list lays out without asking each row its size,
    // so opening it reads only the rows it shows.
    if (auto *list = qobject_cast<QListView *>(view()))
        list->setUniformItemSizes(true);
}

void DataCombo::setRowSource(RecordsetModel *rows, const QString &listField,
                             const QString &boundColumn)
{
    m_rows = rows;
    setModel(rows);
    setModelColumn(rows->column(listField));
    m_boundColumn = rows->column(boundColumn);
}

QVariant DataCombo::boundText() const
{
    if (!m_rows || currentIndex() < 0)
        return {};
    return m_rows->data(m_rows->index(currentIndex(), m_boundColumn), Qt::EditRole);
}

void DataCombo::setBoundText(const QVariant &value)
{
    if (!m_rows)
        return;
    const QString wanted = value.toString();
    const QModelIndexList found = wanted.isEmpty()
        ? QModelIndexList()
        : m_rows->match(m_rows->index(0, m_boundColumn), Qt::EditRole, wanted, 1,
                        Qt::MatchFixedString);
    setCurrentIndex(found.isEmpty() ? -1 : found.first().row());
}
