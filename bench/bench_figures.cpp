// How quickly the statistics come up on a catalogue of 30,000 books, and how quickly a
// revaluation of every price is committed, beside the time SQLite itself takes for the same
// statements. Most of an apply is the catalogue's money-rounding trigger, which SQLite runs
// for nearly every row a percentage changes.

#include "benchcatalogue.h"
#include "benchprogram.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/jetsql.h"

#include <QAbstractButton>
#include <QAction>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QSqlQuery>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// The two statements the statistics form runs when it loads.
const QStringList statisticsStatements{
    u"select count(*) as TotalNoBooks, sum(BookPrice) as TotalValue, avg(BookPrice) as "
    "AverageCost, max(BookPrice) as Expensive, min(BookPrice) as Cheapest, "
    "min(BookWhenPublished) as Oldest from tblBook"_s,
    u"select   min(BookWhenPublished) as Oldest from tblBook where BookWhenPublished <> 0"_s,
};
const QString fivePercentMore = u"Update tblBook set bookPrice = bookprice * 1.05"_s;

void readOneRow(const QSqlDatabase &db, const QString &statement)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.exec(JetSql::toSqlite(statement));
    query.next();
    query.value(0);
}

// Loads the form through its menu entry and answers the time until it is on screen.
double showThroughMenu(MainFrame &frame, const QString &entry, const QString &formName)
{
    if (QWidget *loaded = frame.forms().find(formName)) {
        frame.forms().unload(loaded);
        QCoreApplication::processEvents();
    }
    QElapsedTimer timer;
    timer.start();
    frame.action(entry)->trigger();
    QCoreApplication::processEvents();
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char **argv)
{
    BenchProgram program(argc, argv);
    program.openCatalogue();
    MainFrame &frame = program.frame();
    QSqlDatabase db = program.database();

    const double showMs = bestMilliseconds(5, [&] {
        std::ignore = showThroughMenu(frame, u"mnuStats"_s, u"frmBookStats"_s);
    });
    QWidget *statistics = frame.forms().find(u"frmBookStats"_s);
    std::printf("%s books worth %s\n",
                qPrintable(statistics->findChild<QLineEdit *>(u"txtTotalNoBooks"_s)->text()),
                qPrintable(statistics->findChild<QLineEdit *>(u"txtTotalValue"_s)->text()));
    const double rawShowMs = bestMilliseconds(5, [&] {
        for (const QString &statement : statisticsStatements)
            readOneRow(db, statement);
    });
    reportFigure("Catalogue Statistics to the figures shown", showMs, rawShowMs, "ms");

    std::ignore = showThroughMenu(frame, u"mnuCollectionValue"_s, u"frmPrices"_s);
    QWidget *prices = frame.forms().find(u"frmPrices"_s);
    auto *increase = prices->findChild<QLineEdit *>(u"txtIncrease"_s);
    auto *apply = prices->findChild<QAbstractButton *>(u"cmdUpdate"_s);
    const double applyMs = bestMilliseconds(3, [&] {
        increase->setText(u"5"_s);
        apply->click();
    });
    const double rawApplyMs = bestMilliseconds(3, [&] {
        QSqlQuery query(db);
        db.transaction();
        query.exec(JetSql::toSqlite(fivePercentMore));
        db.commit();
    });
    reportFigure("Apply Increase committed", applyMs, rawApplyMs, "ms");
    return 0;
}
