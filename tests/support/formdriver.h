#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

class QLineEdit;
class QWidget;

// Picks a task form's menu entry as a person does and makes the form's window the active
// one, so that typing and clicking reach it. nullptr when the form did not open.
QWidget *OpenThroughMenu(const QString &menuEntry, const QString &formName);

// Opens the form through its menu entry and closes it with its Exit button, checking that
// the entry is disabled while the form is open and enabled again once it is gone. Answers
// what was otherwise, empty when all was so.
QString MenuEntryFollowsForm(const QString &menuEntry, const QString &formName);

// Shows the book form through its menu entry, types `text` at the end of the shown book's
// title and moves to the next book, which writes the edit as it does for a person. Answers
// the edited book's key; empty when the form did not open.
QString AppendToShownTitle(const QString &text);

// Replaces a box's text key by key, so that its key filter sees every character.
void Retype(QLineEdit *box, const QString &text);

// Clicks the named button of a form with the mouse.
void ClickButton(const QWidget *form, const QString &name);

// The text a line edit of the form shows; "(none)" when the form has no such box.
QString BoxText(const QWidget *form, const QString &name);

// The title of the help page shown now; "(no help window)" when none is shown.
QString ShownHelpTopic();

// Shows help topic `topic` as F1 does and answers what it lacks: its title when another
// page shows, else each of `texts` that it does not say; empty when it says them all. The
// help window is left open, `size` large, and a picture of it saved as `screenshot`.
QString HelpTopicLacks(int topic, const QString &title, const QStringList &texts,
                       const QSize &size, const QString &screenshot);
