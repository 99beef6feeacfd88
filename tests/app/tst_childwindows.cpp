// Every child window of the frame as a user opens it at the frame's default size: wholly
// inside the workspace, closed by Ctrl+F4; a report's "Fit page" shows its whole page; and
// tiling or cascading never squeezes a form below the size its fields and status bar need.
#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/registerforms.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testenvironment.h"
#include "support/testmain.h"

#include <QAction>
#include <QComboBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

// How a user opens each child window: a menu entry, a toolbar button (the book form, whose
// menu entry is greyed while it is loaded hidden), File › Print Labels, or the book form's
// Print Label.
const QStringList everyWay{
    u"toolbar:Book"_s,         u"menu:mnuAuthorS"_s,          u"menu:mnuPublishers"_s,
    u"menu:mnuTopicS"_s,       u"menu:mnuCollectionValue"_s,  u"menu:mnuCatalogueControl"_s,
    u"menu:mnuStats"_s,        u"menu:mnuBookList"_s,         u"menu:mnuTopicSrch"_s,
    u"menu:mnuAuthorSrch"_s,   u"menu:mnuSearch"_s,           u"menu:mnuRepTitleOrder"_s,
    u"menu:mnuRepAuthorOrder"_s, u"menu:mnuRepTopicOrder"_s,  u"labels"_s,
    u"label"_s};

const QStringList reports{u"menu:mnuRepTitleOrder"_s, u"menu:mnuRepAuthorOrder"_s,
                          u"menu:mnuRepTopicOrder"_s, u"labels"_s, u"label"_s};

QString describe(const QRect &r)
{
    return u"%1x%2 at %3,%4"_s.arg(r.width()).arg(r.height()).arg(r.x()).arg(r.y());
}

// The part of `widget` inside `ancestor`, in the ancestor's coordinates.
QRect placeIn(const QWidget *widget, const QWidget *ancestor)
{
    return QRect(widget->mapTo(ancestor, QPoint(0, 0)), widget->size());
}

} // namespace

class TestChildWindows : public QObject
{
    Q_OBJECT

    std::unique_ptr<CatalogueOpener> m_opener;

    MainFrame &frame() { return m_opener->frame(); }
    QMdiArea *area() { return frame().mdiArea(); }

    QMdiSubWindow *open(const QString &way)
    {
        const QString how = way.section(u':', 0, 0);
        const QString what = way.section(u':', 1);
        if (how == u"menu") {
            frame().action(what)->trigger();
        } else if (how == u"toolbar") {
            QTest::mouseClick(frame().findChild<QToolButton *>(what), Qt::LeftButton);
        } else if (how == u"labels") {
            ModalResponder responder;
            responder.expect(ModalResponder::message(
                u"Print Labels!"_s,
                u"This will print labels for the whole of your collection!\r\n\r\n"
                "Are you sure you wish to continue?"_s,
                QMessageBox::Information, {u"Yes"_s, u"No"_s}, u"Yes"_s));
            frame().action(u"mnuPrintLabels"_s)->trigger();
            const QString problems = responder.finish();
            if (!problems.isEmpty()) {
                qWarning("%s", qPrintable(problems));
                return nullptr;
            }
        } else if (how == u"label") {
            QWidget *books = open(u"toolbar:Book"_s)->widget();
            QTest::mouseClick(books->findChild<QPushButton *>(u"cmdPrintLabel"_s), Qt::LeftButton);
        }
        QCoreApplication::processEvents();
        return area()->activeSubWindow();
    }

    // The window lies wholly in the workspace, which has nothing to scroll.
    void verifyInside(const QMdiSubWindow *window)
    {
        QVERIFY(window);
        const QRect workspace = area()->viewport()->rect();
        QVERIFY2(workspace.contains(window->geometry()),
                 qPrintable(window->windowTitle() + u": "_s + describe(window->geometry())
                            + u" in a workspace of "_s + describe(workspace)));
        QVERIFY(!area()->verticalScrollBar()->isVisible());
        QVERIFY(!area()->horizontalScrollBar()->isVisible());
    }

    // The form's status bar, if it has one, and the form itself are not cut off by the
    // window round them.
    void verifyNotSqueezed(const QMdiSubWindow *window)
    {
        const QWidget *form = window->widget();
        const QSize needed = form->minimumSizeHint();
        QVERIFY2(form->width() >= needed.width() && form->height() >= needed.height(),
                 qPrintable(form->objectName() + u" squeezed to %1x%2, needs %3x%4"_s
                            .arg(form->width()).arg(form->height())
                            .arg(needed.width()).arg(needed.height())));
        QVERIFY2(window->rect().contains(placeIn(form, window)),
                 qPrintable(form->objectName() + u" runs past its window"_s));
        if (const QStatusBar *status = form->findChild<QStatusBar *>())
            QVERIFY2(window->rect().contains(placeIn(status, window)),
                     qPrintable(form->objectName() + u"'s status bar is cut off"_s));
    }

private Q_SLOTS:
    void init()
    {
        TestEnvironment::clearSettings();
        m_opener = std::make_unique<CatalogueOpener>(RegisterAllForms);
        QVERIFY2(m_opener->problems().isEmpty(), qPrintable(m_opener->problems()));
        QCOMPARE(frame().size(), QSize(1024, 768));
        // The open form, a window of its own, had the keyboard last.
        frame().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&frame()));
    }

    void cleanup() { m_opener.reset(); }

    void eachWindowOpensInsideTheWorkspaceAndCtrlF4ClosesIt_data()
    {
        QTest::addColumn<QString>("way");
        for (const QString &way : everyWay)
            QTest::newRow(qPrintable(way)) << way;
    }

    void eachWindowOpensInsideTheWorkspaceAndCtrlF4ClosesIt()
    {
        QFETCH(QString, way);
        QMdiSubWindow *window = open(way);
        verifyInside(window);
        QVERIFY(!SaveScreenshot(&frame(), u"childwindow-"_s + window->widget()->objectName()).isEmpty());

        // Wherever the keyboard is: in the window, or nowhere after a message box.
        QPointer<QWidget> form = window->widget();
        QWidget *focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : &frame(), Qt::Key_F4, Qt::ControlModifier);
        QTRY_VERIFY2(!form || !form->isVisible(), qPrintable(way + u" is still open"_s));
    }

    void windowsOpenedOneAfterAnotherStayInsideTheWorkspace()
    {
        for (const QString &way : everyWay) {
            if (way == u"label")
                continue; // opens the book form first, which is open already
            verifyInside(open(way));
        }
        verifyInside(open(u"label"_s));
    }

    void fitPageShowsTheWholePage_data()
    {
        QTest::addColumn<QString>("way");
        for (const QString &way : reports)
            QTest::newRow(qPrintable(way)) << way;
    }

    void fitPageShowsTheWholePage()
    {
        QFETCH(QString, way);
        QMdiSubWindow *window = open(way);
        QVERIFY(window);
        auto *zoom = FindControl<QComboBox>(window->widget(), u"cboZoom"_s);
        zoom->setCurrentText(u"Fit page"_s);
        QCoreApplication::processEvents();
        const auto *scroller = FindControl<QScrollArea>(window->widget(), u"scrPages"_s);
        const QWidget *preview = FindControl<QWidget>(window->widget(), u"pagePreview"_s);
        QVERIFY(scroller->viewport()->rect().contains(placeIn(preview, scroller->viewport())));
        const QRect shown = placeIn(scroller->viewport(), area()->viewport());
        QVERIFY2(area()->viewport()->rect().contains(shown),
                 qPrintable(u"the page's view is "_s + describe(shown) + u" in a workspace of "_s
                            + describe(area()->viewport()->rect())));
        QVERIFY(!scroller->verticalScrollBar()->isVisible());
    }

    void arrangingNeverSqueezesAForm_data()
    {
        QTest::addColumn<QString>("arrangement");
        QTest::newRow("tile horizontally") << u"mnuTileHorizontally"_s;
        QTest::newRow("tile vertically") << u"mnuTileVertically"_s;
        QTest::newRow("cascade") << u"mnuCascade"_s;
    }

    void arrangingNeverSqueezesAForm()
    {
        QFETCH(QString, arrangement);
        QList<QMdiSubWindow *> windows;
        // Every form with a status bar, and the search, the largest of the rest.
        for (const QString &way : {u"toolbar:Book"_s, u"menu:mnuAuthorS"_s, u"menu:mnuTopicSrch"_s,
                                   u"menu:mnuPublishers"_s, u"menu:mnuTopicS"_s,
                                   u"menu:mnuAuthorSrch"_s, u"menu:mnuSearch"_s})
            windows.append(open(way));
        frame().action(arrangement)->trigger();
        QCoreApplication::processEvents();
        for (const QMdiSubWindow *window : std::as_const(windows)) {
            QVERIFY(window);
            verifyNotSqueezed(window);
        }
        QVERIFY(!SaveScreenshot(&frame(), u"childwindows-"_s + arrangement).isEmpty());
    }
};

SHELVANE_TEST_MAIN(TestChildWindows)
#include "tst_childwindows.moc"
