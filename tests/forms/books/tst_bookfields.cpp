// The book form's mandatory fields and their checks, and the keys each field takes.
#include "bookeditsteps.h"

#include "app/mainframe.h"
#include "forms/books/frmbookmaintenance.h"
#include "support/testmain.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestBookFields : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestEnvironment::clearSettings(); }
    void cleanup() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void clearingTheTitleAndTabbingAwayIsRefused()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QWidget *box = control(form, u"txtDescription"_s);
        const QString id = Shown(form, u"txtBookID"_s);
        focus(box);
        ClearWithKeys(box);
        fixture.responder().expect(Message(CheckTitle, u"Please enter a book title"_s));
        QTest::keyClick(box, Qt::Key_Tab);
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_COMPARE(focused(form), box);
        QCOMPARE(title(fixture, id), FirstTitle);
    }

    void clickingAwayFromAnEmptyFieldIsRefused_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("message");
        QTest::newRow("title") << u"txtDescription"_s << u"Please enter a book title"_s;
        QTest::newRow("price") << u"txtPrice"_s << u"Please enter a book price"_s;
        QTest::newRow("pages") << u"txtPages"_s << u"Please enter number of pages"_s;
    }

    void clickingAwayFromAnEmptyFieldIsRefused()
    {
        QFETCH(QString, field);
        QFETCH(QString, message);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QWidget *box = control(form, field);
        focus(box);
        ClearWithKeys(box);
        fixture.responder().expect(Message(CheckTitle, message));
        Click(control(form, u"cmdNext"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_COMPARE(focused(form), box);
        // The click that tried to leave did nothing: the form is still on the first book.
        QCOMPARE(Panel(form, 2), u"Book 1 of 60"_s);
        QCOMPARE(Shown(form, u"txtBookID"_s),
                 fixture.catalogue().scalar(u"select BookID from tblBook where BookDescription = '"_s
                                            + FirstTitle + u"'"_s).toString());
    }

    void anAccessKeyAwayFromAnEmptyFieldIsRefused()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QWidget *pages = control(form, u"txtPages"_s);
        focus(pages);
        ClearWithKeys(pages);
        fixture.responder().expect(Message(CheckTitle, u"Please enter number of pages"_s));
        QTest::keyClick(pages, Qt::Key_C, Qt::AltModifier); // "&Condition"
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_COMPARE(focused(form), pages);
    }

    void publishedLeftEmptyBecomesZero()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QString id = Shown(form, u"txtBookID"_s);
        QWidget *published = control(form, u"txtWhenPublished"_s);
        focus(published);
        ClearWithKeys(published);
        QTest::keyClick(published, Qt::Key_Tab);
        QCOMPARE(fixture.responder().finish(), QString());
        QCOMPARE(Shown(form, u"txtWhenPublished"_s), u"0"_s);
        Click(control(form, u"cmdNext"_s));
        QCOMPARE(fixture.catalogue().scalar(u"select BookWhenPublished from tblBook where BookID = "_s + id).toInt(), 0);
    }

    void keysTypedIntoTheFields_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("shown");
        // Typed into each: "1:-,a.2"
        for (const QString &digits : {u"txtPages"_s, u"txtIllustrations"_s, u"txtMaps"_s, u"txtPlans"_s,
                                      u"txtWhenPublished"_s, u"txtWhenPurchased"_s, u"txtWhenSold"_s})
            QTest::newRow(qPrintable(digits)) << digits << u"1:2"_s;
        QTest::newRow("txtPrice") << u"txtPrice"_s << u"1:.2"_s;
        QTest::newRow("txtSell") << u"txtSell"_s << u"1:.2"_s;
        QTest::newRow("txtDescription") << u"txtDescription"_s << u"1:-,a.2"_s;
        QTest::newRow("txtIntroduction") << u"txtIntroduction"_s << u"1:-,a.2"_s;
    }

    void keysTypedIntoTheFields()
    {
        QFETCH(QString, field);
        QFETCH(QString, shown);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QWidget *box = control(form, field);
        focus(box);
        ClearWithKeys(box);
        TypeInto(box, u"1:-,a.2"_s);
        QCOMPARE(Shown(form, field), shown);
    }

    void confirmChecksTheFieldsInOrder_data()
    {
        QTest::addColumn<int>("filled");
        QTest::addColumn<QString>("message");
        const QStringList messages{u"Please enter a book title"_s, u"Please enter a book price"_s,
                                   u"Please enter number of pages"_s, u"Please enter cover details"_s,
                                   u"Please enter condition"_s, u"Please enter publisher details"_s};
        for (int filled = 0; filled < messages.size(); ++filled)
            QTest::newRow(qPrintable(MandatoryFields.at(filled) + u" empty"_s)) << filled << messages.at(filled);
    }

    void confirmChecksTheFieldsInOrder()
    {
        QFETCH(int, filled);
        QFETCH(QString, message);
        BookFormFixture fixture;
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        Click(control(form, u"cmdAdd"_s));
        fillMandatory(form, filled);
        // Confirm is pressed from a field that is filled in (or from the button itself).
        focus(control(form, u"cmdConfirmAdd"_s));
        fixture.responder().expect(Message(CheckTitle, message));
        Click(control(form, u"cmdConfirmAdd"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QTRY_COMPARE(focused(form), control(form, MandatoryFields.at(filled)));
        QVERIFY(control(form, u"cmdConfirmAdd"_s)->isVisible());
        QCOMPARE(fixture.rows(u"select * from tblBook"_s), 60);
    }
};

SHELVANE_TEST_MAIN(TestBookFields)
#include "tst_bookfields.moc"
