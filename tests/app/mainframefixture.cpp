#include "mainframefixture.h"

#include "app/formregistry.h"
#include "forms/registerforms.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/testenvironment.h"
#include "taskformdouble.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// The task forms of the later areas, stood in for by doubles; frmPrices is left out on
// purpose, as a form whose area is not built.
const QList<DoubleForm> &doubles()
{
    static const QList<DoubleForm> forms{
        {u"frmBookMaintenance"_s, u"Book Maintenance"_s, u"mnuBooks"_s},
        {u"frmAuthor"_s, u"Authors"_s, u"mnuAuthorS"_s},
        {u"frmPublisher"_s, u"Publishers"_s, u"mnuPublishers"_s},
        {u"frmTopic"_s, u"Topics"_s, u"mnuTopicS"_s},
        {u"frmCatalogueControl"_s, u"Catalogue Control"_s, u"mnuCatalogueControl"_s},
        {u"frmBookStats"_s, u"Collection Statistics"_s, u"mnuStats"_s},
        {u"frmBookListing"_s, u"Book Listing"_s, u"mnuBookList"_s},
        {u"frmTopicBook"_s, u"Books by Topic"_s, u"mnuTopicSrch"_s},
        {u"frmAuthorBook"_s, u"Books by Author"_s, u"mnuAuthorSrch"_s},
        {u"frmSearch"_s, u"Search"_s, u"mnuSearch"_s},
    };
    return forms;
}

} // namespace

void registerDoubles(MainFrame &frame)
{
    for (const DoubleForm &form : doubles())
        registerDouble(frame, form);
}

void MainFrameTest::openCatalogue()
{
    m_catalogue = std::make_unique<TestCatalogue>(TestCatalogue::Content::Sample);
    const QString problems = OpenCatalogueThroughForm(*m_frame, m_catalogue->path(), *m_responder);
    QVERIFY2(problems.isEmpty(), qPrintable(problems));
    QTRY_VERIFY(!FindForm(u"frmOpen"_s));
}

void MainFrameTest::finish()
{
    const QString problems = m_responder->finish();
    QVERIFY2(problems.isEmpty(), qPrintable(problems));
}

void MainFrameTest::closeForm(const QString &name)
{
    QWidget *form = loaded(name);
    QVERIFY(form);
    QVERIFY(m_frame->forms().windowOf(form)->close());
    QTRY_VERIFY(!FindForm(name));
}

void MainFrameTest::initTestCase()
{
    // A frame closed by a test must not end the test run.
    QApplication::setQuitOnLastWindowClosed(false);
    // The prompts and help topics are the areas' own, given as the program starts; the
    // frames of the tests then stand doubles in for the forms.
    MainFrame program;
    RegisterAllForms(program);
}

void MainFrameTest::init()
{
    TestEnvironment::clearSettings();
    m_frame = std::make_unique<MainFrame>();
    registerDoubles(*m_frame);
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
    m_responder = std::make_unique<ModalResponder>();
}

void MainFrameTest::cleanup()
{
    const QString problems = m_responder->finish(100);
    m_responder.reset();
    m_frame.reset();
    m_catalogue.reset();
    QVERIFY2(problems.isEmpty(), qPrintable(problems));
}
