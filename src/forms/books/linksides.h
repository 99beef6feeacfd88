#pragma once

#include "forms/books/frmbookmaintenance.h"
#include "forms/books/recordgrid.h"

#include <QList>
#include <QString>

// Everything in which linking a book to authors and to topics differs: the picker dialog,
// the statements, the messages and the controls of the book form.
struct LinkSideTexts
{
    LinkSide side;

    // The picker.
    QString dialog;
    int helpTopic = 0;
    QString dialogCaption;
    QString lookupCombo;
    QString lookupControl;
    QString lookupSource;
    // Empty: the lookup lists its computed second column.
    QString lookupListField;
    QString lookupBoundColumn;
    QString lookupToolTip;
    QString insertPrefix;
    QString duplicateMessage;
    QString nothingPickedMessage;

    // The book form's grid and buttons.
    QString linkControl;
    QList<GridColumn> gridColumns;
    QString deleteTitle;
    QString oneAtATimeMessage;
    QString noneSelectedMessage;
    QString question;
    QString deletePrefix;
    QString deleteKeyCondition;

    // The statement that lists a book's links: this text followed by the book's number.
    QString listSource;
};

const LinkSideTexts &LinkSideOf(LinkSide side);
const QList<LinkSideTexts> &LinkSides();

// A number as the link statements write it: the text read as a whole number. Text that is no
// number raises run-time error 13, "Type mismatch".
QString AsWholeNumber(const QString &text);
