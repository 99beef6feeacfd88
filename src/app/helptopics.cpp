#include "app/helptopics.h"

#include "app/helpwindow.h"
#include "app/programfolder.h"
#include "recordform/msgbox.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

// By form name; the numbers are the identifiers of the topics in the help project
// (help/Shelvane.qhp).
QHash<QString, int> &topicsByForm()
{
    static QHash<QString, int> topics;
    return topics;
}

QString helpCollection()
{
    return ProgramFile(u"Shelvane.qhc"_s);
}

// One help window for the whole program, made on first use and gone when the user closes it.
HelpWindow *helpWindow()
{
    static QPointer<HelpWindow> window;
    if (!window) {
        window = new HelpWindow(helpCollection());
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, window, &QObject::deleteLater);
    }
    return window;
}

} // namespace

void RegisterHelpTopic(const QString &formName, int topic)
{
    topicsByForm().insert(formName, topic);
}

void RegisterFrameHelpTopics()
{
    const QList<std::pair<QString, int>> topics{
        {u"MDIForm1"_s, 1}, {u"frmOpen"_s, 2}, {u"dlgAddPrompt"_s, 3}, {u"dlgDelPrompt"_s, 4},
        {u"frmAbout"_s, 5}};
    for (const auto &[form, topic] : topics)
        RegisterHelpTopic(form, topic);
}

int HelpTopicForForm(const QString &formName)
{
    return topicsByForm().value(formName, HelpTopic::Contents);
}

void ShowHelpTopic(int topic)
{
    HelpWindow *window = helpWindow();
    if (!window->showTopic(topic)) {
        MsgBox(u"The help file "_s + QDir::toNativeSeparators(helpCollection())
                   + u" could not be opened."_s,
               Vb::OKOnly | Vb::Exclamation, u"Shelvane Help"_s);
        return;
    }
    window->show();
    window->raise();
    window->activateWindow();
}

void ShowHelpForForm(const QString &formName)
{
    ShowHelpTopic(HelpTopicForForm(formName));
}

void ShowHelpForWidget(const QWidget *widget)
{
    for (const QWidget *w = widget; w; w = w->parentWidget()) {
        if (topicsByForm().contains(w->objectName())) {
            ShowHelpForForm(w->objectName());
            return;
        }
    }
    ShowHelpTopic(HelpTopic::Contents);
}

void SendHelpKey(QWidget *form)
{
    QKeyEvent f1(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    QCoreApplication::sendEvent(form, &f1);
}
