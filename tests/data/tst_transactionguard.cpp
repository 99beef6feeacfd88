#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/recordset.h"
#include "data/transactionguard.h"
#include "support/testcatalogue.h"

#include <QTest>

using namespace Qt::StringLiterals;

// A batch of statements is kept whole or not at all.
class TestTransactionGuard : public QObject
{
    Q_OBJECT

private:
    static int hits(const TestCatalogue &catalogue)
    {
        return catalogue.scalar(u"select count(*) from tblCriteriaHits"_s).toInt();
    }

    static void refill(Connection &connection, const QString &insert)
    {
        TransactionGuard transaction(connection);
        connection.execute(u"Delete from tblcriteriahits"_s);
        connection.execute(insert);
        transaction.commit();
    }

private Q_SLOTS:
    void committedBatchStays()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        refill(connection, u"Insert into tblcriteriahits (BookID) select BookID from tblBook"_s);
        QCOMPARE(hits(catalogue), catalogue.scalar(u"select count(*) from tblBook"_s).toInt());
    }

    void failingStatementUndoesTheBatch()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        refill(connection,
               u"Insert into tblcriteriahits (BookID) select BookID from tblBook where BookID < 4"_s);
        QCOMPARE(hits(catalogue), 3);
        QVERIFY_THROWS_EXCEPTION(
            ProviderError,
            refill(connection, u"Insert into tblcriteriahits (BookID) select BookID from tblBook "
                               "where BookPrice between  and 20"_s));
        QCOMPARE(hits(catalogue), 3);
        // The connection is usable again afterwards.
        refill(connection, u"Insert into tblcriteriahits (BookID) select 1"_s);
        QCOMPARE(hits(catalogue), 1);
    }
};

QTEST_GUILESS_MAIN(TestTransactionGuard)
#include "tst_transactionguard.moc"
