// How quickly the book listing and the two tree browsers come up on a catalogue of 30,000
// books, how quickly the listing sorts and closes, how quickly the trees expand and collapse,
// and how much memory they hold, beside the least SQL that gives what each shows (or a plain
// tree view).

#include "benchcatalogue.h"
#include "benchprogram.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/connection.h"
#include "data/shapeparser.h"
#include "forms/search/bookbrowserkind.h"
#include "forms/search/bookdetails.h"
#include "reports/dataenvironment.h"

#include <QAbstractButton>
#include <QAction>
#include <QElapsedTimer>
#include <QFile>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTreeView>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The selects of the listing's shaping command, parent first.
QStringList listingSelects()
{
    const ShapeTree tree = ShapeParser::parse(DataEnvironment().commandText(u"BookDetails"_s));
    QStringList selects{tree.root.source.selectText};
    for (const ShapeChild &child : tree.root.children)
        selects.append(child.source.selectText);
    return selects;
}

// The best time of a few runs of opening a form from its menu entry until it is drawn; the
// form is closed again between runs, and left open after the last.
double openMilliseconds(MainFrame &frame, const QString &entry, const QString &formName)
{
    double best = std::numeric_limits<double>::max();
    for (int run = 0; run < 3; ++run) {
        if (QWidget *form = frame.forms().find(formName)) {
            frame.forms().unload(form);
            QCoreApplication::processEvents();
        }
        QElapsedTimer timer;
        timer.start();
        frame.action(entry)->trigger();
        QCoreApplication::processEvents();
        best = std::min(best, double(timer.nsecsElapsed()) / 1e6);
    }
    return best;
}


// The least SQL behind a tree as it first shows: its roots in order, and the count of its
// entries on the status bar.
QStringList treeShownSelects(const BookBrowserKind &kind)
{
    if (kind.formName == u"frmTopicBook") {
        return {u"select distinct tblTopic.TopicID, tblTopic.TopicDescription from tblTopic, "
                "tblBookTopic where tblBookTopic.TopicID = tblTopic.TopicID order by "
                "tblTopic.TopicDescription"_s,
                u"select count(*) from tblBook, tblBookTopic where tblBook.BookID = "
                "tblBookTopic.BookID"_s};
    }
    return {u"select distinct tblAuthor.AuthorID, tblAuthor.AuthorFirstName & ' ' & "
            "tblAuthor.AuthorSurName as AuthorName from tblAuthor, tblBookAuthor where "
            "tblBookAuthor.AuthorID = tblAuthor.AuthorID order by 2"_s,
            u"select count(*) from tblBook, tblBookAuthor where tblBook.BookID = "
            "tblBookAuthor.BookID"_s};
}

QString entryOf(const BookBrowserKind &kind)
{
    return kind.formName == u"frmTopicBook" ? u"mnuTopicSrch"_s : u"mnuAuthorSrch"_s;
}

// The listing's figures: shown, each header click, closed after sorting.
void measureListing(MainFrame &frame, const QSqlDatabase &db)
{
    const QStringList selects = listingSelects();
    const double rawListingMs = bestMilliseconds(3, [&] {
        for (const QString &select : selects)
            readAll(db, select);
    });
    const double listingMs = openMilliseconds(frame, u"mnuBookList"_s, u"frmBookListing"_s);
    reportFigure("Listing shown", listingMs, rawListingMs, "ms");

    QWidget *listing = frame.forms().find(u"frmBookListing"_s);
    QHeaderView *header = listing->findChild<QTreeView *>(u"lstBookList"_s)->header();
    const QList<std::pair<const char *, int>> clicks{
        {"Header click: Price", BookColumn::Price},
        {"Header click: Title", BookColumn::Title},
        {"Header click: Author", BookColumn::Author},
        {"Header click: Published", BookColumn::Published}};
    const double rawOrderMs = bestMilliseconds(3, [&] {
        readAll(db, u"select BookID from tblBook order by BookDescription"_s);
    });
    for (const auto &[what, column] : clicks) {
        // The first click on a column ranks its texts; later ones, each turning the order
        // round, reuse that.
        const auto click = [&, column = column] {
            Q_EMIT header->sectionClicked(column);
            QCoreApplication::processEvents();
        };
        const double firstMs = bestMilliseconds(1, click);
        const double laterMs = bestMilliseconds(3, click);
        reportFigure(qPrintable(QString::fromLatin1(what) + u", first"_s), firstMs, rawOrderMs, "ms");
        reportFigure(qPrintable(QString::fromLatin1(what) + u", later"_s), laterMs, rawOrderMs, "ms");
    }

    const double closeMs = bestMilliseconds(1, [&] {
        frame.forms().unload(listing);
        QCoreApplication::processEvents();
    });
    reportFigure("Closing the sorted listing", closeMs, rawOrderMs, "ms");
}

// The same roots and books as a browser's tree, in Qt's own item model.
std::unique_ptr<QStandardItemModel> plainCopy(const QAbstractItemModel &tree)
{
    auto copy = std::make_unique<QStandardItemModel>();
    for (int r = 0; r < tree.rowCount(); ++r) {
        const QModelIndex root = tree.index(r, 0);
        auto *item = new QStandardItem(root.data().toString());
        for (int b = 0; b < tree.rowCount(root); ++b)
            item->appendRow(new QStandardItem(tree.index(b, 0, root).data().toString()));
        copy->appendRow(item);
    }
    return copy;
}

// Expand and Collapse of a whole tree, clicked as a user would, beside a plain tree view
// over the same rows.
void measureExpandCollapse(MainFrame &frame, const BookBrowserKind &kind)
{
    QWidget *browser = frame.forms().find(kind.formName);
    QTreeView *tree = browser->findChild<QTreeView *>(kind.tree);
    const std::unique_ptr<QStandardItemModel> rows = plainCopy(*tree->model());
    QTreeView plain;
    plain.setUniformRowHeights(true);
    plain.setModel(rows.get());
    plain.resize(tree->size());
    plain.show();
    const auto clickMs = [&](const QString &button) {
        return bestMilliseconds(1, [&] {
            browser->findChild<QAbstractButton *>(button)->click();
            QCoreApplication::processEvents();
        });
    };
    const auto plainMs = [&](void (QTreeView::*action)()) {
        return bestMilliseconds(1, [&] {
            (plain.*action)();
            QCoreApplication::processEvents();
        });
    };
    const double rawExpandMs = plainMs(&QTreeView::expandAll);
    const double rawCollapseMs = plainMs(&QTreeView::collapseAll);
    reportFigure(qPrintable(kind.caption + u" Expand"_s), clickMs(u"cmdExpand"_s), rawExpandMs,
                 "ms");
    reportFigure(qPrintable(kind.caption + u" Collapse"_s), clickMs(u"cmdCollapse"_s),
                 rawCollapseMs, "ms");
}

void measureTrees(MainFrame &frame, const QSqlDatabase &db)
{
    for (const BookBrowserKind &kind : BookBrowserKinds()) {
        const double rawTreeMs = bestMilliseconds(3, [&] {
            for (const QString &select : treeShownSelects(kind))
                readAll(db, select);
        });
        const double treeMs = openMilliseconds(frame, entryOf(kind), kind.formName);
        reportFigure(qPrintable(kind.caption + u" tree shown"_s), treeMs, rawTreeMs, "ms");
        measureExpandCollapse(frame, kind);
    }
}

// Each form opened once, as a user would, so that no earlier run's memory counts.
void measureMemory(BenchProgram &program)
{
    MainFrame &frame = program.frame();
    const double opened = residentMiB();
    program.showBooks();
    std::printf("  resident memory after the Books button: %.1f MiB\n", residentMiB());
    QStringList steps{u"mnuBookList"_s};
    for (const BookBrowserKind &kind : BookBrowserKinds())
        steps.append(entryOf(kind));
    for (const QString &entry : std::as_const(steps)) {
        frame.action(entry)->trigger();
        QCoreApplication::processEvents();
        std::printf("  resident memory after %s: %.1f MiB\n", qPrintable(entry),
                    residentMiB());
    }
    std::printf("Resident memory, book form, listing and both trees open: %.1f MiB "
                "(the catalogue just opened %.1f MiB)\n",
                residentMiB(), opened);
}

} // namespace

int main(int argc, char **argv)
{
    BenchProgram program(argc, argv);
    const bool memoryOnly = argc > 2 && qstrcmp(argv[2], "memory") == 0;
    program.openCatalogue();
    MainFrame &frame = program.frame();
    if (memoryOnly) {
        measureMemory(program);
        return 0;
    }
    program.showBooks();
    const QSqlDatabase db = program.database();
    measureListing(frame, db);
    measureTrees(frame, db);
    std::printf("Memory: run again with the argument \"memory\" after the number of books.\n");
    return 0;
}
