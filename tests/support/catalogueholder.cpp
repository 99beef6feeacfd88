// Another program holding a catalogue: opens the file named on the command line, takes the
// lock named by the second argument ("write": a write transaction; "exclusive": no one else
// may even read) and says "holding" on its output. It lets go when its input is closed.

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 3)
        return 2;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s);
        db.setDatabaseName(arguments.at(1));
        QSqlQuery lock(db);
        const QString begin =
            arguments.at(2) == u"exclusive" ? u"BEGIN EXCLUSIVE"_s : u"BEGIN IMMEDIATE"_s;
        if (!db.open() || !lock.exec(begin)) {
            std::printf("failed: %s\n", qPrintable(lock.lastError().text()));
            return 1;
        }
        std::puts("holding");
        std::fflush(stdout);
        while (std::getchar() != EOF) {
        }
        lock.exec(u"ROLLBACK"_s);
    }
    return 0;
}
