#pragma once

#include "bookformfixture.h"

#include <QString>
#include <QStringList>

class QWidget;

// The title of the book that starts the mandatory-field checks.
extern const QString CheckTitle;
// The fields a new book must have, in the order Confirm checks them.
extern const QStringList MandatoryFields;

// A control of the form by name; a missing one is reported.
QWidget *control(const QWidget *form, const QString &name);
// Gives the control the focus, in the active frame.
void focus(QWidget *widget);
// The control that has the focus in the frame (once the frame is the active window again,
// after a message box).
QWidget *focused(const QWidget *form);
// The title of the book with the given key, straight from the file.
QString title(const BookFormFixture &fixture, const QString &id);
// Fills the first `count` mandatory fields of a new book, in checking order.
void fillMandatory(QWidget *form, int count, const QString &bookTitle = QStringLiteral("Zebra Crossings"));
