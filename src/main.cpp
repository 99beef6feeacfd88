#include "app/application.h"
#include "app/mainframe.h"
#include "app/programfolder.h"
#include "forms/registerforms.h"

#include <QCommandLineParser>
#include <QTimer>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    Application app(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription(u"Shelvane: a catalogue of a private library of books."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption screenshot(u"screenshot"_s,
        u"Save a picture of the main window to <file> and exit."_s, u"file"_s);
    parser.addOption(screenshot);
    parser.process(app);
    PrepareProgramFolder();

    // The frame alone, with no catalogue open: the user opens one with File › Open Catalogue.
    MainFrame frame;
    RegisterAllForms(frame);
    frame.show();

    if (parser.isSet(screenshot)) {
        const QString path = parser.value(screenshot);
        // Let the first paint happen before the picture is taken.
        QTimer::singleShot(200, &frame, [&frame, path] {
            const bool saved = frame.grab().save(path);
            QCoreApplication::exit(saved ? 0 : 1);
        });
    }
    return app.exec();
}
