#include "support/catalogueopener.h"

#include "app/mainframe.h"
#include "support/finders.h"
#include "support/modalresponder.h"

#include <QFileDialog>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

// Picks the file in the file dialog as a person types its name and accepts.
std::function<void(QWidget *)> choose(const QString &path)
{
    return [path](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        if (!dialog)
            return;
        // The dialog leaves a file name box that has the focus alone, as typing goes there.
        if (QWidget *focus = dialog->focusWidget())
            focus->clearFocus();
        dialog->selectFile(path);
        static_cast<QDialog *>(dialog)->accept(); // as the dialog's own Open button does
    };
}

} // namespace

QString PressOpenFor(MainFrame &frame, const QString &path, ModalResponder &responder,
                     const QList<ModalExpectation> &expected, int timeoutMs)
{
    auto *openButton = frame.findChild<QToolButton *>(u"Open"_s);
    if (!openButton)
        return u"The toolbar has no \"Open\" button."_s;
    QTest::mouseClick(openButton, Qt::LeftButton);
    QWidget *form = FindForm(u"frmOpen"_s);
    if (!form)
        return u"frmOpen did not appear."_s;

    responder.expect(ModalResponder::dialog(u"cdgOpenDatabase"_s, u"Open"_s, {}, choose(path)));
    QTest::mouseClick(FindControl<QPushButton>(form, u"cmdFind"_s), Qt::LeftButton);
    const QString problems = responder.finish();
    if (!problems.isEmpty())
        return problems;

    for (const ModalExpectation &expectation : expected)
        responder.expect(expectation);
    QTest::mouseClick(FindControl<QPushButton>(form, u"cmdOpen"_s), Qt::LeftButton);
    return responder.finish(timeoutMs);
}

QString OpenCatalogueThroughForm(MainFrame &frame, const QString &path,
                                 ModalResponder &responder)
{
    const QString problems = PressOpenFor(
        frame, path, responder,
        {ModalResponder::message(u"Shelvane"_s, u"Quireshelf Sucessfully opened"_s,
                                 QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s)});
    if (!problems.isEmpty())
        return problems;
    if (!frame.session().isOpen())
        return u"No catalogue is open after \"Open\"."_s;
    return {};
}

CatalogueOpener::CatalogueOpener(const Registration &registerForms, TestCatalogue::Content content)
    : m_catalogue(content)
    , m_frame(std::make_unique<MainFrame>())
{
    if (registerForms)
        registerForms(*m_frame);
    m_frame->show();
    if (!QTest::qWaitForWindowExposed(m_frame.get())) {
        m_problems = u"The main frame was never shown."_s;
        return;
    }
    ModalResponder responder;
    m_problems = OpenCatalogueThroughForm(*m_frame, m_catalogue.path(), responder);
}

CatalogueOpener::~CatalogueOpener() = default;
