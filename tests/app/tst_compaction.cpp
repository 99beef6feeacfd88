// File › Compact Catalogue, driven as a user would: the question, the windows that must be
// closed first, the messages of every ending, and the session it leaves behind.

#include "../data/cataloguedamage.h"
#include "../data/catalogueprobe.h"
#include "../tools/snapshot.h"
#include "backupmessage.h"
#include "compactionmessages.h"

#include "app/compaction.h"
#include "app/formregistry.h"
#include "app/helpwindow.h"
#include "app/mainframe.h"
#include "catalogue/cataloguebackups.h"
#include "catalogue/scopeddatabase.h"
#include "data/recordset.h"
#include "forms/books/bookforms.h"
#include "forms/reference/registerreferenceforms.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/formdriver.h"
#include "support/heldcatalogue.h"
#include "support/immutablefolder.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(HeldCatalogue::Lock)

namespace {

const QString CRLF = u"\r\n"_s;

void registerForms(MainFrame &frame)
{
    RegisterBookForms(frame);
    RegisterReferenceForms(frame);
}

ModalExpectation question(const QString &press)
{
    ModalExpectation expected = compactQuestion(press);
    expected.act = [](QWidget *box) { SaveScreenshot(box, u"compactQuestion"_s); };
    return expected;
}

ModalExpectation windowsStillOpen()
{
    return ModalResponder::message(u"Re-Organised Database"_s,
                                   u"One or more windows still open!\r\n"
                                   "Please close all open windows and try again.\r\n\r\n"
                                   "Re-Organisation Cancelled!"_s,
                                   QMessageBox::Warning, {u"OK"_s}, u"OK"_s);
}

ModalExpectation notReorganised(const QString &screenshot, const QString &text)
{
    ModalExpectation expected = ModalResponder::message(u"Compact Database"_s, text,
                                                        QMessageBox::Warning, {u"OK"_s}, u"OK"_s);
    expected.act = [screenshot](QWidget *box) { SaveScreenshot(box, screenshot); };
    return expected;
}

} // namespace

class TestCompaction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void needsAnOpenCatalogue();
    void answeringNoChangesNothing();
    void runsThroughWithOnlyTheHiddenBookForm();
    void openTaskFormStopsIt();
    void aboutBoxStopsIt();
    void leftoverBackupIsDeletedFirst();
    void catalogueInUse_data();
    void catalogueInUse();
    void damagedCatalogueIsLeftAlone();
    void backupFolderNotWritable();
    void catalogueFolderNotWritable();
    void helpTopicTellsWhatEachMessageAsks();

private:
    MainFrame &frame() const { return m_opener->frame(); }
    Session &session() const { return frame().session(); }
    QString path() const { return m_opener->catalogue().path(); }
    // Chooses File › Compact Catalogue.
    void compact() const { FindAction(u"mnuFileCompactDatabase"_s)->trigger(); }
    // The shared connection is open on the catalogue and answers, and the book form is loaded
    // out of sight, as after opening the catalogue.
    bool reconnected() const;
    void removeBackupFolderBlocker() const;

    std::unique_ptr<CatalogueOpener> m_opener;
    std::unique_ptr<ModalResponder> m_responder;
};

void TestCompaction::init()
{
    removeBackupFolderBlocker();
    QFile::remove(CompactionBackupPath());
    m_opener = std::make_unique<CatalogueOpener>(registerForms);
    QVERIFY2(m_opener->problems().isEmpty(), qPrintable(m_opener->problems()));
    m_responder = std::make_unique<ModalResponder>();
}

void TestCompaction::cleanup()
{
    m_responder.reset();
    m_opener.reset();
    removeBackupFolderBlocker();
    QFile::remove(CompactionBackupPath());
}

void TestCompaction::removeBackupFolderBlocker() const
{
    const QString folder = QFileInfo(CompactionBackupPath()).absolutePath();
    if (QFileInfo(folder).isFile())
        QFile::remove(folder);
}

bool TestCompaction::reconnected() const
{
    if (!session().cnnCatalogue || session().cnnCatalogue->filePath() != path())
        return false;
    const auto books = session().cnnCatalogue->execute(u"select count(*) from tblBook"_s);
    const QWidget *bookForm = FindForm(u"frmBookMaintenance"_s);
    return books && books->value(0).toInt() > 0 && bookForm && !bookForm->isVisible();
}

void TestCompaction::needsAnOpenCatalogue()
{
    MainFrame withoutCatalogue;
    withoutCatalogue.show();
    QVERIFY(QTest::qWaitForWindowExposed(&withoutCatalogue));
    m_responder->expect(ModalResponder::message(u"Shelvane"_s,
                                                u"Please open Quireshelf database first!"_s,
                                                QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
    withoutCatalogue.action(u"mnuFileCompactDatabase"_s)->trigger();
    QCOMPARE(m_responder->finish(), QString());
    QVERIFY(!QFile::exists(CompactionBackupPath()));
}

void TestCompaction::answeringNoChangesNothing()
{
    const QByteArray before = fileFingerprint(path());
    const Connection *connection = session().cnnCatalogue.get();
    const QWidget *bookForm = FindForm(u"frmBookMaintenance"_s);
    QSignalSpy closing(&frame(), &MainFrame::closingConnections);

    m_responder->expect(question(u"No"_s));
    compact();
    QCOMPARE(m_responder->finish(), QString());

    QCOMPARE(closing.count(), 0);
    QCOMPARE(session().cnnCatalogue.get(), connection);
    QVERIFY(connection->isOpen());
    QCOMPARE(FindForm(u"frmBookMaintenance"_s), bookForm);
    QCOMPARE(fileFingerprint(path()), before);
}

void TestCompaction::runsThroughWithOnlyTheHiddenBookForm()
{
    QSqlQuery remove(m_opener->catalogue().db());
    QVERIFY(remove.exec(u"DELETE FROM tblBook WHERE BookID % 2 = 0"_s));
    const QStringList rows = rowsOf(path());
    const qint64 before = QFileInfo(path()).size();
    QVERIFY(scalarOf(path(), u"PRAGMA freelist_count"_s) > 0);
    // The data environment of the reports closes its connections on this signal, before the
    // shared connection goes.
    bool sharedStillOpen = false;
    connect(&frame(), &MainFrame::closingConnections, this, [&] {
        sharedStillOpen = session().cnnCatalogue && session().cnnCatalogue->isOpen();
    });
    QSignalSpy closing(&frame(), &MainFrame::closingConnections);

    m_responder->expect(question(u"Yes"_s));
    m_responder->expect(compactSucceeded(session().strCataloguePath));
    compact();
    QCOMPARE(m_responder->finish(), QString());

    QCOMPARE(closing.count(), 1);
    QVERIFY(sharedStillOpen);
    QVERIFY(reconnected());
    QVERIFY(!QFile::exists(CompactionBackupPath()));
    // A dated backup of the catalogue as it was is kept beside it first.
    const QStringList kept = CatalogueBackups::listed(path(), CatalogueBackups::folderBeside(path()));
    QCOMPARE(kept.size(), 1);
    QCOMPARE(rowsOf(kept.constFirst()), rows);
    QVERIFY(QFileInfo(path()).size() < before);
    QCOMPARE(scalarOf(path(), u"PRAGMA freelist_count"_s), 0);
    QCOMPARE(rowsOf(path()), rows);
    QCOMPARE(frame().windowTitle(), u"Shelvane - Open Catalogue: "_s
                 + session().cnnCatalogue->execute(u"tblCatalogueControl"_s, CommandType::Table)
                       ->value(0).toString());
}

void TestCompaction::openTaskFormStopsIt()
{
    FindAction(u"mnuAuthorS"_s)->trigger();
    QVERIFY(FindForm(u"frmAuthor"_s));
    const QByteArray before = fileFingerprint(path());
    QSignalSpy closing(&frame(), &MainFrame::closingConnections);

    m_responder->expect(question(u"Yes"_s));
    m_responder->expect(windowsStillOpen());
    compact();
    QCOMPARE(m_responder->finish(), QString());

    QCOMPARE(closing.count(), 0);
    // The book form, loaded before the authors' form, was unloaded on the way.
    QTRY_VERIFY(!FindForm(u"frmBookMaintenance"_s));
    QVERIFY(FindForm(u"frmAuthor"_s)->isVisible());
    QVERIFY(session().cnnCatalogue && session().cnnCatalogue->isOpen());
    QCOMPARE(session().cnnCatalogue->execute(u"select count(*) from tblBook"_s)->value(0).toInt(),
             m_opener->catalogue().scalar(u"select count(*) from tblBook"_s).toInt());
    QCOMPARE(fileFingerprint(path()), before);
    // The books command still opens the book form.
    FindAction(u"mnuBooks"_s)->trigger();
    QVERIFY(FindForm(u"frmBookMaintenance"_s));
}

void TestCompaction::aboutBoxStopsIt()
{
    FindAction(u"mnuAbout"_s)->trigger();
    QVERIFY(FindForm(u"frmAbout"_s));
    const QByteArray before = fileFingerprint(path());

    m_responder->expect(question(u"Yes"_s));
    m_responder->expect(windowsStillOpen());
    compact();
    QCOMPARE(m_responder->finish(), QString());

    QVERIFY(FindForm(u"frmAbout"_s));
    QVERIFY(session().cnnCatalogue && session().cnnCatalogue->isOpen());
    QCOMPARE(fileFingerprint(path()), before);
}

void TestCompaction::leftoverBackupIsDeletedFirst()
{
    QVERIFY(QDir().mkpath(QFileInfo(CompactionBackupPath()).absolutePath()));
    QVERIFY(writeFile(CompactionBackupPath(), "left by an earlier compaction"));
    const QStringList rows = rowsOf(path());

    m_responder->expect(question(u"Yes"_s));
    m_responder->expect(compactSucceeded(session().strCataloguePath));
    compact();
    QCOMPARE(m_responder->finish(), QString());

    QVERIFY(!QFile::exists(CompactionBackupPath()));
    QVERIFY(reconnected());
    QCOMPARE(rowsOf(path()), rows);
}

void TestCompaction::catalogueInUse_data()
{
    QTest::addColumn<HeldCatalogue::Lock>("lock");
    QTest::newRow("held by another program") << HeldCatalogue::Lock::Exclusive;
    // An idle copy holds no lock of SQLite's; it would write into the old file later.
    QTest::newRow("open in another copy of Shelvane") << HeldCatalogue::Lock::Open;
}

void TestCompaction::catalogueInUse()
{
    QFETCH(HeldCatalogue::Lock, lock);
    const QString cataloguePath = session().strCataloguePath;
    const QByteArray before = fileFingerprint(path());
    {
        const HeldCatalogue held(path(), lock);
        QVERIFY2(held.isHeld(), qPrintable(held.problem()));
        m_responder->expect(question(u"Yes"_s));
        m_responder->expect(compactInUse());
        compact();
        QCOMPARE(m_responder->finish(), QString());
    }

    // The catalogue stays closed, its path kept: the user exits and opens it again.
    QCOMPARE(session().strCataloguePath, cataloguePath);
    QVERIFY(!session().cnnCatalogue);
    QTRY_VERIFY(!FindForm(u"frmBookMaintenance"_s));
    QCOMPARE(fileFingerprint(path()), before);
    QVERIFY(!QFile::exists(CompactionBackupPath()));
    QVERIFY(!QFileInfo::exists(CatalogueBackups::folderBeside(path())));
}

void TestCompaction::damagedCatalogueIsLeftAlone()
{
    const QString damage = damageLinkIndex(path());
    QVERIFY2(damage.isEmpty(), qPrintable(damage));
    const QByteArray damaged = fileFingerprint(path());
    QString firstProblem;
    {
        ScopedDatabase check(path(), ScopedDatabase::Mode::ReadOnly);
        QSqlQuery integrity(check.db());
        QVERIFY(integrity.exec(u"PRAGMA integrity_check"_s) && integrity.next());
        firstProblem = integrity.value(0).toString();
    }
    QVERIFY2(firstProblem.contains(u"idxBookTopicTopic"_s), qPrintable(firstProblem));

    m_responder->expect(question(u"Yes"_s));
    m_responder->expect(notReorganised(u"compactDamaged"_s,
                                       u"Database not re-organised!\r\n"
                                       "The catalogue file is damaged:\r\n"_s
                                       + QDir::toNativeSeparators(path()) + CRLF + u"("_s
                                       + firstProblem + u")\r\n\r\n"_s
                                       + u"Your catalogue has not been changed.\r\n\r\n"
                                         "Please check it with: shelvane-catalog check"_s));
    compact();
    QCOMPARE(m_responder->finish(), QString());

    QCOMPARE(fileFingerprint(path()), damaged);
    QVERIFY(!QFile::exists(CompactionBackupPath()));
    QVERIFY(reconnected());
}

void TestCompaction::backupFolderNotWritable()
{
    // Where the backup's folder should be there is a file, so no folder can be made there.
    const QString folder = QFileInfo(CompactionBackupPath()).absolutePath();
    QDir(folder).removeRecursively();
    QVERIFY(QDir().mkpath(QFileInfo(folder).absolutePath()));
    QVERIFY(writeFile(folder, {}));
    const QByteArray before = fileFingerprint(path());

    m_responder->expect(question(u"Yes"_s));
    m_responder->expect(notReorganised(u"compactBackupFailed"_s,
                                       u"Database not re-organised!\r\n"
                                       "The backup copy could not be written to\r\n"_s
                                       + QDir::toNativeSeparators(CompactionBackupPath())
                                       + u"\r\n(unable to open database: "_s
                                       + CompactionBackupPath() + u")\r\n\r\n"_s
                                       + u"Your catalogue has not been changed.\r\n\r\n"
                                         "Please make room on the disk or check that folder "
                                         "and try again."_s));
    compact();
    QCOMPARE(m_responder->finish(), QString());

    QCOMPARE(fileFingerprint(path()), before);
    QVERIFY(reconnected());
}

void TestCompaction::catalogueFolderNotWritable()
{
    const QStringList rows = rowsOf(path());
    const QByteArray before = fileFingerprint(path());
    {
        const ImmutableFolder locked(m_opener->catalogue().folder());
        if (!locked.isImmutable())
            QSKIP(qPrintable(u"the catalogue folder cannot be made unwritable: "_s + locked.problem()));
        m_responder->expect(question(u"Yes"_s));
        // Nor can the dated backup be made beside it; that does not stop the compaction.
        m_responder->expect(backupFailedMessage(
            QDir(m_opener->catalogue().folder()).filePath(u"Backups"_s), u"Operation not permitted"_s));
        m_responder->expect(notReorganised(
            u"compactReplaceFailed"_s,
            u"Database not re-organised!\r\n"
            "The re-organised copy could not be written beside\r\n"_s
            + QDir::toNativeSeparators(path()) + u"\r\n(unable to open database: "_s + path()
            + u".compacting)\r\n\r\n"_s + u"Your catalogue has not been changed.\r\n"_s
            + u"A backup copy is kept at\r\n"_s
            + QDir::toNativeSeparators(CompactionBackupPath())
            + u"\r\n\r\nPlease make room on the disk or check the catalogue's folder and "
              "try again."_s));
        compact();
        QCOMPARE(m_responder->finish(), QString());
        QVERIFY(reconnected());
    }

    QCOMPARE(fileFingerprint(path()), before);
    QCOMPARE(rowsOf(CompactionBackupPath()), rows);
}

void TestCompaction::helpTopicTellsWhatEachMessageAsks()
{
    // The help file's number of the compaction topic.
    constexpr int CompactionTopic = 22;
    const QString lacking = HelpTopicLacks(
        CompactionTopic, u"Compacting the catalogue"_s,
        {u"QuireshelfBackUp.mdb"_s, u"Please open Quireshelf database first!"_s,
         u"One or more windows still open!"_s, u"Database in use please exit Shelvane"_s,
         u"The catalogue file is damaged"_s, u"The backup copy could not be written"_s,
         u"The re-organised copy could not be written beside"_s, u"Backups"_s,
         u"No backup copy of the catalogue could be made in"_s},
        {760, 900}, u"HelpWindow-compact"_s);
    QVERIFY2(lacking.isEmpty(), qPrintable(lacking));
    FindForm(u"HelpWindow"_s)->close();
}

SHELVANE_TEST_MAIN(TestCompaction)
#include "tst_compaction.moc"
