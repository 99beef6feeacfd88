// Another program holding a catalogue: opens the file named on the command line, holds it as
// the second argument says and says "holding" on its output. It lets go when its input is
// closed. The holds:
//   write      a write transaction: others may read, no one else may write
//   exclusive  an exclusive transaction: no one else may even read
//   open       what a copy of Shelvane holds while it has the catalogue open, idle
//   replacing  what a copy of Shelvane holds while it replaces the whole file

#include "catalogue/cataloguehold.h"
#include "catalogue/cataloguelock.h"
#include "data/providererror.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

void waitForTheEndOfInput()
{
    std::puts("holding");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
}

int holdTransaction(const QString &path, const QString &hold)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s);
    db.setDatabaseName(path);
    QSqlQuery lock(db);
    const QString begin = hold == u"exclusive" ? u"BEGIN EXCLUSIVE"_s : u"BEGIN IMMEDIATE"_s;
    if (!db.open() || !lock.exec(begin)) {
        std::printf("failed: %s\n", qPrintable(lock.lastError().text()));
        return 1;
    }
    waitForTheEndOfInput();
    lock.exec(u"ROLLBACK"_s);
    return 0;
}

int holdAsTheProgram(const QString &path, const QString &hold)
{
    std::unique_ptr<CatalogueHold> open;
    std::unique_ptr<CatalogueLock> replacing;
    try {
        if (hold == u"open")
            open = std::make_unique<CatalogueHold>(path);
        else
            replacing = std::make_unique<CatalogueLock>(path, CatalogueLock::Mode::Exclusive);
    } catch (const ProviderError &error) {
        std::printf("failed: %s\n", qPrintable(error.description));
        return 1;
    }
    if (replacing && replacing->inUse()) {
        std::puts("failed: in use");
        return 1;
    }
    waitForTheEndOfInput();
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 3)
        return 2;
    const QString &hold = arguments.at(2);
    if (hold == u"open" || hold == u"replacing")
        return holdAsTheProgram(arguments.at(1), hold);
    return holdTransaction(arguments.at(1), hold);
}
