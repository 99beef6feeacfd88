#include "data/findcriterion.h"
#include "data/providererror.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

// The criteria a record set's Find reads, and its robustness on text it cannot read.
class TestFindCriterion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void matches_data()
    {
        QTest::addColumn<QString>("criterion");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("expected");
        QTest::newRow("key equal") << u"BookID = 17"_s << QVariant(17LL) << true;
        QTest::newRow("key differs") << u"BookID = 17"_s << QVariant(18LL) << false;
        QTest::newRow("no spaces") << u"AuthorID=4"_s << QVariant(4LL) << true;
        QTest::newRow("text ignores case") << u"AuthorSurname = 'o''brien'"_s << QVariant(u"O'Brien"_s) << true;
        QTest::newRow("bracketed name") << u"[TopicDescription] = 'Maps'"_s << QVariant(u"maps"_s) << true;
        QTest::newRow("not equal") << u"BookPrice <> 0"_s << QVariant(2.5) << true;
        QTest::newRow("greater or equal") << u"BookWhenPublished >= 1900"_s << QVariant(1899LL) << false;
        QTest::newRow("like with star") << u"BookDescription like 'the*'"_s << QVariant(u"The Hobbit"_s) << true;
        QTest::newRow("like with question mark") << u"PublisherName LIKE 'Ma?millan'"_s << QVariant(u"Macmillan"_s) << true;
        QTest::newRow("null never matches") << u"BookNotes = ''"_s << QVariant() << false;
        QTest::newRow("real against whole") << u"BookPrice = 12.5"_s << QVariant(12.5) << true;
    }
    void matches()
    {
        QFETCH(QString, criterion);
        QFETCH(QVariant, value);
        QFETCH(bool, expected);
        QCOMPARE(FindCriterion::parse(criterion).matches(value), expected);
    }

    void fieldIsNamed()
    {
        QCOMPARE(FindCriterion::parse(u"  PublisherID = 3 "_s).field, u"PublisherID"_s);
    }

    void refused_data()
    {
        QTest::addColumn<QString>("criterion");
        QTest::newRow("empty") << QString();
        QTest::newRow("no operator") << u"BookID 3"_s;
        QTest::newRow("no value") << u"BookID ="_s;
        QTest::newRow("unclosed text") << u"AuthorSurname = 'Smith"_s;
        QTest::newRow("bare word value") << u"AuthorSurname = Smith"_s;
        QTest::newRow("bad date") << u"Bought = #99/99/2000#"_s;
    }
    void refused()
    {
        QFETCH(QString, criterion);
        QVERIFY_THROWS_EXCEPTION(ProviderError, FindCriterion::parse(criterion));
    }

    // Arbitrary text either parses or is refused with a ProviderError: never anything else.
    void survivesArbitraryText()
    {
        static const QStringList pieces = {u"BookID"_s, u"="_s, u"<>"_s, u"like"_s, u"'"_s, u"''"_s,
                                           u"#"_s, u"["_s, u"]"_s, u" "_s, u"12"_s, u"-3.5"_s,
                                           u"*"_s, u"?"_s, u"\\"_s, u"("_s, u"é"_s, u"\n"_s};
        QRandomGenerator random(20261123);
        int parsed = 0;
        for (int i = 0; i < 100000; ++i) {
            QString text;
            const int length = int(random.bounded(12));
            for (int p = 0; p < length; ++p)
                text += pieces.at(random.bounded(int(pieces.size())));
            if (random.bounded(4) == 0)
                text += QChar(char16_t(random.bounded(0x20, 0x3000)));
            try {
                const FindCriterion criterion = FindCriterion::parse(text);
                criterion.matches(QVariant(text));
                ++parsed;
            } catch (const ProviderError &) {
            }
        }
        QVERIFY(parsed > 0);
    }
};

QTEST_GUILESS_MAIN(TestFindCriterion)
#include "tst_findcriterion.moc"
