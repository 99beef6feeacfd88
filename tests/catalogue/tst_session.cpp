// The shared connection as the forms reach it, also in the state a compaction leaves when
// another program held the catalogue: the path kept, no connection. The currency symbol and
// price format of every locale.

#include "catalogue/session.h"
#include "data/connection.h"
#include "data/recordset.h"
#include "data/runtimeerror.h"
#include "reports/numberformat.h"
#include "support/moneylocales.h"
#include "support/testcatalogue.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theSharedConnectionReachesTheCatalogue()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        Session session;
        session.strCataloguePath = catalogue.path();
        session.cnnCatalogue = std::make_unique<Connection>();
        session.cnnCatalogue->open(session.connectionString());
        const auto books = session.sharedConnection().execute(u"select count(*) from tblBook"_s);
        QCOMPARE(books->value(0).toInt(), catalogue.scalar(u"select count(*) from tblBook"_s).toInt());
    }

    void withThePathKeptButNoConnectionAStatementIsRunTimeError91()
    {
        Session session;
        session.strCataloguePath = u"/somewhere/QuireshelfCatalog01.mdb"_s;
        QVERIFY(session.isOpen());
        try {
            session.sharedConnection();
            QFAIL("no run-time error");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number, 91);
            QCOMPARE(error.description, u"Object variable or With block variable not set"_s);
        }
    }

    void priceFormatPlacesTheLocalesSymbol_data() { AddMoneyLocaleRows(); }

    void priceFormatPlacesTheLocalesSymbol()
    {
        QFETCH(int, locale);
        const MoneyLocale &money = MoneyLocales().at(locale);
        Session session;
        SetPriceFormat(session, money.locale);
        QCOMPARE(session.strCurrencySymbol, money.symbol);
        QCOMPARE(session.strPriceFormat, money.priceFormat);
    }
};

QTEST_GUILESS_MAIN(TestSession)
#include "tst_session.moc"
