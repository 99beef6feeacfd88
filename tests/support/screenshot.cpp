#include "support/screenshot.h"

#include <QDir>
#include <QPixmap>
#include <QWidget>

using namespace Qt::StringLiterals;

QString SaveScreenshot(QWidget *widget, const QString &name)
{
    QString folder = qEnvironmentVariable("SHELVANE_SCREENSHOTS");
    if (folder.isEmpty())
        folder = QDir::current().filePath(u"screenshots"_s);
    if (!QDir().mkpath(folder))
        return {};
    const QString path = QDir(folder).filePath(name + u".png"_s);
    return widget->grab().save(path) ? path : QString();
}
