#include "books/boundfielddelegate.h"

#include "shell/datacombo.h"

#include <QCheckBox>
#include <QMetaProperty>

namespace {

constexpr int Yes = 1;
constexpr int No = 0;

bool isFixedList(const QWidget *editor)
{
    return qobject_cast<const QComboBox *>(editor) && !qobject_cast<const DataCombo *>(editor);
}

QVariant valueOf(const QWidget *editor)
{
    if (const auto *check = qobject_cast<const QCheckBox *>(editor))
        return check->isChecked() ? Yes : No;
    if (isFixedList(editor))
        return static_cast<const QComboBox *>(editor)->currentText();
    if (const auto *combo = qobject_cast<const DataCombo *>(editor))
        return combo->boundText().isValid() ? combo->boundText().toString() : QString();
    const QByteArray property = editor->metaObject()->userProperty().name();
    return editor->property(property.constData());
}

} // namespace

void BoundFieldDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QString shown = index.data(Qt::EditRole).toString();
    if (auto *check = qobject_cast<QCheckBox *>(editor)) {
        check->setChecked(!shown.isEmpty() && shown != QString::number(No));
        return;
    }
    if (isFixedList(editor)) {
        auto *list = static_cast<QComboBox *>(editor);
        list->setCurrentIndex(shown.isEmpty() ? -1 : list->findText(shown));
        return;
    }
    QItemDelegate::setEditorData(editor, index);
}

void BoundFieldDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                      const QModelIndex &index) const
{
    const QVariant value = valueOf(editor);
    if (value.toString() == model->data(index, Qt::EditRole).toString())
        return;
    model->setData(index, value, Qt::EditRole);
}
