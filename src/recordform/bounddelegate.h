#pragma once

#include <QStyledItemDelegate>

// Moves values between a record form's widgets and its row where a widget's own value is not
// what the catalogue holds: a check box stands for 1 or 0, and a fixed list shows no choice
// for a value it does not list, and writes none back. Whether any other value is an edit of
// the row is the row model's to tell.
class BoundDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
};
