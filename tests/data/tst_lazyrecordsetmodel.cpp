#include "data/connectionstring.h"
#include "data/datacontrol.h"
#include "data/lazyrows.h"
#include "data/recordsetmodel.h"
#include "manytopics.h"
#include "support/testcatalogue.h"

#include <QAbstractItemModelTester>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int Topics = 700;

} // namespace

// The rows of a record set read as they are visited, as Qt's views and combos see them.
class TestLazyRecordsetModel : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestCatalogue> m_catalogue;

    std::unique_ptr<DataControl> control(const QString &source)
    {
        auto topics = std::make_unique<DataControl>();
        topics->setConnectionString(ConnectionString::forCatalogue(m_catalogue->path()));
        topics->setRecordSource(source);
        topics->Refresh();
        return topics;
    }

private Q_SLOTS:
    void init()
    {
        m_catalogue = std::make_unique<TestCatalogue>(TestCatalogue::Content::Sample);
        AddManyTopics(m_catalogue->db(), Topics);
    }
    void cleanup() { m_catalogue.reset(); }

    void passesTheModelTesterAcrossPages()
    {
        auto topics = control(u"select * from tblTopic order by TopicDescription"_s);
        RecordsetModel model(topics.get());
        QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
        Recordset *rs = topics->recordset();
        QCOMPARE(model.rowCount(), m_catalogue->scalar(u"select count(*) from tblTopic"_s).toInt());
        QCOMPARE(model.index(300, 1).data().toString(), rs->valueAt(300, 1).toString());
        rs->moveTo(250);
        rs->setValue(u"TopicNotes"_s, u"Edited"_s);
        rs->moveLast();
        QCOMPARE(model.index(250, 2).data().toString(), u"Edited"_s);
        rs->addNew();
        rs->setValue(u"TopicDescription"_s, u"Added"_s);
        rs->update();
        rs->moveTo(100);
        rs->deleteCurrent();
        rs->moveNext();
        QCOMPARE(model.rowCount(), rs->recordCount());
        rs->requery();
        QCOMPARE(model.rowCount(), rs->recordCount());
        for (int row = 0; row < model.rowCount(); ++row)
            QCOMPARE(model.index(row, 1).data(), QVariant(rs->valueAt(row, 1).toString()));
    }

    // A combo's findText gives what Qt's own search of every row gives.
    void findsTextAsAScanDoes_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("flags");
        const int exact = int(Qt::MatchExactly | Qt::MatchCaseSensitive);
        const int anyCase = int(Qt::MatchFixedString);
        const int fixedCase = int(Qt::MatchFixedString | Qt::MatchCaseSensitive);
        QTest::newRow("exact, late row") << u"Topic 299"_s << 1 << exact;
        QTest::newRow("exact, first row") << u"Topic 000"_s << 1 << exact;
        QTest::newRow("exact, wrong case") << u"topic 150"_s << 1 << exact;
        QTest::newRow("any case") << u"topic 150"_s << 1 << anyCase;
        QTest::newRow("any case, two spellings") << u"late subject"_s << 1 << anyCase;
        QTest::newRow("fixed string, case") << u"LATE SUBJECT"_s << 1 << fixedCase;
        QTest::newRow("accented, any case") << u"écoles"_s << 1 << anyCase;
        QTest::newRow("accented, exact") << u"Écoles"_s << 1 << exact;
        QTest::newRow("absent") << u"No such subject"_s << 1 << anyCase;
        QTest::newRow("empty text") << QString() << 2 << exact;
        QTest::newRow("notes") << u"Notes 334"_s << 2 << exact;
        QTest::newRow("key") << u"250"_s << 0 << anyCase;
    }

    void findsTextAsAScanDoes()
    {
        QFETCH(QString, text);
        QFETCH(int, column);
        QFETCH(int, flags);
        auto topics = control(u"select * from tblTopic order by TopicDescription"_s);
        RecordsetModel model(topics.get());
        const QModelIndex start = model.index(0, column);
        const auto how = Qt::MatchFlags::fromInt(flags);
        const QModelIndexList lazy = model.match(start, Qt::DisplayRole, text, 1, how);
        const QModelIndexList scan =
            model.QAbstractTableModel::match(start, Qt::DisplayRole, text, 1, how);
        QCOMPARE(lazy, scan);
    }

    // A row another connection changed before its page was read is found by its new text, as
    // a search that read it now would find it; finding it reads little more than its page.
    void findsARowChangedElsewhereWithoutReadingEveryRow()
    {
        auto topics = control(u"select * from tblTopic order by TopicDescription"_s);
        RecordsetModel model(topics.get());
        Recordset *rs = topics->recordset();
        const QString key = rs->valueAt(450, 0).toString();
        QSqlQuery other(m_catalogue->db());
        QVERIFY(other.exec(u"update tblTopic set TopicNotes = 'Renamed elsewhere' where TopicID = "_s
                           + key));
        QCOMPARE(rs->rowsRead(), 0);
        const QModelIndexList found = model.match(model.index(0, 2), Qt::DisplayRole,
                                                  u"Renamed elsewhere"_s, 1,
                                                  Qt::MatchExactly | Qt::MatchCaseSensitive);
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.first().row(), 450);
        QVERIFY(rs->rowsRead() <= 2 * LazyRows::PageRows);
    }
};

QTEST_GUILESS_MAIN(TestLazyRecordsetModel)
#include "tst_lazyrecordsetmodel.moc"
