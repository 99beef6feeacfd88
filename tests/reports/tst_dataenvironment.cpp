// deShelvane: its connections before and after PrepareDataEnvironment, its commands and
// their record sets, and closing it for re-organisation.
#include "data/recordset.h"
#include "data/shape.h"
#include "reportfixture.h"
#include "reports/dataenvironment.h"
#include "support/testcatalogue.h"

using namespace Qt::StringLiterals;

namespace {

const QString shaping = u"PROVIDER=MSDataShape;DATA PROVIDER=MICROSOFT.JET.OLEDB.4.0;"
                        "Mode=Share Deny None;Persist Security Info=False;"_s;
const QString plain =
    u"Provider=Microsoft.Jet.OLEDB.4.0;Mode=Share Deny None;Persist Security Info=False;"_s;

QString runTimeString(const QString &path)
{
    return u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + path + u";Persist Security Info=False"_s;
}

} // namespace

class TestDataEnvironment : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void connectionsCarryTheirDesignTimeStrings()
    {
        const DataEnvironment deShelvane;
        QCOMPARE(deShelvane.connectionNames(),
                 QStringList({u"Shelvane"_s, u"Report1Conn"_s, u"LabelConn"_s, u"LablesConn"_s}));
        QCOMPARE(deShelvane.connectionString(u"Shelvane"_s), shaping);
        QCOMPARE(deShelvane.connectionString(u"Report1Conn"_s), shaping);
        QCOMPARE(deShelvane.connectionString(u"LabelConn"_s), plain);
        QCOMPARE(deShelvane.connectionString(u"LablesConn"_s), plain);
    }

    void prepareDataEnvironmentPointsAllFourAtTheCatalogue()
    {
        const TestCatalogue catalogue;
        const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(catalogue.path());
        for (const QString &name : deShelvane->connectionNames())
            QCOMPARE(deShelvane->connectionString(name), runTimeString(catalogue.path()));
    }

    void commandsExposeRecordsetsNamedAfterThem()
    {
        const DataEnvironment deShelvane;
        const QStringList commands{u"BookDetails"_s, u"cmdReport1"_s, u"cmdReport2"_s,
                                   u"ByTopicDescription"_s, u"cmdLabels"_s, u"cmdOneLabel"_s};
        QCOMPARE(deShelvane.commandNames(), commands);
        for (const QString &command : commands)
            QCOMPARE(deShelvane.recordsetName(command), u"rs"_s + command);
        QCOMPARE(deShelvane.commandText(u"cmdReport1"_s), u"qryReport01"_s);
        QCOMPARE(deShelvane.commandText(u"cmdReport2"_s), u"qryReport02"_s);
        QCOMPARE(deShelvane.commandText(u"cmdLabels"_s), u"qryBookLabels"_s);
        QCOMPARE(deShelvane.commandText(u"cmdOneLabel"_s), u"qryBookLabel01"_s);
    }

    void topicCommandIsQuotedAsStored()
    {
        const DataEnvironment deShelvane;
        QVERIFY(deShelvane.isShaped(u"ByTopicDescription"_s));
        QVERIFY(deShelvane.isShaped(u"BookDetails"_s));
        QCOMPARE(deShelvane.commandText(u"ByTopicDescription"_s),
                 u"SHAPE ( SHAPE {SELECT * FROM `qryTopicDescForRep3`}  AS cmdReport3 APPEND "
                 "({SELECT * FROM `qryReport03`}  AS cmdReport3Sub RELATE 'BookID' TO 'BookID') "
                 "AS cmdReport3Sub) COMPUTE cmdReport3 BY 'TopicDescription'"_s);
        QVERIFY(deShelvane.commandText(u"BookDetails"_s)
                    .contains(u"{SELECT BookCondition, BookDescription, BookID, BookPrice, "
                              "BookWhenPublished, BookPublisherId FROM tblBook ORDER BY BookID}"_s));
    }

    void commandsRunOnTheCatalogue()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(catalogue.path());
        const int books = catalogue.scalar(u"SELECT count(*) FROM tblBook"_s).toInt();
        QCOMPARE(deShelvane->run(u"cmdReport1"_s)->recordCount(), books);
        QCOMPARE(deShelvane->run(u"cmdReport2"_s)->recordCount(),
                 catalogue.scalar(u"SELECT count(*) FROM qryReport02"_s).toInt());
        QCOMPARE(deShelvane->run(u"cmdOneLabel"_s)->recordCount(),
                 catalogue.scalar(u"SELECT count(*) FROM qryBookLabel01"_s).toInt());
        QCOMPARE(deShelvane->run(u"cmdLabels"_s)->recordCount(), 0);

        const std::unique_ptr<ShapedRecordset> topics = deShelvane->runShaped(u"ByTopicDescription"_s);
        QCOMPARE(topics->records().recordCount(),
                 catalogue.scalar(u"SELECT count(DISTINCT t.TopicDescription) FROM tblTopic t "
                                  "JOIN tblBookTopic bt ON bt.TopicID = t.TopicID"_s).toInt());
        QCOMPARE(topics->chapterNames(), QStringList({u"cmdReport3"_s}));

        const std::unique_ptr<ShapedRecordset> details = deShelvane->runShaped(u"BookDetails"_s);
        QCOMPARE(details->records().recordCount(), books);
        QCOMPARE(details->chapterNames(), QStringList({u"AuthorDetails"_s, u"TopicDetails"_s,
                                                       u"PublisherDetails"_s}));
    }

    void theSingleLabelSourceCanBeRepointed()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(catalogue.path());
        deShelvane->setCommandText(u"cmdOneLabel"_s,
                                   u"select * from `qryBookLabel01` where BookId = 17"_s);
        const std::unique_ptr<Recordset> label = deShelvane->run(u"cmdOneLabel"_s);
        QVERIFY(label->recordCount() >= 1);
        QCOMPARE(label->value(u"BookID"_s).toInt(), 17);
    }

    void commandsNeedTheCatalogueNamedFirst()
    {
        DataEnvironment deShelvane;
        QVERIFY_THROWS_EXCEPTION(ProviderError, deShelvane.run(u"cmdReport1"_s));
    }

    void closeClosesEveryConnection()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(catalogue.path());
        deShelvane->run(u"cmdReport1"_s);
        deShelvane->runShaped(u"ByTopicDescription"_s);
        deShelvane->run(u"cmdLabels"_s);
        deShelvane->run(u"cmdOneLabel"_s);
        QVERIFY(deShelvane->hasOpenConnection());
        deShelvane->close();
        QVERIFY(!deShelvane->hasOpenConnection());
        // The file can be replaced now, as re-organisation does; a later command opens again.
        QVERIFY(QFile::rename(catalogue.path(), catalogue.path() + u".moved"_s));
        QVERIFY(QFile::rename(catalogue.path() + u".moved"_s, catalogue.path()));
        QCOMPARE(deShelvane->run(u"cmdReport1"_s)->recordCount(),
                 catalogue.scalar(u"SELECT count(*) FROM tblBook"_s).toInt());
    }

    void unknownNamesAreRefused()
    {
        const DataEnvironment deShelvane;
        QVERIFY_THROWS_EXCEPTION(ProviderError, deShelvane.connectionString(u"Nowhere"_s));
        QVERIFY_THROWS_EXCEPTION(ProviderError, deShelvane.commandText(u"cmdReport9"_s));
    }
};

SHELVANE_PRINTING_TEST_MAIN(TestDataEnvironment)
#include "tst_dataenvironment.moc"
