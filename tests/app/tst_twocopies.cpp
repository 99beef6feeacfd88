// Two copies of the program on one catalogue: this test's frame, and a second copy in a
// process of its own that edits a book's title when told to. While the second copy has the
// catalogue open, compaction here is refused as the catalogue in use and nothing is
// replaced; once it has closed the catalogue, compaction goes through, and its edit is in
// the file whichever came first.

#include "../data/catalogueprobe.h"
#include "../tools/snapshot.h"
#include "childcopy.h"
#include "compactionmessages.h"

#include "app/mainframe.h"
#include "catalogue/cataloguebackups.h"
#include "catalogue/scopeddatabase.h"
#include "forms/books/bookforms.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/testmain.h"

#include <QAction>
#include <QFileInfo>
#include <QSqlQuery>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString Edit = u" (edited in the second copy)"_s;

} // namespace

class TestTwoCopies : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void anEditBeforeTheRefusedCompactionIsKept();
    void anEditAfterTheRefusedCompactionIsKept();

private:
    MainFrame &frame() const { return m_opener->frame(); }
    QString path() const { return m_opener->catalogue().path(); }
    // File › Compact Catalogue while the second copy has the catalogue open: refused, the
    // file untouched, and this copy's catalogue left closed as the message says.
    void compactionIsRefused();
    void compactionGoesThrough();
    QString titleOf(const QString &bookId) const;

    std::unique_ptr<CatalogueOpener> m_opener;
    std::unique_ptr<ModalResponder> m_responder;
};

void TestTwoCopies::init()
{
    m_opener = std::make_unique<CatalogueOpener>(RegisterBookForms);
    QVERIFY2(m_opener->problems().isEmpty(), qPrintable(m_opener->problems()));
    m_responder = std::make_unique<ModalResponder>();
}

void TestTwoCopies::cleanup()
{
    m_responder.reset();
    m_opener.reset();
}

void TestTwoCopies::compactionIsRefused()
{
    const QByteArray before = fileFingerprint(path());
    m_responder->expect(compactQuestion(u"Yes"_s));
    m_responder->expect(compactInUse());
    FindAction(u"mnuFileCompactDatabase"_s)->trigger();
    QCOMPARE(m_responder->finish(), QString());

    QCOMPARE(fileFingerprint(path()), before);
    QVERIFY(!QFileInfo::exists(CatalogueBackups::folderBeside(path())));
    QCOMPARE(frame().session().strCataloguePath, path());
    QVERIFY(!frame().session().cnnCatalogue);
}

void TestTwoCopies::compactionGoesThrough()
{
    const QStringList rows = rowsOf(path());
    m_responder->expect(compactQuestion(u"Yes"_s));
    m_responder->expect(compactSucceeded(path()));
    FindAction(u"mnuFileCompactDatabase"_s)->trigger();
    QCOMPARE(m_responder->finish(), QString());
    QVERIFY(frame().session().cnnCatalogue);
    QCOMPARE(rowsOf(path()), rows);
}

// Read through a connection of its own: the file under the name may be a new one.
QString TestTwoCopies::titleOf(const QString &bookId) const
{
    const ScopedDatabase catalogue(path(), ScopedDatabase::Mode::ReadOnly);
    QSqlQuery title(catalogue.db());
    if (!title.exec(u"SELECT BookDescription FROM tblBook WHERE BookID = "_s + bookId) || !title.next())
        return {};
    return title.value(0).toString();
}

void TestTwoCopies::anEditBeforeTheRefusedCompactionIsKept()
{
    ChildCopy second(path());
    QCOMPARE(second.said(), u"open"_s);
    const QString edited = second.tell(u"edit"_s + Edit);
    QVERIFY2(edited.startsWith(u"edited "_s), qPrintable(edited));
    const QString id = edited.mid(7);
    QVERIFY2(titleOf(id).endsWith(Edit), qPrintable(id + u": "_s + titleOf(id)));

    compactionIsRefused();
    QCOMPARE(second.tell(u"close"_s), u"closed"_s);
    compactionGoesThrough();

    QVERIFY2(titleOf(id).endsWith(Edit), qPrintable(titleOf(id)));
}

void TestTwoCopies::anEditAfterTheRefusedCompactionIsKept()
{
    ChildCopy second(path());
    QCOMPARE(second.said(), u"open"_s);

    compactionIsRefused();
    const QString edited = second.tell(u"edit"_s + Edit);
    QVERIFY2(edited.startsWith(u"edited "_s), qPrintable(edited));
    const QString id = edited.mid(7);
    QCOMPARE(second.tell(u"close"_s), u"closed"_s);
    compactionGoesThrough();

    QVERIFY2(titleOf(id).endsWith(Edit), qPrintable(titleOf(id)));
}

SHELVANE_TEST_MAIN(TestTwoCopies)
#include "tst_twocopies.moc"
