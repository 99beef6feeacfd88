#include "shell/application.h"

#include "data/providererror.h"
#include "data/runtimeerror.h"
#include "shell/helptopics.h"
#include "shell/runtimeerrorreport.h"

#include <QKeyEvent>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

bool isHelpKey(const QEvent *event)
{
    return event->type() == QEvent::KeyPress
        && static_cast<const QKeyEvent *>(event)->key() == Qt::Key_F1;
}

} // namespace

Application::Application(int &argc, char **argv)
    : QApplication(argc, argv)
{
    // The settings store of the prompt preferences is kept under this name.
    setApplicationName(u"prjQuireshelf"_s);
    setOrganizationName(u"Shelvane"_s);
    setApplicationVersion(QStringLiteral(SHELVANE_VERSION));
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    try {
        if (receiver->isWidgetType() && isHelpKey(event)) {
            ShowHelpForWidget(static_cast<QWidget *>(receiver));
            return true;
        }
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError &error) {
        ReportRuntimeError(error.number, error.description);
    } catch (const ProviderError &error) {
        ReportRuntimeError(error.number, error.description);
    }
    return true;
}
