#include "app/application.h"
#include "app/frmopen.h"
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
    parser.addPositionalArgument(u"catalogue"_s,
        u"A catalogue to open at once, as File › Open Catalogue would open it."_s, u"[catalogue]"_s);
    parser.process(app);
    PrepareProgramFolder();

    // The frame alone, with no catalogue open: the user opens one with File › Open Catalogue.
    MainFrame frame;
    RegisterAllForms(frame);
    frame.show();
    if (const QStringList given = parser.positionalArguments(); !given.isEmpty()) {
        // Once the frame is on screen, so the open form's messages stand over it.
        QTimer::singleShot(0, &frame,
                           [&frame, path = given.constFirst()] { OpenCatalogueGiven(frame, path); });
    }

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
