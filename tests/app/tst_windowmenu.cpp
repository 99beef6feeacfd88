// The Window menu: tiling, cascading, minimising and arranging the children, and the list
// of open children with the active one checked.
#include "mainframefixture.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>

using namespace Qt::StringLiterals;

class TestWindowMenu : public MainFrameTest
{
    Q_OBJECT

private Q_SLOTS:
    void tileAndCascade()
    {
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        entry(u"mnuAuthorS"_s)->trigger();
        QMdiArea *area = m_frame->mdiArea();
        const QRect space = area->viewport()->rect();
        const QList<QMdiSubWindow *> children = area->subWindowList(QMdiArea::CreationOrder);
        QMdiSubWindow *stats = qobject_cast<QMdiSubWindow *>(
            m_frame->forms().windowOf(loaded(u"frmBookStats"_s)));
        QMdiSubWindow *authors = qobject_cast<QMdiSubWindow *>(
            m_frame->forms().windowOf(loaded(u"frmAuthor"_s)));

        entry(u"mnuTileHorizontally"_s)->trigger();
        QCOMPARE(stats->geometry(), QRect(0, 0, space.width(), space.height() / 2));
        QCOMPARE(authors->geometry(), QRect(0, space.height() / 2, space.width(),
                                            space.height() - space.height() / 2));
        // The hidden book form is not laid out.
        QVERIFY(!m_frame->forms().windowOf(loaded(u"frmBookMaintenance"_s))->isVisible());
        QVERIFY(!SaveScreenshot(m_frame.get(), u"MDIForm1-tiled"_s).isEmpty());

        entry(u"mnuTileVertically"_s)->trigger();
        QCOMPARE(stats->geometry(), QRect(0, 0, space.width() / 2, space.height()));
        QCOMPARE(authors->geometry(), QRect(space.width() / 2, 0,
                                            space.width() - space.width() / 2, space.height()));

        entry(u"mnuCascade"_s)->trigger();
        QVERIFY(stats->geometry().topLeft() != authors->geometry().topLeft());
        QVERIFY(stats->geometry().intersects(authors->geometry()));
        QCOMPARE(children.size(), 3);
    }

    void minimiseAllAndArrangeIcons()
    {
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        entry(u"mnuAuthorS"_s)->trigger();
        entry(u"mnuMinimise"_s)->trigger();
        QWidget *books = m_frame->forms().windowOf(loaded(u"frmBookMaintenance"_s));
        QMdiSubWindow *stats = qobject_cast<QMdiSubWindow *>(
            m_frame->forms().windowOf(loaded(u"frmBookStats"_s)));
        QMdiSubWindow *authors = qobject_cast<QMdiSubWindow *>(
            m_frame->forms().windowOf(loaded(u"frmAuthor"_s)));
        QVERIFY(stats->isMinimized());
        QVERIFY(authors->isMinimized());
        QVERIFY(!books->isVisible());

        stats->move(200, 10);
        authors->move(10, 150);
        entry(u"mnuArrangeIcons"_s)->trigger();
        const int bottom = m_frame->mdiArea()->viewport()->rect().bottom() + 1;
        QCOMPARE(stats->geometry().bottom() + 1, bottom);
        QCOMPARE(authors->geometry().bottom() + 1, bottom);
        QCOMPARE(stats->x(), 0);
        QCOMPARE(authors->x(), stats->width());
    }

    void windowListShowsTheOpenChildrenWithTheActiveOneChecked()
    {
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        entry(u"mnuAuthorS"_s)->trigger();
        auto *list = m_frame->findChild<QMenu *>(u"mnuListWindows"_s);
        list->popup(QPoint(0, 0));
        QStringList items;
        for (QAction *item : list->actions())
            items << item->text() + (item->isChecked() ? u" *"_s : QString());
        QCOMPARE(items, (QStringList{u"Collection Statistics"_s, u"Authors *"_s}));
        list->actions().constFirst()->trigger();
        list->hide();
        QCOMPARE(m_frame->mdiArea()->activeSubWindow()->widget(), loaded(u"frmBookStats"_s));
    }
};

SHELVANE_TEST_MAIN(TestWindowMenu)
#include "tst_windowmenu.moc"
