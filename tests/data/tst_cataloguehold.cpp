// What copies of the program hold on a catalogue: the lock that keeps a file open in one copy
// from being replaced by another, and the watch that tells whether the catalogue changed.

#include "catalogue/cataloguehold.h"
#include "catalogue/cataloguelock.h"
#include "data/providererror.h"
#include "support/heldcatalogue.h"
#include "support/immutablefolder.h"
#include "support/testcatalogue.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;
using Mode = CatalogueLock::Mode;

Q_DECLARE_METATYPE(HeldCatalogue::Lock)

namespace {

constexpr std::chrono::milliseconds Patience(10000);

bool lockFileBeside(const TestCatalogue &catalogue)
{
    return QFile::exists(CatalogueLock::lockFilePath(catalogue.path()));
}

} // namespace

class TestCatalogueHold : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copiesThatHaveItOpenShareIt()
    {
        TestCatalogue catalogue;
        const CatalogueLock first(catalogue.path(), Mode::Shared);
        const CatalogueLock second(catalogue.path(), Mode::Shared);
        QVERIFY(!first.inUse());
        QVERIFY(!second.inUse());
        QVERIFY(CatalogueLock(catalogue.path(), Mode::Exclusive).inUse());
    }

    void aReplacementKeepsEveryoneElseOut()
    {
        TestCatalogue catalogue;
        const CatalogueLock alone(catalogue.path(), Mode::Exclusive);
        QVERIFY(!alone.inUse());
        QVERIFY(CatalogueLock(catalogue.path(), Mode::Shared).inUse());
        QVERIFY(CatalogueLock(catalogue.path(), Mode::Exclusive).inUse());
    }

    void anotherProcessHoldsIt_data()
    {
        QTest::addColumn<HeldCatalogue::Lock>("held");
        QTest::addColumn<bool>("sharedRefused");
        QTest::addColumn<bool>("exclusiveRefused");
        QTest::newRow("open in a copy") << HeldCatalogue::Lock::Open << false << true;
        QTest::newRow("being replaced") << HeldCatalogue::Lock::Replacing << true << true;
        // SQLite's own locks are none of this lock's business.
        QTest::newRow("written by another program") << HeldCatalogue::Lock::Write << false << false;
    }

    void anotherProcessHoldsIt()
    {
        QFETCH(HeldCatalogue::Lock, held);
        QFETCH(bool, sharedRefused);
        QFETCH(bool, exclusiveRefused);
        TestCatalogue catalogue;
        const HeldCatalogue other(catalogue.path(), held);
        QVERIFY2(other.isHeld(), qPrintable(other.problem()));
        QCOMPARE(CatalogueLock(catalogue.path(), Mode::Shared).inUse(), sharedRefused);
        QCOMPARE(CatalogueLock(catalogue.path(), Mode::Exclusive).inUse(), exclusiveRefused);
    }

    void aCopyThatDiesHoldsNothing()
    {
        TestCatalogue catalogue;
        HeldCatalogue other(catalogue.path(), HeldCatalogue::Lock::Open);
        QVERIFY2(other.isHeld(), qPrintable(other.problem()));
        other.die();
        QVERIFY(!CatalogueLock(catalogue.path(), Mode::Exclusive).inUse());
    }

    void openingWaitsForAReplacementToFinish()
    {
        TestCatalogue catalogue;
        HeldCatalogue replacing(catalogue.path(), HeldCatalogue::Lock::Replacing);
        QVERIFY2(replacing.isHeld(), qPrintable(replacing.problem()));
        replacing.letGo();
        const CatalogueLock opened(catalogue.path(), Mode::Shared, Patience);
        QVERIFY(!opened.inUse());
    }

    void aHoldRefusedDuringAReplacementIsError3356()
    {
        TestCatalogue catalogue;
        const CatalogueLock replacing(catalogue.path(), Mode::Exclusive);
        try {
            CatalogueHold hold(catalogue.path(), std::chrono::milliseconds(100));
            QFAIL("the hold was taken");
        } catch (const ProviderError &error) {
            QCOMPARE(error.number, ProviderErrorNumber::FileLocked);
            QVERIFY2(error.description.contains(u"is being replaced by another copy of Shelvane"_s),
                     qPrintable(error.description));
        }
    }

    void theLockFileGoesWithTheLastHolder()
    {
        TestCatalogue catalogue;
        {
            const CatalogueLock first(catalogue.path(), Mode::Shared);
            {
                const CatalogueLock second(catalogue.path(), Mode::Shared);
                QVERIFY(lockFileBeside(catalogue));
            }
            QVERIFY(lockFileBeside(catalogue));
            QVERIFY(CatalogueLock(catalogue.path(), Mode::Exclusive).inUse());
        }
        QVERIFY(!lockFileBeside(catalogue));
        QCOMPARE(QDir(catalogue.folder()).entryList(QDir::Files | QDir::Hidden),
                 QStringList{u"QuireshelfCatalog01.mdb"_s});
    }

    void aFolderNoOneCanWriteToStopsNoOne()
    {
        TestCatalogue catalogue;
        const ImmutableFolder locked(catalogue.folder());
        if (!locked.isImmutable())
            QSKIP(qPrintable(u"the folder cannot be made unwritable: "_s + locked.problem()));
        QVERIFY(!CatalogueLock(catalogue.path(), Mode::Shared).inUse());
        QVERIFY(!CatalogueLock(catalogue.path(), Mode::Exclusive).inUse());
        QVERIFY(!lockFileBeside(catalogue));
    }

    void theHoldSeesNoChangeWhenNothingWasWritten()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const CatalogueHold hold(catalogue.path());
        QVERIFY(catalogue.scalar(u"SELECT count(*) FROM tblBook"_s).toInt() > 0);
        QVERIFY(!hold.changedSinceTaken());
    }

    void theHoldSeesAChangeByAnyConnection()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const CatalogueHold hold(catalogue.path());
        QSqlQuery edit(catalogue.db());
        QVERIFY(edit.exec(u"UPDATE tblBook SET BookDescription = 'Changed' WHERE BookID = 1"_s));
        QVERIFY(hold.changedSinceTaken());
    }

    void theHoldSeesAChangeByAnotherProcess()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const CatalogueHold hold(catalogue.path());
        {
            // Its transaction is rolled back: nothing is committed.
            const HeldCatalogue writer(catalogue.path(), HeldCatalogue::Lock::Write);
            QVERIFY2(writer.isHeld(), qPrintable(writer.problem()));
        }
        QVERIFY(!hold.changedSinceTaken());
        const QString tool = qEnvironmentVariable("SHELVANE_TOOL");
        QProcess labels;
        labels.start(tool, {u"report"_s, catalogue.path(), u"--by"_s, u"labels"_s, u"--pdf"_s,
                            QDir(catalogue.folder()).filePath(u"labels.pdf"_s)});
        QVERIFY(labels.waitForFinished(60000));
        QCOMPARE(labels.exitCode(), 0);
        QVERIFY(hold.changedSinceTaken());
    }
};

QTEST_GUILESS_MAIN(TestCatalogueHold)
#include "tst_cataloguehold.moc"
