// How quickly the book form comes up on a catalogue of 30,000 books, and how quickly it moves
// to the next book, beside the time SQLite itself takes for the statements behind each.

#include "benchcatalogue.h"
#include "bookformstatements.h"

#include "books/bookforms.h"
#include "data/connection.h"
#include "data/connectionstring.h"
#include "shell/formregistry.h"
#include "shell/mainframe.h"
#include "shell/recordstatusbar.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QSqlQuery>

#include <algorithm>
#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

QString bookAt(const QSqlDatabase &db, int position)
{
    QSqlQuery query(db);
    query.exec(u"select BookID from tblBook order by BookDescription limit 1 offset "_s
               + QString::number(position - 1));
    return query.next() ? query.value(0).toString() : QString();
}

QString positionShown(const QWidget *form)
{
    auto *bar = form->findChild<RecordStatusBar *>(u"stbContents"_s);
    return bar ? bar->panelText(2) : QString();
}

} // namespace

int main(int argc, char **argv)
{
    // A benchmark shows no windows unless asked to.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int books = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 30000;
    std::printf("Generating a catalogue of %d books...\n", books);
    BenchCatalogue catalogue(books);

    MainFrame frame;
    RegisterBookForms(frame);
    frame.show();
    Session &session = frame.session();
    session.strCataloguePath = catalogue.path();
    session.cnnCatalogue = std::make_unique<Connection>();
    session.cnnCatalogue->open(session.connectionString());
    const QSqlDatabase db = session.cnnCatalogue->database();

    // The Books command on a form not yet loaded: load, bind, show, first book on screen.
    double showMs = std::numeric_limits<double>::max();
    QWidget *form = nullptr;
    for (int run = 0; run < 3; ++run) {
        if (form) {
            frame.forms().unload(form);
            QCoreApplication::processEvents();
        }
        QElapsedTimer timer;
        timer.start();
        frame.action(u"mnuBooks"_s)->trigger();
        QCoreApplication::processEvents();
        showMs = std::min(showMs, double(timer.nsecsElapsed()) / 1e6);
        form = frame.forms().find(u"frmBookMaintenance"_s);
    }
    std::printf("%s\n", qPrintable(positionShown(form)));
    const QString firstBook = bookAt(db, 1);
    const double rawShowMs = bestMilliseconds(3, [&] {
        for (const QString &statement : BookFormLoadStatements())
            readAll(db, statement);
        for (const QString &statement : BookFormLinkStatements())
            readAll(db, statement + firstBook);
    });
    reportFigure("Books command to the first book shown", showMs, rawShowMs, "ms");

    auto *next = form->findChild<QAbstractButton *>(u"cmdNext"_s);
    int position = 1;
    const double nextMs = bestMilliseconds(5, [&] {
        next->click();
        ++position;
    });
    std::printf("%s\n", qPrintable(positionShown(form)));
    const QString nextBook = bookAt(db, position);
    const double rawNextMs = bestMilliseconds(5, [&] {
        for (const QString &statement : BookFormLinkStatements())
            readAll(db, statement + nextBook);
    });
    reportFigure("Next, to the next book shown", nextMs, rawNextMs, "ms");
    return 0;
}
