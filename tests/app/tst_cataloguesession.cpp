// The catalogue session frmOpen starts and File › Close Catalogue ends: what an open sets,
// opening while a catalogue is open, and closing with the forms still loaded.
#include "app/formregistry.h"
#include "frmopenfixture.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/screenshot.h"
#include "support/testcatalogue.h"
#include "support/testmain.h"
#include "taskformdouble.h"

#include <QDir>
#include <QSqlQuery>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

class TestCatalogueSession : public FrmOpenTest
{
    Q_OBJECT

private Q_SLOTS:
    void successfulOpenSetsTheSession()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString problems = OpenCatalogueThroughForm(*m_frame, catalogue.path(), *m_responder);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));

        const Session &session = m_frame->session();
        QCOMPARE(session.strCataloguePath, QDir::toNativeSeparators(catalogue.path()));
        QVERIFY(session.cnnCatalogue && session.cnnCatalogue->isOpen());
        QCOMPARE(session.cnnCatalogue->filePath(), catalogue.path());
        QCOMPARE(session.strCurrencySymbol, u"£"_s);
        QCOMPARE(session.strPriceFormat, u"£###,##0.00"_s);
        QCOMPARE(m_frame->windowTitle(),
                 u"Shelvane - Open Catalogue: "_s
                     + catalogue.scalar(u"SELECT CatalogueName FROM tblCatalogueControl"_s)
                           .toString());
        // The book form is prepared out of sight; frmOpen is gone.
        QWidget *books = m_frame->forms().find(u"frmBookMaintenance"_s);
        QVERIFY(books);
        QVERIFY(!books->isVisible());
        QVERIFY(!m_frame->forms().find(u"frmOpen"_s));
        QTRY_VERIFY(!FindForm(u"frmOpen"_s));
        QVERIFY(!SaveScreenshot(m_frame.get(), u"MDIForm1-catalogue-open"_s).isEmpty());
    }

    void catalogueWithoutOwnerRecordIsNamedByItsPath()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QVERIFY(QSqlQuery(catalogue.db()).exec(u"DELETE FROM tblCatalogueControl"_s));
        const QString problems = OpenCatalogueThroughForm(*m_frame, catalogue.path(), *m_responder);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QCOMPARE(m_frame->windowTitle(),
                 u"Shelvane - Open Catalogue: "_s + QDir::toNativeSeparators(catalogue.path()));
    }

    void openingWhileACatalogueIsOpenNeverReachesTheForm_data()
    {
        QTest::addColumn<bool>("fromToolbar");
        QTest::newRow("File > Open Catalogue") << false;
        QTest::newRow("toolbar Open File") << true;
    }

    void openingWhileACatalogueIsOpenNeverReachesTheForm()
    {
        QFETCH(bool, fromToolbar);
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QString problems = OpenCatalogueThroughForm(*m_frame, catalogue.path(), *m_responder);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QTRY_VERIFY(!FindForm(u"frmOpen"_s));

        m_responder->expect(ModalResponder::message(
            u"Shelvane"_s, u"Please close current Quireshelf database first!"_s,
            QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        if (fromToolbar)
            QTest::mouseClick(m_frame->findChild<QToolButton *>(u"Open"_s), Qt::LeftButton);
        else
            m_frame->action(u"mnuOpen"_s)->trigger();
        problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QVERIFY(!m_frame->forms().find(u"frmOpen"_s));
        QVERIFY(!FindForm(u"frmOpen"_s));
    }

    void closeUnloadsEveryFormAndResetsTheCaption()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QString problems = OpenCatalogueThroughForm(*m_frame, catalogue.path(), *m_responder);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        m_frame->action(u"mnuStats"_s)->trigger();
        m_frame->action(u"mnuAbout"_s)->trigger();
        QVERIFY(m_frame->forms().find(u"frmBookStats"_s));
        QVERIFY(!m_frame->action(u"mnuStats"_s)->isEnabled());

        m_responder->expect(ModalResponder::message(
            u"Close Catalogue"_s,
            u"Catalogue "_s + QDir::toNativeSeparators(catalogue.path()) + u" closed!"_s,
            QMessageBox::Information, {u"OK"_s}, u"OK"_s));
        m_frame->action(u"mnuClose"_s)->trigger();
        problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));

        QVERIFY(m_frame->forms().loadedForms().isEmpty());
        for (const QString &name :
             {u"frmBookStats"_s, u"frmBookMaintenance"_s, u"frmAbout"_s})
            QTRY_VERIFY2(!FindForm(name), qPrintable(name));
        QVERIFY(m_frame->action(u"mnuStats"_s)->isEnabled());
        expectNoCatalogue();

        m_responder->expect(ModalResponder::message(
            u"Shelvane"_s, u"Please open Quireshelf database first!"_s, QMessageBox::Warning,
            {u"OK"_s}, u"OK"_s));
        m_frame->action(u"mnuClose"_s)->trigger();
        problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        expectNoCatalogue();
    }

    void closeStopsAtAFormThatKeepsItsEdit()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QString problems = OpenCatalogueThroughForm(*m_frame, catalogue.path(), *m_responder);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        m_frame->action(u"mnuStats"_s)->trigger();
        auto *stats = qobject_cast<TaskFormDouble *>(m_frame->forms().find(u"frmBookStats"_s));
        QVERIFY(stats);
        stats->refuseClose = true;

        m_frame->action(u"mnuClose"_s)->trigger();
        QCOMPARE(m_frame->session().strCataloguePath, QDir::toNativeSeparators(catalogue.path()));
        QVERIFY(m_frame->session().cnnCatalogue);
        QCOMPARE(m_frame->forms().loadedForms(), QList<QWidget *>{stats});
        stats->refuseClose = false;
    }
};

SHELVANE_TEST_MAIN(TestCatalogueSession)
#include "tst_cataloguesession.moc"
