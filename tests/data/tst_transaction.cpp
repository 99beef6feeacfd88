#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/recordset.h"
#include "data/transaction.h"
#include "support/testcatalogue.h"

#include <QTest>

using namespace Qt::StringLiterals;

// A transaction keeps its statements when committed and undoes them when left otherwise.
class TestTransaction : public QObject
{
    Q_OBJECT

private:
    static QVariant price(const TestCatalogue &catalogue)
    {
        return catalogue.scalar(u"select BookPrice from tblBook"_s);
    }

private Q_SLOTS:
    void committedChangeStays()
    {
        TestCatalogue catalogue;
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        {
            Transaction transaction(connection);
            connection.execute(u"update tblBook set BookPrice = 12.5"_s);
            transaction.commit();
        }
        QCOMPARE(price(catalogue), QVariant(12.5));
    }

    void changeLeftWithoutCommitIsUndone()
    {
        TestCatalogue catalogue;
        const QVariant before = price(catalogue);
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        {
            Transaction transaction(connection);
            connection.execute(u"update tblBook set BookPrice = 12.5"_s);
        }
        QCOMPARE(price(catalogue), before);
    }

    void failingStatementUndoesTheEarlierOnes()
    {
        TestCatalogue catalogue;
        const QVariant before = price(catalogue);
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        try {
            Transaction transaction(connection);
            connection.execute(u"update tblBook set BookPrice = 12.5"_s);
            connection.execute(u"update tblBook set BookPrice = 1,05"_s);
            transaction.commit();
            QFAIL("the second statement must fail");
        } catch (const ProviderError &error) {
            QCOMPARE(error.description, u"near \"05\": syntax error"_s);
        }
        QCOMPARE(price(catalogue), before);
        // The connection is usable again afterwards.
        Transaction next(connection);
        next.commit();
    }

    void closedConnectionCannotBegin()
    {
        Connection connection;
        QVERIFY_THROWS_EXCEPTION(ProviderError, Transaction{connection});
    }
};

QTEST_GUILESS_MAIN(TestTransaction)
#include "tst_transaction.moc"
