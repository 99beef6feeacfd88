// The backup kept when a catalogue that changed is closed: by File › Close Catalogue, by Exit,
// after an edit in a form or a statement of the program; none when nothing changed; the
// newest ten kept; and a folder that cannot take it told once, the catalogue closed anyway.

#include "../data/catalogueprobe.h"
#include "backupmessage.h"
#include "compactionmessages.h"

#include "app/mainframe.h"
#include "catalogue/cataloguebackups.h"
#include "data/recordset.h"
#include "forms/books/bookforms.h"
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
#include <QFileInfo>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class TestClosingBackup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void closingAfterAnEditInAFormKeepsOneBackup();
    void closingWithoutAChangeKeepsNone();
    void exitingAfterAChangeKeepsOneBackup();
    void theEleventhBackupRemovesTheOldest();
    void aFolderThatCannotTakeItIsToldOnceAndTheCatalogueCloses();
    void aChangeBeforeACompactionThatFoundTheCatalogueInUseIsKeptAtExit();
    void helpTellsWhereTheBackupsAreAndHowToRestoreOne();

private:
    MainFrame &frame() const { return m_opener->frame(); }
    QString path() const { return m_opener->catalogue().path(); }
    QString backups() const { return CatalogueBackups::folderBeside(path()); }
    QStringList listed() const { return CatalogueBackups::listed(path(), backups()); }
    // A change made by a statement the program runs on its shared connection.
    void changeThroughTheProgram() const;
    // File › Close Catalogue, answering the windows `before` its "closed!" message.
    void closeCatalogue(const QList<ModalExpectation> &before = {}) const;

    std::unique_ptr<CatalogueOpener> m_opener;
    std::unique_ptr<ModalResponder> m_responder;
};

void TestClosingBackup::init()
{
    m_opener = std::make_unique<CatalogueOpener>(RegisterBookForms);
    QVERIFY2(m_opener->problems().isEmpty(), qPrintable(m_opener->problems()));
    m_responder = std::make_unique<ModalResponder>();
}

void TestClosingBackup::cleanup()
{
    m_responder.reset();
    m_opener.reset();
}

void TestClosingBackup::changeThroughTheProgram() const
{
    frame().session().sharedConnection().execute(
        u"Update tblBook Set BookNotes = 'Read twice' Where BookID = 1"_s);
}

void TestClosingBackup::closeCatalogue(const QList<ModalExpectation> &before) const
{
    for (const ModalExpectation &expected : before)
        m_responder->expect(expected);
    m_responder->expect(ModalResponder::message(
        u"Close Catalogue"_s, u"Catalogue "_s + frame().session().strCataloguePath + u" closed!"_s,
        QMessageBox::Information, {u"OK"_s}, u"OK"_s));
    FindAction(u"mnuClose"_s)->trigger();
}

void TestClosingBackup::closingAfterAnEditInAFormKeepsOneBackup()
{
    const QString id = AppendToShownTitle(u" (signed)"_s);
    QVERIFY(!id.isEmpty());
    const QStringList edited = rowsOf(path());

    closeCatalogue();
    QCOMPARE(m_responder->finish(), QString());

    QVERIFY(!frame().session().isOpen());
    const QStringList kept = listed();
    QCOMPARE(kept.size(), 1);
    QCOMPARE(rowsOf(kept.constFirst()), edited);
    QVERIFY(std::any_of(edited.cbegin(), edited.cend(), [&id](const QString &row) {
        return row.startsWith(u"tblBook|"_s + id + u'|') && row.contains(u" (signed)"_s);
    }));
}

void TestClosingBackup::closingWithoutAChangeKeepsNone()
{
    // Looking through the books writes nothing.
    const QWidget *form = OpenThroughMenu(u"mnuBooks"_s, u"frmBookMaintenance"_s);
    QVERIFY(form);
    ClickButton(form, u"cmdNext"_s);
    ClickButton(form, u"cmdNext"_s);

    closeCatalogue();
    QCOMPARE(m_responder->finish(), QString());

    QVERIFY(!frame().session().isOpen());
    QVERIFY(!QFileInfo::exists(backups()));
}

void TestClosingBackup::exitingAfterAChangeKeepsOneBackup()
{
    changeThroughTheProgram();
    const QStringList changed = rowsOf(path());

    QVERIFY(frame().close());
    QCOMPARE(m_responder->finish(), QString());

    const QStringList kept = listed();
    QCOMPARE(kept.size(), 1);
    QCOMPARE(rowsOf(kept.constFirst()), changed);
}

void TestClosingBackup::theEleventhBackupRemovesTheOldest()
{
    const QDateTime lastYear = QDateTime::currentDateTime().addYears(-1);
    QStringList earlier;
    for (int day = 0; day < 10; ++day)
        earlier << CatalogueBackups::make(path(), backups(), lastYear.addDays(day)).path;
    changeThroughTheProgram();

    closeCatalogue();
    QCOMPARE(m_responder->finish(), QString());

    const QStringList kept = listed();
    QCOMPARE(kept.size(), 10);
    QCOMPARE(kept.mid(0, 9), earlier.mid(1));
    QVERIFY(!QFileInfo::exists(earlier.constFirst()));
    QCOMPARE(rowsOf(kept.constLast()), rowsOf(path()));
}

void TestClosingBackup::aFolderThatCannotTakeItIsToldOnceAndTheCatalogueCloses()
{
    QVERIFY(QDir().mkpath(backups()));
    changeThroughTheProgram();
    {
        const ImmutableFolder locked(backups());
        if (!locked.isImmutable())
            QSKIP(qPrintable(u"the folder cannot be made unwritable: "_s + locked.problem()));
        ModalExpectation failed = backupFailedMessage(backups(), u"Operation not permitted"_s);
        failed.act = [](QWidget *box) { SaveScreenshot(box, u"backupFailed"_s); };
        closeCatalogue({failed});
        QCOMPARE(m_responder->finish(), QString());
    }

    QVERIFY(!frame().session().isOpen());
    QVERIFY(!frame().session().cnnCatalogue);
    QCOMPARE(frame().windowTitle(), u"Shelvane"_s);
    QCOMPARE(QDir(backups()).entryList(QDir::Files | QDir::Hidden), QStringList());
    // The catalogue is as it was, and free: no lock is left beside it.
    QCOMPARE(QDir(m_opener->catalogue().folder()).entryList(QDir::Files | QDir::Hidden),
             QStringList{u"QuireshelfCatalog01.mdb"_s});
}

void TestClosingBackup::aChangeBeforeACompactionThatFoundTheCatalogueInUseIsKeptAtExit()
{
    changeThroughTheProgram();
    const QStringList changed = rowsOf(path());
    {
        const HeldCatalogue otherCopy(path(), HeldCatalogue::Lock::Open);
        QVERIFY2(otherCopy.isHeld(), qPrintable(otherCopy.problem()));
        m_responder->expect(compactQuestion(u"Yes"_s));
        m_responder->expect(compactInUse());
        FindAction(u"mnuFileCompactDatabase"_s)->trigger();
        QCOMPARE(m_responder->finish(), QString());
    }
    QVERIFY(!frame().session().cnnCatalogue);
    QVERIFY(!QFileInfo::exists(backups()));

    QVERIFY(frame().close());
    QCOMPARE(m_responder->finish(), QString());

    const QStringList kept = listed();
    QCOMPARE(kept.size(), 1);
    QCOMPARE(rowsOf(kept.constFirst()), changed);
}

void TestClosingBackup::helpTellsWhereTheBackupsAreAndHowToRestoreOne()
{
    // The help file's number of the topic on opening and closing a catalogue.
    constexpr int OpeningTopic = 2;
    const QString lacking = HelpTopicLacks(
        OpeningTopic, u"Opening a catalogue"_s,
        {u"Backups"_s, u"QuireshelfCatalog01 2024-05-01 14-03-59.mdb"_s,
         u"No backup copy of the catalogue could be made in"_s, u"shelvane-catalog restore"_s,
         u"shelvane-catalog backup"_s, u"Two copies of Shelvane"_s},
        {760, 1200}, u"HelpWindow-open"_s);
    QVERIFY2(lacking.isEmpty(), qPrintable(lacking));
    FindForm(u"HelpWindow"_s)->close();
}

SHELVANE_TEST_MAIN(TestClosingBackup)
#include "tst_closingbackup.moc"
