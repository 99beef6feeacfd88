#pragma once

#include <QComboBox>
#include <QVariant>

class RecordsetModel;

// A combo box that lists one field of a data control's rows and stands for another: a
// book's publisher is listed by name and kept by its key. Bound to a form's row through
// QDataWidgetMapper, which reads and writes `boundText`.
class DataCombo : public QComboBox
{
    Q_OBJECT
    Q_PROPERTY(QVariant boundText READ boundText WRITE setBoundText USER true)

public:
    // Rows shown at once when the list is open; longer lists scroll.
    static constexpr int VisibleRows = 20;

    explicit DataCombo(QWidget *parent = nullptr);

    void setRowSource(RecordsetModel *rows, const QString &listField, const QString &boundColumn);

    // The bound column's value of the chosen row; an invalid QVariant when none is chosen.
    QVariant boundText() const;
    // Chooses the row whose bound column shows this value; none when no row does.
    void setBoundText(const QVariant &value);

private:
    RecordsetModel *m_rows = nullptr;
    int m_boundColumn = -1;
};
