#include "reference/changesonlydelegate.h"

#include <QMetaProperty>
#include <QWidget>

void ChangesOnlyDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                       const QModelIndex &index) const
{
    const QString shown = editor->metaObject()->userProperty().read(editor).toString();
    if (shown == index.data(Qt::EditRole).toString())
        return;
    QStyledItemDelegate::setModelData(editor, model, index);
}
