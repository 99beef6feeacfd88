#include "app/application.h"

#include "app/helptopics.h"
#include "app/mainframe.h"
#include "data/datacontrol.h"
#include "data/providererror.h"
#include "data/runtimeerror.h"
#include "recordform/msgbox.h"
#include "recordform/runtimeerrorreport.h"

#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

bool isHelpKey(const QEvent *event)
{
    return event->type() == QEvent::KeyPress
        && static_cast<const QKeyEvent *>(event)->key() == Qt::Key_F1;
}

bool isCloseChildKey(const QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto *key = static_cast<const QKeyEvent *>(event);
    return key->key() == Qt::Key_F4 && key->modifiers() == Qt::ControlModifier;
}

// Ctrl+F4 closes the frame's active child window wherever the keyboard is, even where no
// control has it, and whatever the desktop binds to closing (some, Ctrl+W alone). Answers
// whether there was one.
bool closeActiveChild(QWidget *receiver)
{
    const auto *frame = qobject_cast<MainFrame *>(receiver->window());
    QMdiSubWindow *child = frame ? frame->mdiArea()->activeSubWindow() : nullptr;
    if (!child)
        return false;
    child->close();
    return true;
}

} // namespace

Application::Application(int &argc, char **argv)
    : QApplication(argc, argv)
{
    // The settings store of the prompt preferences is kept under this name.
    setApplicationName(u"prjQuireshelf"_s);
    setOrganizationName(u"Shelvane"_s);
    setApplicationVersion(QStringLiteral(SHELVANE_VERSION));
    // A data control's standard message for an error its form's handler lets through.
    DataControl::setErrorPresenter([](int, const QString &description) {
        MsgBox(description, Vb::OKOnly | Vb::Exclamation, QString());
    });
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    try {
        if (receiver->isWidgetType() && isHelpKey(event)) {
            ShowHelpForWidget(static_cast<QWidget *>(receiver));
            return true;
        }
        if (receiver->isWidgetType() && isCloseChildKey(event)
            && closeActiveChild(static_cast<QWidget *>(receiver)))
            return true;
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError &error) {
        ReportRuntimeError(error.number, error.description);
    } catch (const ProviderError &error) {
        ReportRuntimeError(error.number, error.description);
    }
    return true;
}
