#include "frmopenfixture.h"

#include "support/finders.h"
#include "taskformdouble.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

const QString CatalogueName = u"QuireshelfCatalog01.mdb"_s;

ModalExpectation incorrectName()
{
    return ModalResponder::message(u"Database Open Error"_s,
                                   u"Incorrect database name. \r\nPlease try again or 'Exit'"_s,
                                   QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s);
}

ModalExpectation doesNotExist()
{
    return ModalResponder::message(u"Database Open Error"_s,
                                   u"Database does not exist!\r\nPlease try again or 'Exit'"_s,
                                   QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s);
}

ModalExpectation openedMessage()
{
    return ModalResponder::message(u"Shelvane"_s, u"Quireshelf Sucessfully opened"_s,
                                   QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s);
}

ModalExpectation runtimeError(int number, const QString &description)
{
    return ModalResponder::message(u"prjQuireshelf"_s,
                                   u"Run-time error '"_s + QString::number(number)
                                       + u"':\r\n\r\n"_s + description,
                                   QMessageBox::Critical, {u"OK"_s}, u"OK"_s);
}

ModalExpectation chooseFile(const QString &path)
{
    return ModalResponder::dialog(u"cdgOpenDatabase"_s, u"Open"_s, {}, [path](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        // The dialog leaves a file name box that has the focus alone, as typing goes there.
        if (QWidget *focus = dialog->focusWidget())
            focus->clearFocus();
        dialog->selectFile(path);
        static_cast<QDialog *>(dialog)->accept(); // as the dialog's own Open button does
    });
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QWidget *FrmOpenTest::showOpenForm()
{
    QTest::mouseClick(m_frame->findChild<QToolButton *>(u"Open"_s), Qt::LeftButton);
    QWidget *form = FindForm(u"frmOpen"_s);
    if (form)
        activate(form);
    return form;
}

void FrmOpenTest::activate(QWidget *form)
{
    form->activateWindow();
    // A window counts as active for Qt while its parent is; wait for its own turn.
    QVERIFY(QTest::qWaitFor([form] { return QApplication::activeWindow() == form; }));
}

QLineEdit *FrmOpenTest::txtDataBase(QWidget *form)
{
    return FindControl<QLineEdit>(form, u"txtDataBase"_s);
}

void FrmOpenTest::click(QWidget *form, const QString &button)
{
    QTest::mouseClick(FindControl<QPushButton>(form, button), Qt::LeftButton);
}

void FrmOpenTest::choose(QWidget *form, const QString &path, const QList<ModalExpectation> &messages)
{
    m_responder->expect(chooseFile(path));
    for (const ModalExpectation &message : messages)
        m_responder->expect(message);
    click(form, u"cmdFind"_s);
    const QString problems = m_responder->finish();
    QVERIFY2(problems.isEmpty(), qPrintable(problems));
}

void FrmOpenTest::expectNoCatalogue()
{
    QVERIFY(m_frame->session().strCataloguePath.isEmpty());
    QVERIFY(!m_frame->session().cnnCatalogue);
    QCOMPARE(m_frame->windowTitle(), u"Shelvane"_s);
}

void FrmOpenTest::init()
{
    m_frame = std::make_unique<MainFrame>();
    registerDouble(*m_frame, {u"frmBookMaintenance"_s, u"Book Maintenance"_s, u"mnuBooks"_s});
    registerDouble(*m_frame, {u"frmBookStats"_s, u"Collection Statistics"_s, u"mnuStats"_s});
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
    m_responder = new ModalResponder;
}

void FrmOpenTest::cleanup()
{
    const QString problems = m_responder->finish(100);
    delete m_responder;
    m_frame.reset();
    QVERIFY2(problems.isEmpty(), qPrintable(problems));
}
