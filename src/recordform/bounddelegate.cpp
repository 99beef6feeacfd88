#include "recordform/bounddelegate.h"

#include "recordform/datacombo.h"

#include <QCheckBox>
#include <QLineEdit>

namespace {

constexpr int Yes = 1;
constexpr int No = 0;

// A list that takes no typing and lists texts rather than rows; nullptr for anything else.
QComboBox *fixedList(QWidget *editor)
{
    auto *list = qobject_cast<QComboBox *>(editor);
    if (!list || list->isEditable() || qobject_cast<DataCombo *>(list))
        return nullptr;
    return list;
}

} // namespace

void BoundDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QString shown = index.data(Qt::EditRole).toString();
    if (auto *check = qobject_cast<QCheckBox *>(editor))
        check->setChecked(!shown.isEmpty() && shown != QString::number(No));
    else if (QComboBox *list = fixedList(editor))
        list->setCurrentIndex(shown.isEmpty() ? -1 : list->findText(shown));
    else
        QStyledItemDelegate::setEditorData(editor, index);
    // A text box filled by the program shows the start of its text, not the end.
    if (auto *box = qobject_cast<QLineEdit *>(editor))
        box->setCursorPosition(0);
}

void BoundDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                 const QModelIndex &index) const
{
    if (const auto *check = qobject_cast<const QCheckBox *>(editor)) {
        model->setData(index, check->isChecked() ? Yes : No, Qt::EditRole);
        return;
    }
    // A fixed list cannot be emptied by the user: showing no choice, it leaves the field as it
    // is, also a value the list does not hold.
    if (const QComboBox *list = fixedList(editor); list && list->currentIndex() < 0)
        return;
    QStyledItemDelegate::setModelData(editor, model, index);
}
