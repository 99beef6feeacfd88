// Where the maintenance forms open: wholly inside the visible part of the frame, at the
// frame's default size, with every button in sight.

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "referencecases.h"
#include "support/testenvironment.h"
#include "support/testmain.h"

#include <QAction>
#include <QMdiArea>
#include <QTest>

using namespace Qt::StringLiterals;

class TestPlacement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFormOpensInsideTheFrame()
    {
        TestEnvironment::clearSettings();
        CatalogueOpener opener(RegisterReferenceForms);
        QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
        MainFrame &frame = opener.frame();
        QCOMPARE(frame.size(), QSize(1024, 768));
        QVERIFY(QTest::qWaitForWindowExposed(&frame));
        const QRect visible = frame.mdiArea()->viewport()->rect();
        // Opened one after another, each placed by the frame beside those already open.
        for (const QString &name : {u"frmAuthor"_s, u"frmTopic"_s, u"frmPublisher"_s}) {
            QWidget *form = openForm(formCase(name));
            QVERIFY(form);
            const QRect placed = frame.forms().windowOf(form)->geometry();
            QVERIFY2(visible.contains(placed),
                     qPrintable(name + u" at %1,%2 %3x%4"_s.arg(placed.x()).arg(placed.y())
                                           .arg(placed.width()).arg(placed.height())));
        }
    }

    // Tiled side by side in a frame too narrow for all three, no form is squeezed below the
    // size its fields and buttons need; the frame scrolls instead.
    void tilingNeverSqueezesAForm()
    {
        TestEnvironment::clearSettings();
        CatalogueOpener opener(RegisterReferenceForms);
        QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
        MainFrame &frame = opener.frame();
        QVERIFY(QTest::qWaitForWindowExposed(&frame));
        QList<QWidget *> forms;
        for (const QString &name : {u"frmAuthor"_s, u"frmTopic"_s, u"frmPublisher"_s})
            forms.append(openForm(formCase(name)));
        frame.action(u"mnuTileVertically"_s)->trigger();
        QCoreApplication::processEvents();
        for (QWidget *form : std::as_const(forms)) {
            QVERIFY(form);
            const QSize needed = form->minimumSizeHint();
            QVERIFY2(form->width() >= needed.width() && form->height() >= needed.height(),
                     qPrintable(form->objectName() + u" squeezed to %1x%2, needs %3x%4"_s
                                .arg(form->width()).arg(form->height())
                                .arg(needed.width()).arg(needed.height())));
            auto *exit = form->findChild<QWidget *>(u"cmdExit"_s);
            QVERIFY(form->rect().contains(QRect(exit->mapTo(form, QPoint()), exit->size())));
        }
    }
};

SHELVANE_TEST_MAIN(TestPlacement)
#include "tst_placement.moc"
