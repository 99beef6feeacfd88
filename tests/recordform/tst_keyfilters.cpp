// The key filters of numeric boxes, text criteria and lookups, key by key.

#include "recordform/keyfilters.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

class TestKeyFilters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void digitsOnly_data()
    {
        QTest::addColumn<int>("keyAscii");
        QTest::addColumn<int>("kept");
        QTest::newRow("backspace") << 8 << 8;
        QTest::newRow("carriage return") << 13 << 13;
        QTest::newRow("code 31") << 31 << 31;
        QTest::newRow("blank") << 32 << 0;
        QTest::newRow("full stop") << 46 << 0;
        QTest::newRow("slash") << 47 << 0;
        QTest::newRow("0") << 48 << 48;
        QTest::newRow("9") << 57 << 57;
        QTest::newRow("colon, kept on purpose") << 58 << 58;
        QTest::newRow("semicolon") << 59 << 0;
        QTest::newRow("minus") << 45 << 0;
        QTest::newRow("comma") << 44 << 0;
        QTest::newRow("A") << 65 << 0;
        QTest::newRow("z") << 122 << 0;
        QTest::newRow("pound sign") << 163 << 0;
    }

    void digitsOnly()
    {
        QFETCH(int, keyAscii);
        QFETCH(int, kept);
        QCOMPARE(KeyAsciiDigitsOnly(keyAscii), kept);
        // The price variant differs only in the full stop.
        QCOMPARE(KeyAsciiPrice(keyAscii), keyAscii == 46 ? 46 : kept);
    }

    void lettersAndStar_data()
    {
        QTest::addColumn<int>("keyAscii");
        QTest::addColumn<int>("kept");
        QTest::newRow("backspace") << 8 << 8;
        QTest::newRow("carriage return") << 13 << 0;
        QTest::newRow("blank") << 32 << 0;
        QTest::newRow("apostrophe") << 39 << 0;
        QTest::newRow("star") << 42 << 42;
        QTest::newRow("percent") << 37 << 0;
        QTest::newRow("0") << 48 << 0;
        QTest::newRow("@") << 64 << 0;
        QTest::newRow("A") << 65 << 65;
        QTest::newRow("Z") << 90 << 90;
        QTest::newRow("[") << 91 << 0;
        QTest::newRow("`") << 96 << 0;
        QTest::newRow("a") << 97 << 97;
        QTest::newRow("z") << 122 << 122;
        QTest::newRow("{") << 123 << 0;
        QTest::newRow("e acute") << 233 << 0;
    }

    void lettersAndStar()
    {
        QFETCH(int, keyAscii);
        QFETCH(int, kept);
        QCOMPARE(KeyAsciiLettersAndStar(keyAscii), kept);
    }

    void typingIntoABox_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        const int digits = int(KeyFilter::DigitsOnly);
        const int price = int(KeyFilter::Price);
        QTest::newRow("digits: a year") << digits << u"1843"_s << u"1843"_s;
        QTest::newRow("digits: colon") << digits << u"12:30"_s << u"12:30"_s;
        QTest::newRow("digits: minus, comma, letters, full stop") << digits << u"-1,2a.b3"_s << u"123"_s;
        QTest::newRow("price: pounds and pence") << price << u"12.50"_s << u"12.50"_s;
        QTest::newRow("price: colon") << price << u"1:2"_s << u"1:2"_s;
        QTest::newRow("price: pound sign, minus, comma, letters") << price << u"£-1,000x"_s << u"1000"_s;
        const int letters = int(KeyFilter::LettersAndStar);
        QTest::newRow("letters: a pattern") << letters << u"War*"_s << u"War*"_s;
        QTest::newRow("letters: blanks, digits, apostrophe") << letters << u"O'Brien 2nd"_s << u"OBriennd"_s;
    }

    void typingIntoABox()
    {
        QFETCH(int, kind);
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QLineEdit box;
        InstallKeyFilter(&box, KeyFilter(kind));
        QTest::keyClicks(&box, typed);
        QCOMPARE(box.text(), shown);
        // Keys that type nothing still edit.
        QTest::keyClick(&box, Qt::Key_Backspace);
        QTest::keyClick(&box, Qt::Key_Home);
        QTest::keyClick(&box, Qt::Key_Delete);
        QCOMPARE(box.text(), shown.chopped(1).mid(1));
    }

    void pickOnlyTakesNothingButTab()
    {
        QWidget window;
        auto *lookup = new QComboBox(&window);
        auto *next = new QLineEdit(&window);
        lookup->addItems({u"Alpha"_s, u"Beta"_s, u"Gamma"_s});
        InstallKeyFilter(lookup, KeyFilter::PickOnly);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        lookup->setFocus();
        QTest::keyClicks(lookup, u"G"_s);
        QTest::keyClick(lookup, Qt::Key_Down);
        QTest::keyClick(lookup, Qt::Key_End);
        QCOMPARE(lookup->currentText(), u"Alpha"_s);
        QTest::keyClick(lookup, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), next);
    }

    void tabLeavesALettersBox()
    {
        QWidget window;
        auto *criterion = new QLineEdit(&window);
        auto *next = new QLineEdit(&window);
        InstallKeyFilter(criterion, KeyFilter::LettersAndStar);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        criterion->setFocus();
        QTest::keyClick(criterion, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), next);
    }
};

QTEST_MAIN(TestKeyFilters)
#include "tst_keyfilters.moc"
