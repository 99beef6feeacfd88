// How quickly the book form comes up on a catalogue of 30,000 books, moves to the next book
// and jumps through its lookup list, and what opening the catalogue costs in memory, beside
// the least SQL that gives what the form shows.

#include "benchcatalogue.h"
#include "benchprogram.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/connection.h"
#include "forms/books/bookformsources.h"
#include "recordform/datacombo.h"
#include "recordform/recordstatusbar.h"

#include <QAbstractButton>
#include <QAction>
#include <QElapsedTimer>
#include <QSqlQuery>
#include <QSqlRecord>

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

// The statement of the form's book rows.
QString bookRowsSource()
{
    for (const DataControlSource &source : BookFormSources()) {
        if (source.name == u"adoBook")
            return source.recordSource;
    }
    return {};
}

// The bytes of the text and numbers (8 bytes each) of every row of the form's record sources.
double valueKiB(const QSqlDatabase &db)
{
    qint64 bytes = 0;
    for (const DataControlSource &source : BookFormSources()) {
        QSqlQuery query(db);
        query.setForwardOnly(true);
        query.exec(source.recordSource);
        const int columns = query.record().count();
        while (query.next()) {
            for (int c = 0; c < columns; ++c) {
                const QVariant value = query.value(c);
                if (!value.isNull())
                    bytes += value.typeId() == QMetaType::QString
                        ? value.toString().toUtf8().size()
                        : qint64(sizeof(qint64));
            }
        }
    }
    return double(bytes) / 1024.0;
}

} // namespace

int main(int argc, char **argv)
{
    BenchProgram program(argc, argv);
    MainFrame &frame = program.frame();
    const int books = program.books();

    // Opening the catalogue: the shared connection, the book form loaded hidden, then the
    // toolbar's Books button shows it on its first book. The first run's growth of resident memory is
    // what the open catalogue holds.
    double openMs = std::numeric_limits<double>::max();
    double openKiB = 0;
    QWidget *form = nullptr;
    for (int run = 0; run < 3; ++run) {
        if (form) {
            frame.forms().unloadAll();
            frame.session().disconnect();
            QCoreApplication::processEvents();
        }
        const double before = residentMiB() * 1024;
        QElapsedTimer timer;
        timer.start();
        program.openCatalogue();
        program.showBooks();
        openMs = std::min(openMs, double(timer.nsecsElapsed()) / 1e6);
        if (run == 0)
            openKiB = residentMiB() * 1024 - before;
        form = frame.forms().find(u"frmBookMaintenance"_s);
    }
    std::printf("%s\n", qPrintable(positionShown(form)));
    const QSqlDatabase db = program.database();
    const double rawFormMs = bestMilliseconds(3, [&] { readFirstBookShown(db, bookRowsSource()); });
    reportFigure("catalogue open to the first book shown", openMs, rawFormMs, "ms");

    // The Books command on a form not yet loaded: load, bind, show, first book on screen.
    double showMs = std::numeric_limits<double>::max();
    for (int run = 0; run < 3; ++run) {
        frame.forms().unload(form);
        QCoreApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        frame.action(u"mnuBooks"_s)->trigger();
        QCoreApplication::processEvents();
        showMs = std::min(showMs, double(timer.nsecsElapsed()) / 1e6);
        form = frame.forms().find(u"frmBookMaintenance"_s);
    }
    reportFigure("Books command to the first book shown", showMs, rawFormMs, "ms");

    auto *next = form->findChild<QAbstractButton *>(u"cmdNext"_s);
    int position = 1;
    const double nextMs = bestMilliseconds(5, [&] {
        next->click();
        ++position;
    });
    std::printf("%s\n", qPrintable(positionShown(form)));
    const QString nextBook = bookAt(db, position);
    const double rawNextMs = bestMilliseconds(5, [&] { readBookLinks(db, nextBook); });
    reportFigure("Next, to the next book shown", nextMs, rawNextMs, "ms");

    // A pick from the lookup list, far down it: the first such jump, then the best of others.
    auto *lookup = form->findChild<DataCombo *>(u"dboBookLkup"_s);
    const int jumpRow = books * 5 / 6;
    const double firstJumpMs = bestMilliseconds(1, [&] { Q_EMIT lookup->activated(jumpRow); });
    std::printf("%s\n", qPrintable(positionShown(form)));
    int row = books / 3;
    const double jumpMs = bestMilliseconds(5, [&] {
        Q_EMIT lookup->activated(row);
        row += books / 10;
    });
    const QString jumpBook = bookAt(db, jumpRow + 1);
    const double rawJumpMs = bestMilliseconds(5, [&] { readBookLinks(db, jumpBook); });
    reportFigure("lookup jump, the first", firstJumpMs, rawJumpMs, "ms");
    reportFigure("lookup jump, each after", jumpMs, rawJumpMs, "ms");

    reportFigure("resident memory added by the open", openKiB, valueKiB(db), "KiB");
    return 0;
}
