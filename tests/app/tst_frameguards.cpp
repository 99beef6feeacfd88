// The main frame's routing of every entry, button and drop-down item to its form, and the
// guards on the way: no catalogue open, a form already open, a form that refuses to close,
// a form whose area is not built, a run-time error.
#include "app/formregistry.h"
#include "data/runtimeerror.h"
#include "mainframefixture.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/screenshot.h"
#include "support/testmain.h"
#include "taskformdouble.h"

#include <QDir>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

ModalExpectation openFirst()
{
    return ModalResponder::message(u"Shelvane"_s, u"Please open Quireshelf database first!"_s,
                                   QMessageBox::Warning, {u"OK"_s}, u"OK"_s);
}

const QStringList TaskEntries{u"mnuBooks"_s,      u"mnuAuthorS"_s,         u"mnuPublishers"_s,
                              u"mnuTopicS"_s,     u"mnuCollectionValue"_s, u"mnuCatalogueControl"_s,
                              u"mnuStats"_s,      u"mnuBookList"_s,        u"mnuTopicSrch"_s,
                              u"mnuAuthorSrch"_s, u"mnuSearch"_s};
const QStringList DropDownItems{u"TitleRep"_s, u"AuthorRep"_s,  u"TopicRep"_s,
                                u"ByAuthor"_s, u"ByTopic"_s,    u"CompleteCat"_s};

} // namespace

class TestFrameGuards : public MainFrameTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithNoCatalogue()
    {
        QCOMPARE(m_frame->objectName(), u"MDIForm1"_s);
        QCOMPARE(m_frame->windowTitle(), u"Shelvane"_s);
        QCOMPARE(m_frame->findChild<QLabel *>(u"lblCatalogue"_s)->text(),
                 u"No catalogue open"_s);
        QVERIFY(m_frame->session().strCataloguePath.isEmpty());
        QVERIFY(!m_frame->session().cnnCatalogue);
        for (const QString &name : TaskEntries + DropDownItems)
            QVERIFY2(entry(name)->isEnabled(), qPrintable(name));
        QVERIFY(!entry(u"mnuOn"_s)->isChecked());
        QVERIFY(!entry(u"mnuOff"_s)->isChecked());
        QVERIFY(m_frame->forms().loadedForms().isEmpty());
        QVERIFY(!SaveScreenshot(m_frame.get(), u"MDIForm1-no-catalogue"_s).isEmpty());
    }

    void withoutCatalogueButtonsAreRefused_data()
    {
        QTest::addColumn<QString>("key");
        for (const QString &key : {u"Book"_s, u"Author"_s, u"Publisher"_s, u"Topic"_s,
                                   u"Reports"_s, u"ListBooks"_s, u"Search"_s})
            QTest::newRow(qPrintable(key)) << key;
    }

    void withoutCatalogueButtonsAreRefused()
    {
        QFETCH(QString, key);
        m_responder->expect(openFirst());
        QTest::mouseClick(button(key), Qt::LeftButton);
        finish();
        QVERIFY(m_frame->forms().loadedForms().isEmpty());
        for (const QString &name : TaskEntries + DropDownItems)
            QVERIFY2(entry(name)->isEnabled(), qPrintable(name));
    }

    void withoutCatalogueCommandsAreRefused_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : TaskEntries + DropDownItems
                 + QStringList{u"mnuRepTitleOrder"_s, u"mnuRepAuthorOrder"_s,
                               u"mnuRepTopicOrder"_s, u"mnuPrintLabels"_s,
                               u"mnuFileCompactDatabase"_s, u"mnuClose"_s})
            QTest::newRow(qPrintable(name)) << name;
    }

    void withoutCatalogueCommandsAreRefused()
    {
        QFETCH(QString, name);
        bool ran = false;
        m_frame->setCommand(name, [&ran] { ran = true; });
        m_responder->expect(openFirst());
        entry(name)->trigger();
        finish();
        QVERIFY(!ran);
        QVERIFY(m_frame->forms().loadedForms().isEmpty());
        QVERIFY(entry(name)->isEnabled());
    }

    void openButtonShowsTheOpenForm()
    {
        QTest::mouseClick(button(u"Open"_s), Qt::LeftButton);
        QWidget *form = FindForm(u"frmOpen"_s);
        QVERIFY(form);
        QVERIFY(form->isVisible());
        QCOMPARE(m_frame->forms().loadedForms(), QList<QWidget *>{form});
    }

    void exitButtonEndsTheProgram()
    {
        QTest::mouseClick(button(u"Open"_s), Qt::LeftButton);
        QTest::mouseClick(button(u"Exit"_s), Qt::LeftButton);
        QVERIFY(!m_frame->isVisible());
        QVERIFY(m_frame->forms().loadedForms().isEmpty());
    }

    void exitStopsAtAFormThatKeepsItsEdit()
    {
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        auto *stats = qobject_cast<TaskFormDouble *>(loaded(u"frmBookStats"_s));
        stats->refuseClose = true;
        entry(u"mnuExit"_s)->trigger();
        QVERIFY(m_frame->isVisible());
        QVERIFY(loaded(u"frmBookStats"_s));
        QVERIFY(m_frame->session().isOpen());
        stats->refuseClose = false;
        entry(u"mnuExit"_s)->trigger();
        QVERIFY(!m_frame->isVisible());
        QVERIFY(!m_frame->session().isOpen());
    }

    void fixtureOpensTheSampleCatalogue()
    {
        m_responder.reset(); // the fixture answers its own dialogs
        CatalogueOpener opener(registerDoubles);
        m_responder = std::make_unique<ModalResponder>();
        QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
        MainFrame &frame = opener.frame();
        QCOMPARE(frame.session().strCataloguePath,
                 QDir::toNativeSeparators(opener.catalogue().path()));
        QCOMPARE(frame.windowTitle(),
                 u"Shelvane - Open Catalogue: "_s
                     + opener.catalogue()
                           .scalar(u"SELECT CatalogueName FROM tblCatalogueControl"_s)
                           .toString());
        QCOMPARE(frame.findChild<QLabel *>(u"lblCatalogue"_s)->text(),
                 frame.session().strCataloguePath);
        QWidget *books = frame.forms().find(u"frmBookMaintenance"_s);
        QVERIFY(books);
        QVERIFY(!books->isVisible());
    }

    void booksTwiceOpensOneForm()
    {
        openCatalogue();
        QWidget *hidden = loaded(u"frmBookMaintenance"_s);
        QVERIFY(hidden && !hidden->isVisible());

        QTest::mouseClick(button(u"Book"_s), Qt::LeftButton);
        QCOMPARE(loaded(u"frmBookMaintenance"_s), hidden);
        QVERIFY(hidden->isVisible());
        QVERIFY(!entry(u"mnuBooks"_s)->isEnabled());
        QVERIFY(button(u"Book"_s)->isEnabled());

        // Another form comes in front; the button brings the same book form forward again.
        entry(u"mnuStats"_s)->trigger();
        QCOMPARE(m_frame->mdiArea()->activeSubWindow()->widget(), loaded(u"frmBookStats"_s));
        QTest::mouseClick(button(u"Book"_s), Qt::LeftButton);
        QCOMPARE(m_frame->mdiArea()->activeSubWindow()->widget(), hidden);
        QCOMPARE(m_frame->mdiArea()->subWindowList().size(), 2);
        QVERIFY(!SaveScreenshot(m_frame.get(), u"MDIForm1-two-forms"_s).isEmpty());

        closeForm(u"frmBookMaintenance"_s);
        QVERIFY(entry(u"mnuBooks"_s)->isEnabled());
    }

    void searchNeverDisablesAnything()
    {
        openCatalogue();
        entry(u"mnuSearch"_s)->trigger();
        QWidget *search = loaded(u"frmSearch"_s);
        QVERIFY(search && search->isVisible());
        entry(u"mnuStats"_s)->trigger();
        entry(u"mnuSearch"_s)->trigger();
        QTest::mouseClick(button(u"Search"_s), Qt::LeftButton);
        QCOMPARE(loaded(u"frmSearch"_s), search);
        QCOMPARE(m_frame->mdiArea()->activeSubWindow()->widget(), search);
        QVERIFY(entry(u"mnuSearch"_s)->isEnabled());
        QVERIFY(button(u"Search"_s)->isEnabled());
        for (const QString &name : TaskEntries) {
            if (name != u"mnuStats")
                QVERIFY2(entry(name)->isEnabled(), qPrintable(name));
        }
    }

    void taskEntryIsDisabledWhileItsFormIsOpen_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("dropDownItem");
        QTest::newRow("Books") << u"mnuBooks"_s << u"frmBookMaintenance"_s << QString();
        QTest::newRow("Authors") << u"mnuAuthorS"_s << u"frmAuthor"_s << QString();
        QTest::newRow("Publishers") << u"mnuPublishers"_s << u"frmPublisher"_s << QString();
        QTest::newRow("Topics") << u"mnuTopicS"_s << u"frmTopic"_s << QString();
        QTest::newRow("Catalogue Control")
            << u"mnuCatalogueControl"_s << u"frmCatalogueControl"_s << QString();
        QTest::newRow("Catalogue Statistics") << u"mnuStats"_s << u"frmBookStats"_s << QString();
        QTest::newRow("Complete Catalogue")
            << u"mnuBookList"_s << u"frmBookListing"_s << u"CompleteCat"_s;
        QTest::newRow("By Topic") << u"mnuTopicSrch"_s << u"frmTopicBook"_s << u"ByTopic"_s;
        QTest::newRow("By Author") << u"mnuAuthorSrch"_s << u"frmAuthorBook"_s << u"ByAuthor"_s;
    }

    void taskEntryIsDisabledWhileItsFormIsOpen()
    {
        QFETCH(QString, name);
        QFETCH(QString, form);
        QFETCH(QString, dropDownItem);
        openCatalogue();
        entry(name)->trigger();
        QVERIFY(loaded(form) && loaded(form)->isVisible());
        QVERIFY(!entry(name)->isEnabled());
        for (const QString &item : DropDownItems)
            QCOMPARE(entry(item)->isEnabled(), item != dropDownItem);
        closeForm(form);
        QVERIFY(entry(name)->isEnabled());
        for (const QString &item : DropDownItems)
            QVERIFY2(entry(item)->isEnabled(), qPrintable(item));
    }

    void dropDownItemOpensItsFormAndDisablesItself_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("menuEntry");
        QTest::newRow("By Author") << u"ByAuthor"_s << u"frmAuthorBook"_s << u"mnuAuthorSrch"_s;
        QTest::newRow("By Topic") << u"ByTopic"_s << u"frmTopicBook"_s << u"mnuTopicSrch"_s;
        QTest::newRow("Complete Catalogue")
            << u"CompleteCat"_s << u"frmBookListing"_s << u"mnuBookList"_s;
    }

    void dropDownItemOpensItsFormAndDisablesItself()
    {
        QFETCH(QString, item);
        QFETCH(QString, form);
        QFETCH(QString, menuEntry);
        openCatalogue();
        entry(item)->trigger();
        QVERIFY(loaded(form) && loaded(form)->isVisible());
        QVERIFY(!entry(item)->isEnabled());
        QVERIFY(!entry(menuEntry)->isEnabled());
        closeForm(form);
        QVERIFY(entry(item)->isEnabled());
        QVERIFY(entry(menuEntry)->isEnabled());
    }

    void reportItemStaysDisabledOnceUsed_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("menuEntry");
        QTest::newRow("by Title") << u"TitleRep"_s << u"mnuRepTitleOrder"_s;
        QTest::newRow("by Author") << u"AuthorRep"_s << u"mnuRepAuthorOrder"_s;
        QTest::newRow("by Topic") << u"TopicRep"_s << u"mnuRepTopicOrder"_s;
    }

    void reportItemStaysDisabledOnceUsed()
    {
        QFETCH(QString, item);
        QFETCH(QString, menuEntry);
        openCatalogue();
        int runs = 0;
        m_frame->setCommand(menuEntry, [&runs] { ++runs; });
        entry(item)->trigger();
        QCOMPARE(runs, 1);
        QVERIFY(!entry(item)->isEnabled());
        QVERIFY(entry(menuEntry)->isEnabled());
        // Nothing that the frame does enables it again; closing the catalogue neither.
        m_responder->expect(ModalResponder::message(
            u"Close Catalogue"_s,
            u"Catalogue "_s + QDir::toNativeSeparators(m_catalogue->path()) + u" closed!"_s,
            QMessageBox::Information, {u"OK"_s}, u"OK"_s));
        entry(u"mnuClose"_s)->trigger();
        finish();
        QVERIFY(!entry(item)->isEnabled());
    }

    void commandsRunAfterTheGuard_data()
    {
        QTest::addColumn<QString>("name");
        // Compaction is the frame's own command (tst_compaction).
        for (const QString &name : {u"mnuRepTitleOrder"_s, u"mnuRepAuthorOrder"_s,
                                    u"mnuRepTopicOrder"_s, u"mnuPrintLabels"_s})
            QTest::newRow(qPrintable(name)) << name;
    }

    void commandsRunAfterTheGuard()
    {
        QFETCH(QString, name);
        openCatalogue();
        entry(name)->trigger(); // nothing set yet: nothing happens
        int runs = 0;
        m_frame->setCommand(name, [&runs] { ++runs; });
        entry(name)->trigger();
        QCOMPARE(runs, 1);
        QVERIFY(entry(name)->isEnabled());
    }

    void commandOfAFormNotBuiltDoesNothing()
    {
        openCatalogue();
        entry(u"mnuCollectionValue"_s)->trigger();
        QVERIFY(!loaded(u"frmPrices"_s));
        QVERIFY(entry(u"mnuCollectionValue"_s)->isEnabled());
    }

    void toolbarSwallowsRunTimeErrors()
    {
        m_frame->forms().registerForm(u"frmAuthor"_s, FormRegistry::Placement::Child,
                                      []() -> QWidget * { throw RuntimeError{6, u"Overflow"_s}; });
        openCatalogue();
        QTest::mouseClick(button(u"Author"_s), Qt::LeftButton);
        finish();
        QVERIFY(!loaded(u"frmAuthor"_s));
        QVERIFY(entry(u"mnuAuthorS"_s)->isEnabled());
    }
};

SHELVANE_TEST_MAIN(TestFrameGuards)
#include "tst_frameguards.moc"
