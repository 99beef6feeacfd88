#include "recordform/recordnavigation.h"

#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

// The move buttons of a record form, enabled from the record's place in its list.
class TestRecordNavigation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enablesFromThePosition_data();
    void enablesFromThePosition();
    void noCurrentRecordCountsAsZero();
};

void TestRecordNavigation::enablesFromThePosition_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("enabled"); // First, Previous, Next, Last

    QTest::newRow("empty list") << 0 << 0 << u"0000"_s;
    QTest::newRow("only record") << 1 << 1 << u"0000"_s;
    QTest::newRow("first of three") << 1 << 3 << u"0011"_s;
    QTest::newRow("second of three") << 2 << 3 << u"1111"_s;
    QTest::newRow("last of three") << 3 << 3 << u"1100"_s;
    QTest::newRow("before the first") << -2 << 3 << u"0011"_s;
    QTest::newRow("after the last") << -3 << 3 << u"0011"_s;
    // Only the last place itself counts as the end: a new row past it leaves Next on.
    QTest::newRow("new row past the last") << 4 << 3 << u"1111"_s;
}

void TestRecordNavigation::enablesFromThePosition()
{
    QFETCH(int, position);
    QFETCH(int, count);
    QFETCH(QString, enabled);
    QPushButton first, previous, next, last;
    for (QPushButton *button : {&first, &previous, &next, &last})
        button->setEnabled(enabled == u"0000"); // the opposite of what is expected, mostly
    EnableNavigation({&first, &previous, &next, &last}, position, count);
    QString shown;
    for (const QPushButton *button : {&first, &previous, &next, &last})
        shown += button->isEnabled() ? u'1' : u'0';
    QCOMPARE(shown, enabled);
}

void TestRecordNavigation::noCurrentRecordCountsAsZero()
{
    QCOMPARE(RecordPosition(-1), 0);
    QCOMPARE(RecordPosition(-3), 0);
    QCOMPARE(RecordPosition(0), 0);
    QCOMPARE(RecordPosition(7), 7);
}

QTEST_MAIN(TestRecordNavigation)
#include "tst_recordnavigation.moc"
