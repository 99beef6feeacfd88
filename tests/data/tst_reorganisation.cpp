// Re-organising the catalogue file: it comes out compacted and whole, and whatever goes wrong
// on the way (the process killed at any step, a folder that cannot be written, a full disk,
// another program holding the file, a damaged file) leaves a whole catalogue under its name,
// holding every row it held before.

#include "../tools/snapshot.h"
#include "cataloguedamage.h"
#include "catalogueprobe.h"

#include "catalogue/cataloguebackups.h"
#include "catalogue/cataloguecheck.h"
#include "catalogue/cataloguefile.h"
#include "catalogue/compaction.h"
#include "catalogue/generator.h"
#include "catalogue/reorganisation.h"
#include "catalogue/scopeddatabase.h"
#include "data/providererror.h"
#include "support/heldcatalogue.h"
#include "support/immutablefolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;
using Reorganisation::Outcome;
using Reorganisation::Step;

Q_DECLARE_METATYPE(Reorganisation::Step)
Q_DECLARE_METATYPE(HeldCatalogue::Lock)

namespace {

// A catalogue of 500 made-up books in a folder of its own, and a backup path in another.
class Files
{
public:
    Files()
    {
        QDir(m_dir.path()).mkpath(u"catalogue"_s);
        QDir(m_dir.path()).mkpath(u"backup"_s);
        CatalogueFile::create(catalogue(), false /* overwrite */, [](QSqlDatabase &db) {
            Generator::fill(db, {.books = 500, .seed = 7, .progress = {}});
        });
        m_rows = rowsOf(catalogue());
        m_fingerprint = fileFingerprint(catalogue());
    }

    QString catalogue() const { return m_dir.filePath(u"catalogue/QuireshelfCatalog01.mdb"_s); }
    QString catalogueFolder() const { return m_dir.filePath(u"catalogue"_s); }
    QString backup() const { return m_dir.filePath(u"backup/QuireshelfBackUp.mdb"_s); }
    QString backupFolder() const { return m_dir.filePath(u"backup"_s); }
    QString newFile() const { return Reorganisation::newFileBeside(catalogue()); }
    QString root() const { return m_dir.path(); }

    // The rows the catalogue held when it was made.
    const QStringList &rows() const { return m_rows; }
    // Whether the catalogue file is byte for byte the one made.
    bool untouched() const { return fileFingerprint(catalogue()) == m_fingerprint; }

    void deleteHalfTheBooks()
    {
        ScopedDatabase catalogue(this->catalogue());
        QSqlQuery query(catalogue.db());
        query.exec(u"PRAGMA foreign_keys = ON"_s);
        query.exec(u"DELETE FROM tblBook WHERE BookID % 2 = 0"_s);
        m_rows = rowDump(catalogue.db());
        m_fingerprint = fileFingerprint(this->catalogue());
    }

private:
    QTemporaryDir m_dir;
    QStringList m_rows;
    QByteArray m_fingerprint;
};

// Runs the re-organisation in a child process with the given arguments; answers its output.
QString runChild(const Files &files, const QStringList &arguments, QProcess::ExitStatus expected)
{
    QProcess child;
    child.start(QCoreApplication::applicationDirPath() + u"/reorganisationchild"_s,
                QStringList{files.catalogue(), files.backup()} + arguments);
    if (!child.waitForFinished(60000))
        return u"still running"_s;
    const QString said = QString::fromLocal8Bit(child.readAllStandardOutput());
    if (child.exitStatus() != expected)
        return u"ended unexpectedly: "_s + said + QString::fromLocal8Bit(child.readAllStandardError());
    return said;
}

QString outcomeLine(Outcome outcome)
{
    return u"outcome %1:"_s.arg(int(outcome));
}

} // namespace

class TestReorganisation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void compactedCopyHasNoFreePages();
    void reorganisedCatalogueIsSmallerAndWhole();
    void leftoverBackupIsReplaced();
    void leftoverNewFileIsReplaced();
    void killedAtAStepLeavesTheCatalogueWhole_data();
    void killedAtAStepLeavesTheCatalogueWhole();
    void backupFolderThatIsAFile();
    void backupFolderNotWritable();
    void catalogueFolderNotWritable();
    void renameRefused();
    void diskFullWritingTheBackup();
    void diskFullWritingTheNewFile();
    void catalogueHeldByAnotherProgram_data();
    void catalogueHeldByAnotherProgram();
    void damagedCatalogueIsLeftAlone();
};

void TestReorganisation::compactedCopyHasNoFreePages()
{
    Files files;
    files.deleteHalfTheBooks();
    QVERIFY(scalarOf(files.catalogue(), u"PRAGMA freelist_count"_s) > 0);
    const QString copy = files.root() + u"/copy.mdb"_s;

    compactCatalogue(files.catalogue(), copy);

    QCOMPARE(scalarOf(copy, u"PRAGMA freelist_count"_s), 0);
    QVERIFY(QFileInfo(copy).size() < QFileInfo(files.catalogue()).size());
    QCOMPARE(rowsOf(copy), files.rows());
    QVERIFY(files.untouched());
}

void TestReorganisation::reorganisedCatalogueIsSmallerAndWhole()
{
    Files files;
    files.deleteHalfTheBooks();
    const qint64 before = QFileInfo(files.catalogue()).size();

    const auto result = Reorganisation::reorganiseCatalogue(files.catalogue(), files.backup());

    QCOMPARE(result.outcome, Outcome::Done);
    QCOMPARE(result.reason, QString());
    QVERIFY2(QFileInfo(files.catalogue()).size() < before,
             qPrintable(QString::number(QFileInfo(files.catalogue()).size())));
    QCOMPARE(scalarOf(files.catalogue(), u"PRAGMA freelist_count"_s), 0);
    QCOMPARE(rowsOf(files.catalogue()), files.rows());
    QCOMPARE(CatalogueCheck::problemsIn(files.catalogue()), QStringList());
    QVERIFY(!QFile::exists(files.backup()));
    QVERIFY(!QFile::exists(files.newFile()));
    QCOMPARE(QDir(files.catalogueFolder()).entryList(QDir::Files | QDir::Hidden),
             QStringList{u"QuireshelfCatalog01.mdb"_s});
    // A dated backup of the catalogue as it was is kept beside it first.
    QVERIFY(result.kept && result.kept->ok());
    QCOMPARE(CatalogueBackups::listed(files.catalogue(), CatalogueBackups::folderBeside(files.catalogue())),
             QStringList{result.kept->path});
    QCOMPARE(rowsOf(result.kept->path), files.rows());
}

void TestReorganisation::leftoverBackupIsReplaced()
{
    Files files;
    QVERIFY(writeFile(files.backup(), "the backup of an earlier run"));
    QStringList backupProblems{u"not looked at"_s};
    const auto watch = [&](Step step) {
        if (step == Step::BackupWritten)
            backupProblems = CatalogueCheck::problemsIn(files.backup());
    };

    const auto result =
        Reorganisation::reorganiseCatalogue(files.catalogue(), files.backup(), watch);

    QCOMPARE(result.outcome, Outcome::Done);
    QCOMPARE(backupProblems, QStringList());
    QVERIFY(!QFile::exists(files.backup()));
    QCOMPARE(rowsOf(files.catalogue()), files.rows());
}

void TestReorganisation::leftoverNewFileIsReplaced()
{
    Files files;
    QVERIFY(writeFile(files.newFile(), "half a compacted catalogue"));

    const auto result = Reorganisation::reorganiseCatalogue(files.catalogue(), files.backup());

    QCOMPARE(result.outcome, Outcome::Done);
    QVERIFY(!QFile::exists(files.newFile()));
    QCOMPARE(rowsOf(files.catalogue()), files.rows());
}

void TestReorganisation::killedAtAStepLeavesTheCatalogueWhole_data()
{
    QTest::addColumn<Step>("step");
    QTest::newRow("catalogue held") << Step::CatalogueHeld;
    QTest::newRow("dated copy kept") << Step::DatedCopyKept;
    QTest::newRow("backup written") << Step::BackupWritten;
    QTest::newRow("new file written") << Step::NewFileWritten;
    QTest::newRow("new file flushed") << Step::NewFileFlushed;
    QTest::newRow("renamed") << Step::Renamed;
    QTest::newRow("backup deleted") << Step::BackupDeleted;
}

void TestReorganisation::killedAtAStepLeavesTheCatalogueWhole()
{
    QFETCH(Step, step);
    Files files;
    files.deleteHalfTheBooks();

    const QString said =
        runChild(files, {u"kill"_s, QString::number(int(step))}, QProcess::CrashExit);
    QVERIFY2(said.isEmpty(), qPrintable(said));

    QCOMPARE(CatalogueCheck::problemsIn(files.catalogue()), QStringList());
    QCOMPARE(rowsOf(files.catalogue()), files.rows());
    // The next re-organisation clears what the killed one left.
    const auto result = Reorganisation::reorganiseCatalogue(files.catalogue(), files.backup());
    QCOMPARE(result.outcome, Outcome::Done);
    QCOMPARE(rowsOf(files.catalogue()), files.rows());
    QCOMPARE(scalarOf(files.catalogue(), u"PRAGMA freelist_count"_s), 0);
    QVERIFY(!QFile::exists(files.backup()));
    QVERIFY(!QFile::exists(files.newFile()));
}

void TestReorganisation::backupFolderThatIsAFile()
{
    Files files;
    const QString notAFolder = files.root() + u"/file"_s;
    QVERIFY(writeFile(notAFolder, {}));

    const auto result = Reorganisation::reorganiseCatalogue(
        files.catalogue(), notAFolder + u"/QuireshelfBackUp.mdb"_s);

    QCOMPARE(result.outcome, Outcome::BackupFailed);
    QVERIFY(!result.reason.isEmpty());
    QVERIFY(files.untouched());
    QVERIFY(!QFile::exists(files.newFile()));
}

void TestReorganisation::backupFolderNotWritable()
{
    Files files;
    const ImmutableFolder locked(files.backupFolder());
    if (!locked.isImmutable())
        QSKIP(qPrintable(u"the backup folder cannot be made unwritable: "_s + locked.problem()));

    const auto result = Reorganisation::reorganiseCatalogue(files.catalogue(), files.backup());

    QCOMPARE(result.outcome, Outcome::BackupFailed);
    QVERIFY(files.untouched());
    QVERIFY(!QFile::exists(files.backup()));
    QVERIFY(!QFile::exists(files.newFile()));
}

void TestReorganisation::catalogueFolderNotWritable()
{
    Files files;
    Reorganisation::Result result;
    {
        const ImmutableFolder locked(files.catalogueFolder());
        if (!locked.isImmutable())
            QSKIP(qPrintable(u"the catalogue folder cannot be made unwritable: "_s + locked.problem()));
        result = Reorganisation::reorganiseCatalogue(files.catalogue(), files.backup());
    }

    QCOMPARE(result.outcome, Outcome::ReplaceFailed);
    QVERIFY(files.untouched());
    QVERIFY(!QFile::exists(files.newFile()));
    // The backup stays, a whole catalogue of its own.
    QCOMPARE(CatalogueCheck::problemsIn(files.backup()), QStringList());
    QCOMPARE(rowsOf(files.backup()), files.rows());
}

void TestReorganisation::renameRefused()
{
    Files files;
    std::optional<ImmutableFolder> locked;
    const auto watch = [&](Step step) {
        if (step == Step::NewFileFlushed)
            locked.emplace(files.catalogueFolder());
    };

    const auto result =
        Reorganisation::reorganiseCatalogue(files.catalogue(), files.backup(), watch);
    QVERIFY(locked.has_value());
    if (!locked->isImmutable())
        QSKIP(qPrintable(u"the catalogue folder cannot be made unwritable: "_s + locked->problem()));
    locked.reset();

    QCOMPARE(result.outcome, Outcome::ReplaceFailed);
    QVERIFY(files.untouched());
    QCOMPARE(CatalogueCheck::problemsIn(files.catalogue()), QStringList());
    QCOMPARE(rowsOf(files.backup()), files.rows());
    // The copy that could not take the catalogue's place could not be removed either; the next
    // re-organisation replaces it.
    QVERIFY(QFile::exists(files.newFile()));
    QCOMPARE(Reorganisation::reorganiseCatalogue(files.catalogue(), files.backup()).outcome,
             Outcome::Done);
    QVERIFY(!QFile::exists(files.newFile()));
    QCOMPARE(rowsOf(files.catalogue()), files.rows());
}

void TestReorganisation::diskFullWritingTheBackup()
{
    Files files;
    const qint64 half = QFileInfo(files.catalogue()).size() / 2;

    const QString said = runChild(files, {u"full"_s, QString::number(half)}, QProcess::NormalExit);

    QVERIFY2(said.startsWith(outcomeLine(Outcome::BackupFailed)), qPrintable(said));
    QVERIFY(files.untouched());
    QVERIFY(!QFile::exists(files.backup()));
    QVERIFY(!QFile::exists(files.newFile()));
}

void TestReorganisation::diskFullWritingTheNewFile()
{
    Files files;
    const qint64 half = QFileInfo(files.catalogue()).size() / 2;

    const QString said = runChild(
        files, {u"full"_s, QString::number(half), QString::number(int(Step::BackupWritten))},
        QProcess::NormalExit);

    QVERIFY2(said.startsWith(outcomeLine(Outcome::ReplaceFailed)), qPrintable(said));
    QVERIFY(files.untouched());
    QVERIFY(!QFile::exists(files.newFile()));
    QCOMPARE(rowsOf(files.backup()), files.rows());
}

void TestReorganisation::catalogueHeldByAnotherProgram_data()
{
    QTest::addColumn<HeldCatalogue::Lock>("lock");
    QTest::addColumn<QString>("reason");
    QTest::newRow("writing") << HeldCatalogue::Lock::Write << u"database is locked"_s;
    QTest::newRow("exclusive") << HeldCatalogue::Lock::Exclusive << u"database is locked"_s;
    // An idle copy of the program holds no lock of SQLite's, and edits the file later.
    QTest::newRow("open in a copy of the program")
        << HeldCatalogue::Lock::Open << u"the catalogue is open in another copy of Shelvane"_s;
}

void TestReorganisation::catalogueHeldByAnotherProgram()
{
    QFETCH(HeldCatalogue::Lock, lock);
    QFETCH(QString, reason);
    Files files;
    Reorganisation::Result result;
    {
        const HeldCatalogue held(files.catalogue(), lock);
        QVERIFY2(held.isHeld(), qPrintable(held.problem()));
        result = Reorganisation::reorganiseCatalogue(files.catalogue(), files.backup());
    }

    QCOMPARE(result.outcome, Outcome::InUse);
    QCOMPARE(result.reason, reason);
    QVERIFY(!result.kept);
    QVERIFY(files.untouched());
    QVERIFY(!QFile::exists(files.backup()));
    QVERIFY(!QFileInfo::exists(CatalogueBackups::folderBeside(files.catalogue())));
    QVERIFY(!QFile::exists(files.newFile()));
}

void TestReorganisation::damagedCatalogueIsLeftAlone()
{
    Files files;
    const QString damage = damageLinkIndex(files.catalogue());
    QVERIFY2(damage.isEmpty(), qPrintable(damage));
    const QByteArray damaged = fileFingerprint(files.catalogue());

    const auto result = Reorganisation::reorganiseCatalogue(files.catalogue(), files.backup());

    QCOMPARE(result.outcome, Outcome::Damaged);
    QVERIFY2(result.reason.contains(u"idxBookTopicTopic"_s), qPrintable(result.reason));
    QCOMPARE(fileFingerprint(files.catalogue()), damaged);
    QVERIFY(!QFile::exists(files.backup()));
    QVERIFY(!QFile::exists(files.newFile()));
}

QTEST_GUILESS_MAIN(TestReorganisation)
#include "tst_reorganisation.moc"
