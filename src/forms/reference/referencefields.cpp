#include "forms/reference/referencefields.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMetaProperty>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

// Room for a short reference number; the other fields take the frame's width.
constexpr int KeyFieldWidth = 90;
constexpr int NotesLines = 4;

QWidget *createKey()
{
    auto *edit = new QLineEdit;
    edit->setReadOnly(true);
    edit->setMaximumWidth(KeyFieldWidth);
    // Shown only: the catalogue assigns it.
    edit->setFocusPolicy(Qt::ClickFocus);
    return edit;
}

QWidget *createChoice(const QStringList &choices)
{
    // A value outside the list, as an older catalogue may hold, still shows as it is.
    auto *combo = new QComboBox;
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->addItems(choices);
    combo->setMaxVisibleItems(int(choices.size()));
    return combo;
}

QWidget *createNotes()
{
    auto *notes = new QPlainTextEdit;
    notes->setTabChangesFocus(true);
    const int lineHeight = notes->fontMetrics().lineSpacing();
    notes->setMinimumHeight(lineHeight * NotesLines + 2 * notes->frameWidth() + 8);
    return notes;
}

QWidget *createWidget(const ReferenceField &field)
{
    switch (field.kind) {
    case FieldKind::Key:
        return createKey();
    case FieldKind::Choice:
        return createChoice(field.choices);
    case FieldKind::Notes:
        return createNotes();
    case FieldKind::Text:
        break;
    }
    return new QLineEdit;
}

QLabel *createLabel(const ReferenceField &field, QWidget *buddy)
{
    auto *label = new QLabel(field.label);
    label->setObjectName(u"lbl"_s + field.column);
    label->setBuddy(buddy);
    return label;
}

} // namespace

QList<FieldWidget> BuildFields(const QList<ReferenceField> &fields, QGridLayout *grid)
{
    QList<FieldWidget> built;
    int row = 0;
    for (const ReferenceField &field : fields) {
        QWidget *widget = createWidget(field);
        widget->setObjectName(field.objectName);
        widget->setToolTip(field.toolTip);
        const Qt::Alignment labelAlignment = field.kind == FieldKind::Notes
            ? Qt::AlignLeft | Qt::AlignTop
            : Qt::AlignLeft | Qt::AlignVCenter;
        grid->addWidget(createLabel(field, widget), row, 0, labelAlignment);
        const Qt::Alignment fieldAlignment =
            field.kind == FieldKind::Key ? Qt::AlignLeft : Qt::Alignment();
        grid->addWidget(widget, row, 1, fieldAlignment);
        built.append({&field, widget});
        ++row;
    }
    grid->setColumnStretch(1, 1);
    return built;
}

QString FieldText(const QWidget *field)
{
    return field->metaObject()->userProperty().read(field).toString();
}

void SetFieldText(QWidget *field, const QString &text)
{
    field->metaObject()->userProperty().write(field, text);
}
