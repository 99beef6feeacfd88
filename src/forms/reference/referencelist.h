#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// What one of the reference lists (authors, topics, publishers) is made of. One maintenance
// form serves them all; everything in which the lists differ is here, so another list is
// another row of ReferenceLists(), not another form.

// How a field of the list is shown and edited.
enum class FieldKind {
    Key,    // the record's number, assigned by the catalogue and only shown
    Text,   // one line of text
    Choice, // picked from a fixed list
    Notes,  // free text over several lines
};

struct ReferenceField
{
    QString objectName;
    QString column;
    QString label; // with its access key
    QString toolTip;
    FieldKind kind = FieldKind::Text;
    QStringList choices;
    // A mandatory field is yellow while adding, and is checked, in field order, with this
    // message when the user leaves it or confirms. Empty for an optional field.
    QString missingMessage;

    bool isMandatory() const { return !missingMessage.isEmpty(); }
};

struct ReferenceMessage
{
    QString text;
    QString title;
};

// What the form does when the catalogue refuses to delete a record.
enum class DeleteRefusal {
    Halt,            // the program ends at once, without a word
    RunTimeError,    // the error is not trapped and is reported as a run-time error
    InUseMessage,    // the "in use" message when related records hold the row, else reported
};

// A data control of the form: its name and its record source.
struct ReferenceSource
{
    QString name;
    QString sql;
};

struct ReferenceList
{
    QString formName; // also the settings section of its prompt preferences
    QString menuEntry; // the frame's entry that opens the form, off while it is open
    int helpTopic = 0;
    QString caption;
    QString entity;   // the status text reads entity + " n of m"

    ReferenceSource edited; // every field is bound to it
    ReferenceSource lookup; // the rows of the lookup combo
    QString lookupCombo;
    QString lookupLabel;
    QString lookupToolTip;
    QString listField; // shown in the lookup, and put there after every move
    QString keyField;  // what the lookup and a new record are found again by

    QList<ReferenceField> fields;
    QString focusAfterAdd;

    // The add and delete prompts (dlgAddPrompt, dlgDelPrompt): their text and caption.
    ReferenceMessage addPrompt;
    ReferenceMessage deletePrompt;
    ReferenceMessage added;
    ReferenceMessage removed;
    DeleteRefusal refusal = DeleteRefusal::RunTimeError;
    ReferenceMessage inUse;
    // Closing the form refreshes the book form's publisher list.
    bool refreshesBookPublishers = false;
};

// The authors, topics and publishers, in that order.
const QList<ReferenceList> &ReferenceLists();
