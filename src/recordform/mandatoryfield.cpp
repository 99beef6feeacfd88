#include "recordform/mandatoryfield.h"

#include <QColor>
#include <QComboBox>
#include <QPalette>
#include <QWidget>

void SetMandatoryColour(QWidget *field, bool adding)
{
    const QColor colour = adding ? QColor(255, 255, 0) : QColor(255, 255, 255);
    QPalette palette = field->palette();
    palette.setColor(QPalette::Base, colour);
    // A drop-down list that takes no typing is painted as a button, not as a text field.
    const auto *combo = qobject_cast<const QComboBox *>(field);
    if (combo && !combo->isEditable())
        palette.setColor(QPalette::Button, colour);
    field->setPalette(palette);
}
