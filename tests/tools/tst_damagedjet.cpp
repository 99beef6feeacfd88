// Damaged older catalogues given to the import: a few hundred copies of the test catalogue
// with bytes changed, a page zeroed or the file cut short. Each ends with a new catalogue
// that passes the check, or with a one-line refusal and no file: never a crash or a hang.
// The imports run in a child process, so that one that crashes or hangs names its file.

#include "jetdamage.h"
#include "jetfixtures.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Far longer than the imports take; a child still running then has hung.
constexpr int Patience = 120000;

struct Outcome
{
    bool imported = false;
    QString checkProblems; // what the import's check of the new catalogue found
    QString refusal;
};

} // namespace

class TestDamagedJet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void eachIsImportedSoundOrRefusedInOneLine();

private:
    // Runs the imports; answers what went wrong, empty when the child said something of
    // every file.
    QString runImports(QHash<QString, Outcome> &outcomes) const;

    QTemporaryDir m_dir;
    // The new catalogues: in memory where the system offers a folder there, as what is
    // tested here is what the import makes of a damaged file, not how fast a disk syncs.
    QTemporaryDir m_made{QFileInfo(u"/dev/shm"_s).isWritable() ? u"/dev/shm/shelvane-XXXXXX"_s
                                                               : QDir::tempPath() + u"/shelvane-XXXXXX"_s};
    QList<DamagedJet> m_damaged;
};

void TestDamagedJet::initTestCase()
{
    const QString folder = m_dir.filePath(u"damaged"_s);
    QVERIFY(QDir().mkpath(folder) && m_made.isValid());
    m_damaged = MakeDamagedJets(jetFixture(u"QuireshelfCatalog01.mdb"_s), folder);
    QVERIFY(m_damaged.size() > 200);
}

QString TestDamagedJet::runImports(QHash<QString, Outcome> &outcomes) const
{
    QStringList arguments{m_made.path()};
    for (const DamagedJet &file : m_damaged)
        arguments << file.path;
    QProcess child;
    child.start(QCoreApplication::applicationDirPath() + u"/jetimportchild"_s, arguments);
    const bool finished = child.waitForFinished(Patience);
    if (!finished)
        child.kill();
    const QStringList said = QString::fromUtf8(child.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    QString last;
    for (const QString &line : said) {
        if (line.startsWith(u"begin "_s)) {
            last = line.mid(6);
        } else if (line.startsWith(u"imported "_s)) {
            const QString name = line.mid(9).section(u": "_s, 0, 0);
            outcomes[name].imported = true;
            outcomes[name].checkProblems = line.mid(9 + name.size() + 2);
        } else if (line.startsWith(u"refused "_s)) {
            const QString name = line.mid(8).section(u": "_s, 0, 0);
            outcomes[name].refusal = line.mid(8 + name.size() + 2);
        } else if (line != u"done") {
            return u"a refusal of %1 runs over more than one line: %2"_s.arg(last, line);
        }
    }
    if (!finished || child.exitStatus() != QProcess::NormalExit || said.value(said.size() - 1) != u"done")
        return u"the import %1 at %2"_s.arg(finished ? u"crashed"_s : u"hung"_s, last);
    return {};
}

void TestDamagedJet::eachIsImportedSoundOrRefusedInOneLine()
{
    QHash<QString, Outcome> outcomes;
    const QString trouble = runImports(outcomes);
    QVERIFY2(trouble.isEmpty(), qPrintable(trouble));

    const QDir made(m_made.path());
    int imported = 0;
    for (const DamagedJet &file : m_damaged) {
        const QString name = QFileInfo(file.path).fileName();
        const QString what = name + u" ("_s + file.damage + u")"_s;
        QVERIFY2(outcomes.contains(name), qPrintable(u"nothing said of "_s + what));
        const Outcome outcome = outcomes.value(name);
        if (outcome.imported) {
            ++imported;
            QVERIFY2(outcome.checkProblems == u"sound"_s, qPrintable(what + u": "_s + outcome.checkProblems));
            QVERIFY2(QFileInfo::exists(made.filePath(name)), qPrintable(what + u": imported, yet missing"_s));
        } else {
            QVERIFY2(!outcome.refusal.isEmpty(), qPrintable(what + u": refused without a word"_s));
            QVERIFY2(!QFileInfo::exists(made.filePath(name)), qPrintable(what + u": refused, yet written"_s));
        }
    }
    // Nothing half-made is left beside the new catalogues.
    QCOMPARE(made.entryList(QDir::Files | QDir::Hidden).size(), imported);
    // The damage reaches the import both ways.
    QVERIFY(imported > 0);
    QVERIFY(imported < m_damaged.size());
    qInfo("%d of %d damaged files imported, the others refused", imported, int(m_damaged.size()));
}

QTEST_GUILESS_MAIN(TestDamagedJet)
#include "tst_damagedjet.moc"
