#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QTemporaryDir>

#include <functional>

// A generated catalogue of many books in a temporary folder, made once per benchmark run.
class BenchCatalogue
{
public:
    explicit BenchCatalogue(int books);
    QString path() const;

private:
    QTemporaryDir m_dir;
};

// Prints one figure beside its raw-SQLite baseline and their ratio.
void reportFigure(const char *what, double value, double baseline, const char *unit);
// Milliseconds an action takes, the best of a few runs, so one slow moment does not count.
double bestMilliseconds(int runs, const std::function<void()> &action);
// Every value of every row of a statement (Jet SQL, translated), forward only: the least any
// record set must do, and so the raw baseline of the benchmarks.
void readAll(const QSqlDatabase &db, const QString &statement);
// Resident memory of this process, in MiB (0 where the system does not say).
double residentMiB();
// The most resident memory a running process has had since it started its program, in MiB.
double peakResidentMiB(qint64 pid);
