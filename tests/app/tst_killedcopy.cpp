// A copy of the program killed (SIGKILL) in the middle of an edit, a label run and a
// revaluation, at each step of the commit: the catalogue it leaves passes the check and
// holds either none of the change, when killed before the commit, or all of it.

#include "../data/catalogueprobe.h"
#include "childcopy.h"

#include "catalogue/cataloguecheck.h"
#include "catalogue/cataloguefile.h"
#include "catalogue/samplecollection.h"

#include <QDir>
#include <QHash>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct Operation
{
    QString command;
    QString done; // what the copy says when it has carried it out
};

const QHash<QString, Operation> operations{
    {u"edit"_s, {u"edit (signed by the author)"_s, u"edited"_s}},
    {u"label run"_s, {u"labels"_s, u"labelled"_s}},
    {u"revaluation"_s, {u"revalue 10"_s, u"revalued"_s}},
};

} // namespace

class TestKilledCopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void killedInTheMiddle_data();
    void killedInTheMiddle();

private:
    // A fresh copy of the demo catalogue, in a folder of its own.
    QString freshCatalogue() const;

    QTemporaryDir m_dir;
    QString m_template;
    QStringList m_before;
    // For each operation: the catalogue's rows once it is done, and how many pages of the
    // catalogue its commit writes.
    QHash<QString, QStringList> m_after;
    QHash<QString, int> m_catalogueWrites;
};

QString TestKilledCopy::freshCatalogue() const
{
    static int made = 0;
    const QString folder = m_dir.filePath(QString::number(++made));
    QDir().mkpath(folder);
    const QString path = QDir(folder).filePath(u"QuireshelfCatalog01.mdb"_s);
    return QFile::copy(m_template, path) ? path : QString();
}

void TestKilledCopy::initTestCase()
{
    m_template = m_dir.filePath(u"QuireshelfCatalog01.mdb"_s);
    CatalogueFile::create(m_template, false /* overwrite */, SampleCollection::fill);
    m_before = rowsOf(m_template);
    // Each operation carried out whole once, counting what its commit writes.
    static const QRegularExpression writes(u"catalogue-write=(\\d+)"_s);
    for (auto operation = operations.cbegin(); operation != operations.cend(); ++operation) {
        const QString path = freshCatalogue();
        ChildCopy copy(path, {u"--watch-writes"_s});
        QCOMPARE(copy.said(), u"open"_s);
        QCOMPARE(copy.tell(u"watch journal-write 0"_s), u"watching"_s);
        QVERIFY(copy.tell(operation->command).startsWith(operation->done));
        const QRegularExpressionMatch counted = writes.match(copy.tell(u"counts"_s));
        QVERIFY(counted.hasMatch());
        copy.kill();
        m_catalogueWrites.insert(operation.key(), counted.captured(1).toInt());
        m_after.insert(operation.key(), rowsOf(path));
        QVERIFY(m_after.value(operation.key()) != m_before);
    }
}

void TestKilledCopy::killedInTheMiddle_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("step");  // the step of the commit it is killed at; empty: after
    QTest::addColumn<int>("occurrence"); // 0: half of the times the operation takes the step
    QTest::addColumn<bool>("committed");
    for (const QString &operation : {u"edit"_s, u"label run"_s, u"revaluation"_s}) {
        QTest::addRow("%s: the journal not yet on the disk", qPrintable(operation))
            << operation << u"journal-sync"_s << 1 << false;
        QTest::addRow("%s: half the catalogue's pages written", qPrintable(operation))
            << operation << u"catalogue-write"_s << 0 << false;
        QTest::addRow("%s: all written, the journal not yet deleted", qPrintable(operation))
            << operation << u"journal-delete"_s << 1 << false;
        QTest::addRow("%s: committed", qPrintable(operation)) << operation << QString() << 0 << true;
    }
}

void TestKilledCopy::killedInTheMiddle()
{
    QFETCH(QString, operation);
    QFETCH(QString, step);
    QFETCH(int, occurrence);
    QFETCH(bool, committed);
    const QString path = freshCatalogue();
    {
        ChildCopy copy(path, {u"--watch-writes"_s});
        QCOMPARE(copy.said(), u"open"_s);
        if (step.isEmpty()) {
            QVERIFY(copy.tell(operations.value(operation).command).startsWith(operations.value(operation).done));
            copy.kill();
        } else {
            const int writes = m_catalogueWrites.value(operation);
            if (occurrence == 0)
                occurrence = writes / 2 + 1;
            QVERIFY2(occurrence <= writes, "the commit writes too few pages to stop half-way");
            QCOMPARE(copy.tell(u"watch %1 %2"_s.arg(step).arg(occurrence)), u"watching"_s);
            QCOMPARE(copy.tell(operations.value(operation).command), QString());
            QVERIFY(copy.diedOfASignal());
        }
    }

    QCOMPARE(CatalogueCheck::problemsIn(path), QStringList());
    QCOMPARE(rowsOf(path), committed ? m_after.value(operation) : m_before);
}

QTEST_GUILESS_MAIN(TestKilledCopy)
#include "tst_killedcopy.moc"
