// The book form as it is loaded and shown: its data controls, its fields and their formats,
// labels, frames and lists, the status bar, the publisher list, help and the single label.
#include "bookformfixture.h"

#include "app/mainframe.h"
#include "data/datacontrol.h"
#include "forms/books/frmbookmaintenance.h"
#include "recordform/recordstatusbar.h"
#include "support/finders.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMdiArea>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableView>
#include <QTest>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

class TestBookForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestEnvironment::clearSettings(); }

    void loadedHiddenWhenTheCatalogueOpens()
    {
        BookFormFixture fixture;
        QVERIFY2(fixture.problems().isEmpty(), qPrintable(fixture.problems()));
        FrmBookMaintenance *form = fixture.form();
        QVERIFY(form);
        QVERIFY(!form->isVisible());
        // Loading the form takes the Books entry away, hidden or not.
        QVERIFY(!fixture.frame().action(u"mnuBooks"_s)->isEnabled());

        QCOMPARE(fixture.showBooks(), form);
        QVERIFY(form->isVisible());
        QCOMPARE(form->windowTitle(), u"Maintain Books"_s);
        QCOMPARE(Shown(form, u"txtDescription"_s), FirstTitle);
        QCOMPARE(Panel(form, 1), u"Ready"_s);
        QCOMPARE(Panel(form, 2), u"Book 1 of 60"_s);
        SaveScreenshot(form->parentWidget(), u"bookform-browsing"_s);
        // At its default size the form fits the frame at the frame's default size.
        const QRect area = fixture.frame().mdiArea()->viewport()->rect();
        QVERIFY(area.contains(form->parentWidget()->geometry()));
        SaveScreenshot(&fixture.frame(), u"bookform-in-frame"_s);
    }

    void booksMenuOpensTheFormAgainAfterExit()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QVERIFY(form);
        Click(FindControl(form, u"cmdExit"_s));
        QTRY_VERIFY(!fixture.form());
        QAction *books = fixture.frame().action(u"mnuBooks"_s);
        QVERIFY(books->isEnabled());
        books->trigger();
        QTRY_VERIFY(fixture.form() && fixture.form()->isVisible());
        QVERIFY(!books->isEnabled());
        QCOMPARE(Panel(fixture.form(), 2), u"Book 1 of 60"_s);
    }

    void dataControlsAreBoundToTheCatalogueInOrder()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QStringList names;
        for (const DataControl *control : form->findChildren<DataControl *>(Qt::FindDirectChildrenOnly)) {
            names << control->objectName();
            QCOMPARE(control->connectionString(),
                     u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + fixture.catalogue().path()
                         + u";Persist Security Info=False"_s);
            QVERIFY2(control->recordset(), qPrintable(control->objectName()));
        }
        QCOMPARE(names, QStringList({u"adoAuthorLkup"_s, u"adoAuthor"_s, u"adoTopic"_s,
                                     u"adoBook"_s, u"adoBookLkup"_s, u"adoPublisher"_s}));
        QCOMPARE(form->findChild<DataControl *>(u"adoBook"_s)->recordSource(),
                 u"select * from tblBook order by bookdescription"_s);
    }

    void fieldsShowTheBookInTheirFormats()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QLocale locale;
        auto value = [&](const QString &column) { return bookValue(fixture, column, FirstTitle); };
        QCOMPARE(Shown(form, u"txtBookID"_s), value(u"BookID"_s).toString());
        QCOMPARE(Shown(form, u"cboCondition"_s), value(u"BookCondition"_s).toString());
        QCOMPARE(Shown(form, u"cboCover"_s), value(u"BookCover"_s).toString());
        QCOMPARE(Shown(form, u"cboPublisher"_s),
                 fixture.catalogue().scalar(u"select PublisherName from tblPublisher where PublisherID = "_s
                                            + value(u"BookPublisherId"_s).toString()).toString());
        QCOMPARE(Shown(form, u"txtPrice"_s), u"£"_s + locale.toString(value(u"BookPrice"_s).toDouble(), 'f', 2));
        QCOMPARE(Shown(form, u"txtPrice"_s), u"£8,400.00"_s);
        QCOMPARE(Shown(form, u"txtSell"_s), u"£0.00"_s);
        QCOMPARE(Shown(form, u"txtPages"_s), value(u"BookPagesText"_s).toString());
        QCOMPARE(Shown(form, u"txtWhenPublished"_s), value(u"BookWhenPublished"_s).toString());
        QCOMPARE(Shown(form, u"txtMaps"_s), QString());
        QCOMPARE(Shown(form, u"Text3"_s), value(u"BookNotes"_s).toString());
        QCOMPARE(FindControl<QCheckBox>(form, u"chkIllustrated"_s)->isChecked(),
                 value(u"BookIllustrated"_s).toInt() != 0);
        QCOMPARE(FindControl<QCheckBox>(form, u"chkFirstEdition"_s)->isChecked(),
                 value(u"Book1stEd"_s).toInt() != 0);
        QCOMPARE(FindControl<QCheckBox>(form, u"chkBibliography"_s)->isChecked(),
                 value(u"BookBibliography"_s).toInt() != 0);
        QVERIFY(FindControl<QLineEdit>(form, u"txtBookID"_s)->isReadOnly());
    }

    void fieldLabelsAndTips_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("tip");
        const QList<std::array<QString, 3>> rows{
            {u"txtBookID"_s, u"Book ID"_s, u"Value is automatically assigned"_s},
            {u"txtDescription"_s, u"Book &Title"_s, u"Enter the Book Title in here - Mandatory field"_s},
            {u"cboCondition"_s, u"&Condition"_s, u"Select Book condition from list - Mandatory field"_s},
            {u"cboCover"_s, u"Co&ver"_s, u"Select Book cover type from list - Mandatory field"_s},
            {u"cboPublisher"_s, u"&Publisher"_s, u"Select Publisher from list, if unknown select 'UnKnown' - Mandatory field"_s},
            {u"txtPages"_s, u"&Main Text"_s, u"Enter Number of pages in main text in numeric format - Mandatory Field"_s},
            {u"txtIntroduction"_s, u"&Introduction"_s, u"Enter number of pages in introduction, can numbers or Roman numerals - Optional field"_s},
            {u"txtPrice"_s, u"Buy: "_s, u"Enter purchase price as pounds & pence - if not known enter 0 - Mandatory field"_s},
            {u"txtSell"_s, u"Sell: "_s, u"Enter selling price as pounds & pence - if not known enter 0 - Optional field"_s},
            {u"txtWhenPublished"_s, u"Published"_s, u"Enter Year of Publication in YYYY format - Optional field"_s},
            {u"txtWhenPurchased"_s, u"Purchased"_s, u"Enter year purchased in YYYY format - Optional field"_s},
            {u"txtWhenSold"_s, u"Sold"_s, u"Enter year sold in YYYY format - Optional field"_s},
            {u"chkIllustrated"_s, u"Illustrated"_s, u"Check box if book is illustrated - Optional field"_s},
            {u"txtIllustrations"_s, u"Illustrations:"_s, u"Enter number of illustrations - optional field"_s},
            {u"txtPlans"_s, u"Plans:"_s, u"Enter number of plans - optional field"_s},
            {u"txtMaps"_s, u"Maps:"_s, u"Enter number of maps - optional field"_s},
            {u"chkFirstEdition"_s, u"&First Edition"_s, u"Check box if book is a first edition - Optional field"_s},
            {u"chkBibliography"_s, u"&Bibliography"_s, u"Check box if book includes a bibliography - Optional field"_s},
            {u"Text3"_s, u"&Notes"_s, u"Free format notes - Optional field"_s},
            {u"dboBookLkup"_s, u"Book List"_s, QString()},
        };
        for (const auto &[control, label, tip] : rows)
            QTest::newRow(qPrintable(control)) << control << label << tip;
    }

    void fieldLabelsAndTips()
    {
        QFETCH(QString, control);
        QFETCH(QString, label);
        QFETCH(QString, tip);
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        QWidget *widget = FindControl(form, control);
        QVERIFY(widget);
        QCOMPARE(widget->toolTip(), tip);
        if (auto *check = qobject_cast<QCheckBox *>(widget)) {
            QCOMPARE(check->text(), label);
            return;
        }
        QStringList labels;
        for (const QLabel *candidate : form->findChildren<QLabel *>()) {
            if (candidate->buddy() == widget)
                labels << candidate->text();
        }
        QCOMPARE(labels, QStringList{label});
    }

    void framesListsAndButtons()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        auto items = [&](const QString &name) {
            QStringList list;
            auto *combo = FindControl<QComboBox>(form, name);
            for (int i = 0; i < combo->count(); ++i)
                list << combo->itemText(i);
            return list;
        };
        QCOMPARE(items(u"cboCondition"_s), QStringList({u"Mint"_s, u"Excl"_s, u"Good"_s, u"Fair"_s, u"Poor"_s}));
        QCOMPARE(items(u"cboCover"_s),
                 QStringList({u"Full Calf"_s, u"Half Calf"_s, u"Leather Spine with Boards"_s, u"Boxed"_s,
                              u"Hard Back & DW"_s, u"Hard Back no DW"_s, u"Soft Back"_s, u"Paper Back"_s}));
        QCOMPARE(items(u"cboPublisher"_s).size(), fixture.rows(u"select * from tblPublisher"_s));
        QCOMPARE(items(u"cboPublisher"_s).first(), u"Ashdown & Pryce"_s);
        QStringList titles;
        for (const QGroupBox *frame : form->findChildren<QGroupBox *>())
            titles << frame->title();
        for (const QString &title : {u"Number of Pages"_s, u"Price"_s, u"Date:"_s, u"Number of:"_s,
                                     u"Associate Book with Author(s)"_s, u"Associate Book with Topic(s)"_s})
            QVERIFY2(titles.contains(title), qPrintable(title));

        const QList<std::array<QString, 3>> buttons{
            {u"cmdFirst"_s, u"First"_s, u"Click to move to first book in list"_s},
            {u"cmdPrevious"_s, u"Previous"_s, u"Click to move to previous book in list"_s},
            {u"cmdNext"_s, u"Next"_s, u"Click to move to next book in list"_s},
            {u"cmdLast"_s, u"Last"_s, u"Click to move to last book in list"_s},
            {u"cmdAdd"_s, u"Add "_s, u"Click to add new book"_s},
            {u"cmdDelete"_s, u"Delete "_s, u"Click to delete this book"_s},
            {u"cmdConfirmAdd"_s, u"Confir&m Add"_s, u"Click to confirm the new book details"_s},
            {u"cmdCancelAdd"_s, u"Canc&el Add"_s, u"Click to cancel the addition of the new book"_s},
            {u"cmdPrintLabel"_s, u"Print Label"_s, u"Click to print a label for this book"_s},
            {u"cmdExit"_s, u"E&xit"_s, QString()},
            {u"cmdHelp"_s, u"Help"_s, QString()},
        };
        for (const auto &[name, caption, tip] : buttons) {
            auto *button = FindControl<QPushButton>(form, name);
            QVERIFY2(button, qPrintable(name));
            QCOMPARE(button->text(), caption);
            QCOMPARE(button->toolTip(), tip);
        }
        QCOMPARE(FindControl<QLabel>(form, u"lblHeading"_s)->text(), u"Book Maintenance"_s);
        QVERIFY(!FindControl(form, u"cmdConfirmAdd"_s)->isVisible());
        QVERIFY(!FindControl(form, u"cmdCancelAdd"_s)->isVisible());
    }

    void statusBarShowsTheKeysTheDateAndTheTime()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        auto *bar = FindControl<RecordStatusBar>(form, u"stbContents"_s);
        QCOMPARE(bar->panelText(3), u"CAPS"_s);
        QCOMPARE(bar->panelText(4), u"NUM"_s);
        const bool capsBefore = bar->panel(3)->isEnabled();
        QTest::keyClick(FindControl(form, u"txtDescription"_s), Qt::Key_CapsLock);
        QCOMPARE(bar->panel(3)->isEnabled(), !capsBefore);
        QTest::keyClick(FindControl(form, u"txtDescription"_s), Qt::Key_CapsLock);
        QCOMPARE(bar->panel(3)->isEnabled(), capsBefore);
        const bool numBefore = bar->panel(4)->isEnabled();
        QTest::keyClick(FindControl(form, u"txtPages"_s), Qt::Key_NumLock);
        QCOMPARE(bar->panel(4)->isEnabled(), !numBefore);
        QTest::keyClick(FindControl(form, u"txtPages"_s), Qt::Key_NumLock);

        const QLocale locale;
        QCOMPARE(bar->panelText(5), locale.toString(QDate::currentDate(), QLocale::ShortFormat));
        const QTime now = QTime::currentTime();
        QVERIFY(bar->panelText(6) == locale.toString(now, QLocale::ShortFormat)
                || bar->panelText(6) == locale.toString(now.addSecs(-60), QLocale::ShortFormat));
    }

    void publisherListFollowsThePublisherForm()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        const QString shown = Shown(form, u"cboPublisher"_s);
        QSqlQuery(fixture.catalogue().db()).exec(
            u"insert into tblPublisher (PublisherName) values ('Aardvark Press')"_s);
        QVERIFY(QMetaObject::invokeMethod(form, "RefreshPublisherList"));
        auto *publishers = FindControl<QComboBox>(form, u"cboPublisher"_s);
        QCOMPARE(publishers->itemText(0), u"Aardvark Press"_s);
        QCOMPARE(publishers->currentText(), shown);
        Click(FindControl(form, u"cmdNext"_s));
        QCOMPARE(fixture.rows(u"select * from tblBook where BookPublisherId = (select PublisherID "
                              "from tblPublisher where PublisherName = 'Aardvark Press')"_s), 0);
    }

    void helpOpensTheFormsTopic()
    {
        BookFormFixture fixture;
        FrmBookMaintenance *form = fixture.showBooks();
        Click(FindControl(form, u"cmdHelp"_s));
        QWidget *help = nullptr;
        QTRY_VERIFY((help = FindForm(u"HelpWindow"_s)) && help->isVisible());
        QTRY_COMPARE(FindControl<QTextBrowser>(help, u"helpBrowser"_s)->documentTitle(),
                     u"Maintaining books"_s);
        help->close();
    }

    void printLabelNeedsABook()
    {
        BookFormFixture fixture;
        SetBookPrompt(u"AddNewPrompt"_s, u"N"_s);
        FrmBookMaintenance *form = fixture.showBooks();
        QString printed;
        fixture.frame().setCommand(u"cmdPrintLabel"_s,
                                   [&printed](const QString &bookNumber) { printed = bookNumber; });
        Click(FindControl(form, u"cmdPrintLabel"_s));
        QCOMPARE(printed, Shown(form, u"txtBookID"_s));

        // A new book has no number yet.
        printed.clear();
        Click(FindControl(form, u"cmdAdd"_s));
        TypeInto(FindControl(form, u"txtDescription"_s), u"Unnumbered"_s);
        fixture.responder().expect(ModalResponder::message(
            u"Print Label"_s, u"Please select a book before trying to print label"_s,
            QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        Click(FindControl(form, u"cmdPrintLabel"_s));
        QCOMPARE(fixture.responder().finish(), QString());
        QVERIFY(printed.isEmpty());
    }
};

SHELVANE_TEST_MAIN(TestBookForm)
#include "tst_bookform.moc"
