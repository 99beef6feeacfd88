// Renders the program's icon into an icon theme's folders: FOLDER/NxN/apps/shelvane.png for
// each size given.
#include "app/programicon.h"

#include <QDir>
#include <QGuiApplication>
#include <QPixmap>
#include <QTextStream>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    QGuiApplication app(argc, argv);
    QStringList arguments = app.arguments().mid(1);
    QTextStream err(stderr);
    if (arguments.size() < 2) {
        err << "usage: iconrenderer FOLDER SIZE...\n";
        return 2;
    }
    const QDir theme(arguments.takeFirst());
    for (const QString &sizeText : std::as_const(arguments)) {
        const int size = sizeText.toInt();
        const QString folder = theme.filePath(sizeText + u'x' + sizeText + u"/apps"_s);
        if (size <= 0 || !QDir().mkpath(folder)
            || !ProgramIconPixmap(size).save(QDir(folder).filePath(u"shelvane.png"_s))) {
            err << "iconrenderer: cannot render the icon at " << sizeText << " pixels in " << folder << '\n';
            return 1;
        }
    }
    return 0;
}
