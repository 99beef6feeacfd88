#include "benchcatalogue.h"

#include "catalogue/cataloguefile.h"
#include "catalogue/generator.h"
#include "data/jetsql.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSqlQuery>
#include <QSqlRecord>

#include <algorithm>
#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

BenchCatalogue::BenchCatalogue(int books)
{
    Generator::Options options;
    options.books = books;
    options.seed = 30000;
    CatalogueFile::create(path(), false /* overwrite */,
                          [&](QSqlDatabase &db) { Generator::fill(db, options); });
}

QString BenchCatalogue::path() const
{
    return m_dir.filePath(u"QuireshelfCatalog01.mdb"_s);
}

void reportFigure(const char *what, double value, double baseline, const char *unit)
{
    std::printf("%-44s %10.3f %-3s  raw %10.3f %-3s  ratio %5.2f\n", what, value, unit, baseline,
                unit, baseline > 0 ? value / baseline : 0.0);
}

double bestMilliseconds(int runs, const std::function<void()> &action)
{
    double best = std::numeric_limits<double>::max();
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        action();
        best = std::min(best, double(timer.nsecsElapsed()) / 1e6);
    }
    return best;
}

void readAll(const QSqlDatabase &db, const QString &statement)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.exec(JetSql::toSqlite(statement));
    const int columns = query.record().count();
    while (query.next()) {
        for (int c = 0; c < columns; ++c)
            query.value(c);
    }
}

namespace {

// A memory figure of a process's status, "VmRSS:" or "VmHWM:", in MiB.
double statusMiB(const QString &process, const QByteArray &field)
{
    QFile status(u"/proc/%1/status"_s.arg(process));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(field))
            return line.mid(field.size()).trimmed().split(' ').value(0).toDouble() / 1024.0;
    }
    return 0;
}

} // namespace

double residentMiB()
{
    return statusMiB(u"self"_s, "VmRSS:");
}

double peakResidentMiB(qint64 pid)
{
    return statusMiB(QString::number(pid), "VmHWM:");
}
