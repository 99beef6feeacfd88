#pragma once

#include <QStyledItemDelegate>

// Hands a bound field's text to the record only when it differs from what the record shows.
// An empty field over an empty (NULL) column is no edit: browsing past a record whose notes
// were never filled in must not rewrite it, nor count as an edit pending when the form closes.
class ChangesOnlyDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
};
