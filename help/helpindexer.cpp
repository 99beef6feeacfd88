// Builds the full-text search index of the help collection named on the command line, beside
// it, so that an installed program whose folder is read-only can still search its help.

#include <QGuiApplication>
#include <QHelpEngineCore>
#include <QHelpSearchEngine>
#include <QTimer>

#include <cstdio>

int main(int argc, char *argv[])
{
    // The indexer reads each page through a text document, which needs fonts, and so a
    // graphical application (offscreen while building).
    QGuiApplication app(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: helpindexer COLLECTION.qhc\n");
        return 2;
    }
    QHelpEngineCore engine(arguments.at(1));
    if (!engine.setupData()) {
        std::fprintf(stderr, "helpindexer: %s\n", qPrintable(engine.error()));
        return 2;
    }
    QHelpSearchEngine search(&engine);
    QObject::connect(&search, &QHelpSearchEngine::indexingFinished, &app,
                     &QGuiApplication::quit);
    QTimer::singleShot(0, &search, &QHelpSearchEngine::reindexDocumentation);
    return app.exec();
}
