// The authors' form ends the program when the catalogue refuses a delete: at once, without a
// message, and leaving the catalogue whole. The program runs in a child process.

#include "support/testcatalogue.h"
#include "support/testmain.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>
#include <QUuid>

using namespace Qt::StringLiterals;

class TestAuthorHalt : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusedDeleteEndsTheProgramSilently();
};

void TestAuthorHalt::refusedDeleteEndsTheProgramSilently()
{
    TestCatalogue catalogue(TestCatalogue::Content::Sample);
    const QString first = u"select AuthorID from tblAuthor order by AuthorSurname limit 1"_s;
    const QString author = catalogue.scalar(first).toString();
    const int authors = catalogue.scalar(u"select count(*) from tblAuthor"_s).toInt();
    const int links = catalogue.scalar(u"select count(*) from tblBookAuthor"_s).toInt();

    QProcess program;
    program.setProgram(QCoreApplication::applicationDirPath() + u"/authorhaltchild"_s);
    program.setArguments({catalogue.path()});
    program.setProcessChannelMode(QProcess::SeparateChannels);
    {
        // Another program's transaction holds the write lock for the whole run.
        const QString lockName = QUuid::createUuid().toString();
        {
            QSqlDatabase lock = QSqlDatabase::addDatabase(u"QSQLITE"_s, lockName);
            lock.setDatabaseName(catalogue.path());
            QVERIFY(lock.open());
            QVERIFY(QSqlQuery(lock).exec(u"BEGIN IMMEDIATE"_s));
            program.start();
            QVERIFY(program.waitForFinished(60000));
            QSqlQuery(lock).exec(u"ROLLBACK"_s);
            lock.close();
        }
        QSqlDatabase::removeDatabase(lockName);
    }
    const QString told = QString::fromLocal8Bit(program.readAllStandardOutput());
    QVERIFY2(told.contains(u"deleting"_s), qPrintable(told));
    QVERIFY2(!told.contains(u"delete returned"_s), qPrintable(told));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);

    QCOMPARE(catalogue.scalar(first).toString(), author);
    QCOMPARE(catalogue.scalar(u"select count(*) from tblAuthor"_s).toInt(), authors);
    QCOMPARE(catalogue.scalar(u"select count(*) from tblBookAuthor"_s).toInt(), links);
    QVERIFY(!QFile::exists(catalogue.path() + u"-journal"_s));

    QProcess check;
    check.start(qEnvironmentVariable("SHELVANE_TOOL"), {u"check"_s, catalogue.path()});
    QVERIFY(check.waitForFinished(60000));
    QVERIFY2(check.exitCode() == 0, check.readAll().constData());
}

SHELVANE_TEST_MAIN(TestAuthorHalt)
#include "tst_authorhalt.moc"
