#pragma once

#include <QItemDelegate>

// Moves values between a record form's widgets and its row: check boxes hold 1 and 0 as the
// catalogue does, a fixed list shows no choice for a value it does not list, and a widget
// whose value is still the one the row shows writes nothing, so that only what the user
// changed becomes an edit of the row.
class BoundFieldDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    using QItemDelegate::QItemDelegate;

    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
};
