#pragma once

#include <QString>

class QWidget;

// Help topics are numbered: every form and dialog has its own, the contents page is 8.
namespace HelpTopic {
inline constexpr int Contents = 8;
}

// The topic of a form or dialog by its name; the contents page for a name without one.
int HelpTopicForForm(const QString &formName);

// Opens the program's help window at a topic.
void ShowHelpTopic(int topic);
void ShowHelpForForm(const QString &formName);
// The topic of the nearest form around the widget: what F1 opens.
void ShowHelpForWidget(const QWidget *widget);
// What every form's Help button does: sends the form the F1 key, which opens its topic.
void SendHelpKey(QWidget *form);
