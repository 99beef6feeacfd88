#pragma once

#include <QString>

class QWidget;

// Help topics are numbered: every form and dialog has its own, the contents page is 8.
namespace HelpTopic {
inline constexpr int Contents = 8;
}

// Each area gives the topics of its forms as it registers them (the frame's registry passes
// them on here), so that F1 finds them wherever the form sits.
void RegisterHelpTopic(const QString &formName, int topic);
// The frame's own: the frame, frmOpen, the two prompts and the about box.
void RegisterFrameHelpTopics();

// The topic of a form or dialog by its name; the contents page for a name without one.
int HelpTopicForForm(const QString &formName);

// Opens the program's help window at a topic.
void ShowHelpTopic(int topic);
void ShowHelpForForm(const QString &formName);
// The topic of the nearest form around the widget: what F1 opens.
void ShowHelpForWidget(const QWidget *widget);
// What every form's Help button does: sends the form the F1 key, which opens its topic.
void SendHelpKey(QWidget *form);
