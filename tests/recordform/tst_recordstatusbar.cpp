// The status bar of the record forms: its panels, the toggle keys, the date and the time.

#include "recordform/recordstatusbar.h"

#include <QDate>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

using Panel = RecordStatusBar::Panel;

class TestRecordStatusBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void panelsInTheOrderGiven()
    {
        RecordStatusBar bar({Panel::Text, Panel::Text, Panel::CapsLock, Panel::NumLock, Panel::Insert,
                             Panel::Date, Panel::Time});
        bar.setPanelText(1, u"Ready"_s);
        bar.setPanelText(2, u"Author 3 of 41"_s);
        QCOMPARE(bar.panelText(1), u"Ready"_s);
        QCOMPARE(bar.panelText(2), u"Author 3 of 41"_s);
        QCOMPARE(bar.panelText(3), u"CAPS"_s);
        QCOMPARE(bar.panelText(4), u"NUM"_s);
        QCOMPARE(bar.panelText(5), u"INS"_s);
        QCOMPARE(bar.panelText(6), QLocale().toString(QDate::currentDate(), QLocale::ShortFormat));
        QVERIFY(!bar.panelText(7).isEmpty());
        QVERIFY(bar.panel(0) == nullptr);
        QVERIFY(bar.panel(8) == nullptr);
        QCOMPARE(bar.panelText(8), QString());
    }

    void toggleKeysFollowTheKeyboard()
    {
        QWidget window;
        auto *box = new QLineEdit(&window);
        auto *bar = new RecordStatusBar({Panel::Text, Panel::CapsLock, Panel::NumLock, Panel::Insert},
                                        &window);
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(box);
        layout->addWidget(bar);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        box->setFocus();
        for (int number : {2, 3, 4}) {
            const Qt::Key key = number == 2 ? Qt::Key_CapsLock
                : number == 3                ? Qt::Key_NumLock
                                             : Qt::Key_Insert;
            const bool before = bar->panel(number)->isEnabled();
            QTest::keyClick(box, key);
            QCOMPARE(bar->panel(number)->isEnabled(), !before);
            QTest::keyClick(box, key);
            QCOMPARE(bar->panel(number)->isEnabled(), before);
        }
    }

    void aKeyThatTravelsUpCountsOnce()
    {
        QWidget window;
        auto *inner = new QWidget(&window);
        auto *bar = new RecordStatusBar({Panel::CapsLock}, &window);
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(inner);
        layout->addWidget(bar);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        // A plain widget takes no key: the key is offered to the window as well.
        const bool before = bar->panel(1)->isEnabled();
        QTest::keyClick(inner, Qt::Key_CapsLock);
        QCOMPARE(bar->panel(1)->isEnabled(), !before);
        QTest::keyClick(inner, Qt::Key_CapsLock);
        QCOMPARE(bar->panel(1)->isEnabled(), before);
    }
};

QTEST_MAIN(TestRecordStatusBar)
#include "tst_recordstatusbar.moc"
