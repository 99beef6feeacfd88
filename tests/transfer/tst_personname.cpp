// Authors' names as CSV files write them: "Surname, First" and "First Surname".
#include "transfer/personname.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestPersonName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splits_data()
    {
        QTest::addColumn<QString>("written");
        QTest::addColumn<QString>("firstName");
        QTest::addColumn<QString>("surname");
        QTest::newRow("surname first") << u"Austen, Jane"_s << u"Jane"_s << u"Austen"_s;
        QTest::newRow("first names first") << u"Jane Austen"_s << u"Jane"_s << u"Austen"_s;
        QTest::newRow("several first names") << u"Robert Louis Stevenson"_s << u"Robert Louis"_s << u"Stevenson"_s;
        QTest::newRow("several first names after the comma") << u"Stevenson, Robert Louis"_s << u"Robert Louis"_s << u"Stevenson"_s;
        QTest::newRow("a particle goes with the surname") << u"Daphne du Maurier"_s << u"Daphne"_s << u"du Maurier"_s;
        QTest::newRow("two particles") << u"Ludwig van der Berg"_s << u"Ludwig"_s << u"van der Berg"_s;
        QTest::newRow("a surname alone") << u"Homer"_s << u""_s << u"Homer"_s;
        QTest::newRow("a surname of words, alone") << u"Le Carré,"_s << u""_s << u"Le Carré"_s;
        QTest::newRow("the last comma parts") << u"Smith, Jr., John"_s << u"John"_s << u"Smith, Jr."_s;
        QTest::newRow("spaces trimmed") << u"  Brontë ,  Charlotte "_s << u"Charlotte"_s << u"Brontë"_s;
        QTest::newRow("apostrophe") << u"Declan O'Brien"_s << u"Declan"_s << u"O'Brien"_s;
        QTest::newRow("the first word stays a first name") << u"bell hooks"_s << u"bell"_s << u"hooks"_s;
    }

    void splits()
    {
        QFETCH(QString, written);
        QFETCH(QString, firstName);
        QFETCH(QString, surname);
        const PersonName name = PersonNames::split(written);
        QCOMPARE(name.firstName, firstName);
        QCOMPARE(name.surname, surname);
    }

    void writtenReadsBackTheSame_data()
    {
        QTest::addColumn<QString>("firstName");
        QTest::addColumn<QString>("surname");
        QTest::addColumn<QString>("written");
        QTest::newRow("both") << u"Jane"_s << u"Austen"_s << u"Austen, Jane"_s;
        QTest::newRow("surname alone") << u""_s << u"Homer"_s << u"Homer"_s;
        QTest::newRow("surname of words alone") << u""_s << u"Le Carré"_s << u"Le Carré,"_s;
        QTest::newRow("particle") << u"Daphne"_s << u"du Maurier"_s << u"du Maurier, Daphne"_s;
    }

    void writtenReadsBackTheSame()
    {
        QFETCH(QString, firstName);
        QFETCH(QString, surname);
        QFETCH(QString, written);
        QCOMPARE(PersonNames::written({firstName, surname}), written);
        const PersonName read = PersonNames::split(written);
        QCOMPARE(read.firstName, firstName);
        QCOMPARE(read.surname, surname);
    }
};

QTEST_GUILESS_MAIN(TestPersonName)
#include "tst_personname.moc"
