// shelvane-catalog backup and restore as a person runs them, with a copy of the program
// holding the catalogue open where that matters: what they print, the files they leave, and
// a catalogue that is never replaced under a copy that has it open.
#include "../data/cataloguedamage.h"
#include "../data/catalogueprobe.h"
#include "snapshot.h"

#include "catalogue/cataloguebackups.h"
#include "catalogue/scopeddatabase.h"
#include "support/heldcatalogue.h"
#include "support/testcatalogue.h"
#include "support/toolrun.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QStringList backupsOf(const TestCatalogue &catalogue)
{
    return CatalogueBackups::listed(catalogue.path(), CatalogueBackups::folderBeside(catalogue.path()));
}

void deleteHalfTheBooks(const QString &path)
{
    ScopedDatabase catalogue(path);
    QSqlQuery query(catalogue.db());
    query.exec(u"PRAGMA foreign_keys = ON"_s);
    query.exec(u"DELETE FROM tblBook WHERE BookID % 2 = 0"_s);
}

// Makes a backup with the tool; answers its path, empty when the tool said otherwise.
QString backUp(const TestCatalogue &catalogue)
{
    const Run run = runTool({u"backup"_s, catalogue.path()});
    const QString prefix = catalogue.path() + u": backed up to "_s;
    if (run.status != 0 || !run.out.startsWith(prefix))
        return {};
    return run.out.mid(prefix.size()).trimmed();
}

} // namespace

class TestBackupRestore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QFile::exists(qEnvironmentVariable("SHELVANE_TOOL")), "SHELVANE_TOOL names no program");
        QStandardPaths::setTestModeEnabled(true);
    }

    void backupPutsACheckedCopyBesideTheCatalogue()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString made = backUp(catalogue);

        QVERIFY(!made.isEmpty());
        QCOMPARE(backupsOf(catalogue), QStringList{made});
        QVERIFY2(QFileInfo(made).fileName().startsWith(u"QuireshelfCatalog01 20"_s), qPrintable(made));
        QCOMPARE(rowsOf(made), rowsOf(catalogue.path()));
    }

    void backupToAFolderOfOnesChoice()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString folder = QDir(catalogue.folder()).filePath(u"on the stick"_s);

        const Run run = runTool({u"backup"_s, catalogue.path(), u"--to"_s, folder});

        QCOMPARE(run.status, 0);
        const QStringList made = CatalogueBackups::listed(catalogue.path(), folder);
        QCOMPARE(made.size(), 1);
        QCOMPARE(run.out, catalogue.path() + u": backed up to "_s + made.constFirst() + u'\n');
        QCOMPARE(rowsOf(made.constFirst()), rowsOf(catalogue.path()));
        QVERIFY(!QFileInfo::exists(CatalogueBackups::folderBeside(catalogue.path())));
    }

    void backupWhileACopyHasTheCatalogueOpen()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const HeldCatalogue otherCopy(catalogue.path(), HeldCatalogue::Lock::Open);
        QVERIFY2(otherCopy.isHeld(), qPrintable(otherCopy.problem()));
        const QString made = backUp(catalogue);
        QVERIFY(!made.isEmpty());
        QCOMPARE(rowsOf(made), rowsOf(catalogue.path()));
    }

    void backupOfNoCatalogueLeavesNothing()
    {
        TestCatalogue catalogue;
        QVERIFY(writeFile(catalogue.path(), "a letter to the bank"));

        const Run run = runTool({u"backup"_s, catalogue.path()});

        QCOMPARE(run.status, 1);
        QCOMPARE(run.err, u"shelvane-catalog: %1: no backup could be made in %2: file is not a database\n"_s.arg(
                              catalogue.path(), CatalogueBackups::folderBeside(catalogue.path())));
        QCOMPARE(QDir(CatalogueBackups::folderBeside(catalogue.path())).entryList(QDir::Files), QStringList());
    }

    void restoreGivesBackExactlyTheBackupsRows()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString backup = backUp(catalogue);
        QVERIFY(!backup.isEmpty());
        const QStringList backedUp = rowsOf(backup);
        deleteHalfTheBooks(catalogue.path());
        const QStringList changed = rowsOf(catalogue.path());
        QVERIFY(changed != backedUp);

        const Run run = runTool({u"restore"_s, backup, catalogue.path()});

        QCOMPARE(run.err, QString());
        QCOMPARE(run.status, 0);
        QCOMPARE(rowsOf(catalogue.path()), backedUp);
        // The catalogue it replaced is a backup now, and the backup is still there.
        const QStringList backups = backupsOf(catalogue);
        QCOMPARE(backups.size(), 2);
        QCOMPARE(backups.constFirst(), backup);
        QCOMPARE(rowsOf(backups.constLast()), changed);
        QCOMPARE(run.out, catalogue.path() + u": restored from "_s + backup
                              + u"\nthe catalogue it replaced is kept in "_s + backups.constLast() + u'\n');
        QCOMPARE(QDir(catalogue.folder()).entryList(QDir::Files | QDir::Hidden),
                 QStringList{u"QuireshelfCatalog01.mdb"_s});
    }

    void restoreIsRefusedWhileACopyHasTheCatalogueOpen()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString backup = backUp(catalogue);
        QVERIFY(!backup.isEmpty());
        deleteHalfTheBooks(catalogue.path());
        const QByteArray before = fileFingerprint(catalogue.path());
        Run run;
        {
            const HeldCatalogue otherCopy(catalogue.path(), HeldCatalogue::Lock::Open);
            QVERIFY2(otherCopy.isHeld(), qPrintable(otherCopy.problem()));
            run = runTool({u"restore"_s, backup, catalogue.path()});
        }

        QCOMPARE(run.status, 1);
        QCOMPARE(run.err, u"shelvane-catalog: %1 is open in Shelvane: close it there first; nothing was changed\n"_s
                              .arg(catalogue.path()));
        QCOMPARE(fileFingerprint(catalogue.path()), before);
        QCOMPARE(backupsOf(catalogue), QStringList{backup});
        // Once that copy has closed it, the restore goes through.
        QCOMPARE(runTool({u"restore"_s, backup, catalogue.path()}).status, 0);
        QCOMPARE(rowsOf(catalogue.path()), rowsOf(backup));
    }

    void restoreRefusesABackupThatIsNoSoundCatalogue()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString notABackup = QDir(catalogue.folder()).filePath(u"notes.mdb"_s);
        QVERIFY(writeFile(notABackup, "shopping list"));
        const QByteArray before = fileFingerprint(catalogue.path());

        const Run run = runTool({u"restore"_s, notABackup, catalogue.path()});

        QCOMPARE(run.status, 1);
        QVERIFY2(run.err.startsWith(u"shelvane-catalog: %1 is not a sound catalogue ("_s.arg(notABackup)), qPrintable(run.err));
        QVERIFY2(run.err.endsWith(u"); nothing was changed\n"_s), qPrintable(run.err));
        QCOMPARE(fileFingerprint(catalogue.path()), before);
        QVERIFY(!QFileInfo::exists(CatalogueBackups::folderBeside(catalogue.path())));
    }

    void restoreOverADamagedCatalogueKeepsItAsItWas()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString backup = backUp(catalogue);
        QVERIFY(!backup.isEmpty());
        const QString damage = damageLinkIndex(catalogue.path());
        QVERIFY2(damage.isEmpty(), qPrintable(damage));
        const QByteArray damaged = fileFingerprint(catalogue.path());

        const Run run = runTool({u"restore"_s, backup, catalogue.path()});

        QCOMPARE(run.status, 0);
        QCOMPARE(rowsOf(catalogue.path()), rowsOf(backup));
        const QStringList kept = QDir(CatalogueBackups::folderBeside(catalogue.path()))
                                     .entryList({u"* unchecked.mdb"_s}, QDir::Files);
        QCOMPARE(kept.size(), 1);
        const QString keptPath = QDir(CatalogueBackups::folderBeside(catalogue.path())).filePath(kept.constFirst());
        QCOMPARE(fileFingerprint(keptPath), damaged);
        QVERIFY2(run.out.contains(u"failed its check; it is kept as it was in "_s + keptPath), qPrintable(run.out));
    }

    void restoreOntoANameWithNoCatalogueYet()
    {
        TestCatalogue source(TestCatalogue::Content::Sample);
        const QString backup = backUp(source);
        QVERIFY(!backup.isEmpty());
        QTemporaryDir elsewhere;
        const QString path = elsewhere.filePath(u"QuireshelfCatalog01.mdb"_s);

        const Run run = runTool({u"restore"_s, backup, path});

        QCOMPARE(run.status, 0);
        QCOMPARE(run.out, path + u": restored from "_s + backup + u'\n');
        QCOMPARE(rowsOf(path), rowsOf(backup));
    }

    void aNewCatalogueIsNotMadeOverOneOpenInACopy()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QByteArray before = fileFingerprint(catalogue.path());
        Run run;
        {
            const HeldCatalogue otherCopy(catalogue.path(), HeldCatalogue::Lock::Open);
            QVERIFY2(otherCopy.isHeld(), qPrintable(otherCopy.problem()));
            run = runTool({u"create"_s, u"--force"_s, catalogue.path()});
        }
        QCOMPARE(run.status, 1);
        QCOMPARE(run.err, u"shelvane-catalog: %1 is open in Shelvane: close it there first\n"_s.arg(catalogue.path()));
        QCOMPARE(fileFingerprint(catalogue.path()), before);
    }
};

QTEST_GUILESS_MAIN(TestBackupRestore)
#include "tst_backuprestore.moc"
