// Dated backups of a catalogue: a whole, checked copy with every row, named with the date and
// time, only the newest kept beside the catalogue, and nothing left behind by one that fails.

#include "../tools/snapshot.h"
#include "cataloguedamage.h"
#include "catalogueprobe.h"

#include "catalogue/cataloguecheck.h"
#include "catalogue/cataloguebackups.h"
#include "support/heldcatalogue.h"
#include "support/immutablefolder.h"
#include "support/testcatalogue.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QDateTime FirstOfMay(QDate(2024, 5, 1), QTime(14, 3, 59));

QStringList namesOf(const QStringList &paths)
{
    QStringList names;
    for (const QString &path : paths)
        names << QFileInfo(path).fileName();
    return names;
}

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden);
}

} // namespace

class TestCatalogueBackups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        QVERIFY(m_settings.isValid());
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    }

    void cleanup() { QSettings().clear(); }

    void aBackupIsAWholeCatalogueNamedWithTheDateAndTime()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const CatalogueBackups::Made made = CatalogueBackups::keep(catalogue.path(), FirstOfMay);

        QVERIFY2(made.ok(), qPrintable(made.problem));
        const QString folder = QDir(catalogue.folder()).filePath(u"Backups"_s);
        QCOMPARE(made.folder, folder);
        QCOMPARE(made.path, QDir(folder).filePath(u"QuireshelfCatalog01 2024-05-01 14-03-59.mdb"_s));
        QCOMPARE(filesIn(folder), QStringList{QFileInfo(made.path).fileName()});
        QCOMPARE(rowsOf(made.path), rowsOf(catalogue.path()));
        QCOMPARE(CatalogueCheck::problemsIn(made.path), QStringList());
    }

    void twoInTheSameSecondAreNumbered()
    {
        TestCatalogue catalogue;
        for (int i = 0; i < 3; ++i)
            QVERIFY(CatalogueBackups::keep(catalogue.path(), FirstOfMay).ok());
        QCOMPARE(namesOf(CatalogueBackups::listed(catalogue.path(), CatalogueBackups::folderBeside(catalogue.path()))),
                 (QStringList{u"QuireshelfCatalog01 2024-05-01 14-03-59.mdb"_s,
                              u"QuireshelfCatalog01 2024-05-01 14-03-59 (2).mdb"_s,
                              u"QuireshelfCatalog01 2024-05-01 14-03-59 (3).mdb"_s}));
    }

    void theEleventhRemovesTheOldest()
    {
        TestCatalogue catalogue;
        const QString folder = CatalogueBackups::folderBeside(catalogue.path());
        QStringList made;
        for (int day = 0; day < 11; ++day)
            made << CatalogueBackups::keep(catalogue.path(), FirstOfMay.addDays(day)).path;

        QCOMPARE(CatalogueBackups::listed(catalogue.path(), folder), made.mid(1));
        QVERIFY(!QFileInfo::exists(made.constFirst()));
    }

    void theSettingSaysHowManyAreKept()
    {
        QSettings().setValue(u"Backups/Keep"_s, 3);
        TestCatalogue catalogue;
        QStringList made;
        for (int day = 0; day < 5; ++day)
            made << CatalogueBackups::keep(catalogue.path(), FirstOfMay.addDays(day)).path;
        QCOMPARE(CatalogueBackups::listed(catalogue.path(), CatalogueBackups::folderBeside(catalogue.path())),
                 made.mid(2));
    }

    void otherFilesInTheFolderAreLeftAlone()
    {
        TestCatalogue catalogue;
        const QString folder = CatalogueBackups::folderBeside(catalogue.path());
        QVERIFY(QDir().mkpath(folder));
        const QStringList others{u"QuireshelfCatalog01 my own copy.mdb"_s, u"notes.txt"_s,
                                 u"Other 2020-01-01 10-00-00.mdb"_s};
        for (const QString &name : others)
            QVERIFY(writeFile(QDir(folder).filePath(name), "kept by the owner"));
        QSettings().setValue(u"Backups/Keep"_s, 1);
        for (int day = 0; day < 3; ++day)
            QVERIFY(CatalogueBackups::keep(catalogue.path(), FirstOfMay.addDays(day)).ok());

        QStringList expected = others;
        expected << u"QuireshelfCatalog01 2024-05-03 14-03-59.mdb"_s;
        expected.sort(Qt::CaseInsensitive);
        QCOMPARE(filesIn(folder), expected);
    }

    void aBackupToAFolderOfOnesChoiceRemovesNothing()
    {
        TestCatalogue catalogue;
        const QString folder = QDir(catalogue.folder()).filePath(u"elsewhere/deeper"_s);
        QSettings().setValue(u"Backups/Keep"_s, 1);
        for (int day = 0; day < 3; ++day)
            QVERIFY(CatalogueBackups::make(catalogue.path(), folder, FirstOfMay.addDays(day)).ok());
        QCOMPARE(CatalogueBackups::listed(catalogue.path(), folder).size(), 3);
    }

    void aFolderThatCannotBeWrittenLeavesNoFile()
    {
        TestCatalogue catalogue;
        const QString folder = CatalogueBackups::folderBeside(catalogue.path());
        QVERIFY(QDir().mkpath(folder));
        CatalogueBackups::Made made;
        {
            const ImmutableFolder locked(folder);
            if (!locked.isImmutable())
                QSKIP(qPrintable(u"the folder cannot be made unwritable: "_s + locked.problem()));
            made = CatalogueBackups::keep(catalogue.path(), FirstOfMay);
        }
        QVERIFY(!made.ok());
        QCOMPARE(made.problem, u"Operation not permitted"_s);
        QCOMPARE(made.folder, folder);
        QCOMPARE(made.path, QString());
        QCOMPARE(filesIn(folder), QStringList());
    }

    void aFolderThatCannotBeMadeLeavesNoFile()
    {
        TestCatalogue catalogue;
        const QString blocker = CatalogueBackups::folderBeside(catalogue.path());
        QVERIFY(writeFile(blocker, "a file where the folder should be"));
        const CatalogueBackups::Made made = CatalogueBackups::keep(catalogue.path(), FirstOfMay);
        QVERIFY(!made.ok());
        QVERIFY(!made.problem.isEmpty());
        QCOMPARE(filesIn(catalogue.folder()), (QStringList{u"Backups"_s, u"QuireshelfCatalog01.mdb"_s}));
    }

    void aDamagedCatalogueGivesNoBackup()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString damage = damageLinkIndex(catalogue.path());
        QVERIFY2(damage.isEmpty(), qPrintable(damage));
        const CatalogueBackups::Made made = CatalogueBackups::keep(catalogue.path(), FirstOfMay);
        QVERIFY(!made.ok());
        QVERIFY2(made.problem.contains(u"idxBookTopicTopic"_s), qPrintable(made.problem));
        QCOMPARE(filesIn(made.folder), QStringList());
    }

    void aBackupWhileAnotherProgramWritesHasOnlyWhatWasCommitted()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QStringList committed = rowsOf(catalogue.path());
        const HeldCatalogue writer(catalogue.path(), HeldCatalogue::Lock::Write);
        QVERIFY2(writer.isHeld(), qPrintable(writer.problem()));
        const CatalogueBackups::Made made = CatalogueBackups::keep(catalogue.path(), FirstOfMay);
        QVERIFY2(made.ok(), qPrintable(made.problem));
        QCOMPARE(rowsOf(made.path), committed);
    }

    void aCheckedCopyReplacesItsDestinationWhole()
    {
        TestCatalogue source(TestCatalogue::Content::Sample);
        TestCatalogue destination;
        QCOMPARE(CatalogueBackups::copyChecked(source.path(), destination.path()), QString());
        QCOMPARE(rowsOf(destination.path()), rowsOf(source.path()));
        QCOMPARE(filesIn(destination.folder()), QStringList{u"QuireshelfCatalog01.mdb"_s});
    }

    void aCopyOfNoCatalogueLeavesTheDestinationAlone()
    {
        TestCatalogue source;
        TestCatalogue destination(TestCatalogue::Content::Sample);
        QVERIFY(writeFile(source.path(), "no catalogue at all"));
        const QByteArray before = fileFingerprint(destination.path());
        QCOMPARE(CatalogueBackups::copyChecked(source.path(), destination.path()),
                 u"file is not a database"_s);
        QCOMPARE(fileFingerprint(destination.path()), before);
        QCOMPARE(filesIn(destination.folder()), QStringList{u"QuireshelfCatalog01.mdb"_s});
    }

private:
    QTemporaryDir m_settings;
};

QTEST_GUILESS_MAIN(TestCatalogueBackups)
#include "tst_cataloguebackups.moc"
