#include "support/formdriver.h"

#include "app/helptopics.h"
#include "support/finders.h"
#include "support/screenshot.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QTest>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

QWidget *OpenThroughMenu(const QString &menuEntry, const QString &formName)
{
    QAction *entry = FindAction(menuEntry);
    if (!entry)
        return nullptr;
    entry->trigger();
    QWidget *form = FindForm(formName);
    if (form) {
        form->window()->activateWindow();
        std::ignore = QTest::qWaitForWindowActive(form->window());
    }
    return form;
}

QString MenuEntryFollowsForm(const QString &menuEntry, const QString &formName)
{
    const QWidget *form = OpenThroughMenu(menuEntry, formName);
    if (!form)
        return formName + u" did not open."_s;
    if (FindAction(menuEntry)->isEnabled())
        return menuEntry + u" is enabled while the form is open."_s;
    ClickButton(form, u"cmdExit"_s);
    if (!QTest::qWaitFor([&formName] { return !FindForm(formName); }))
        return u"Exit left the form open."_s;
    if (!FindAction(menuEntry)->isEnabled())
        return menuEntry + u" stays disabled after the form is gone."_s;
    return {};
}

QString AppendToShownTitle(const QString &text)
{
    const QWidget *form = OpenThroughMenu(u"mnuBooks"_s, u"frmBookMaintenance"_s);
    auto *title = FindControl<QLineEdit>(form, u"txtDescription"_s);
    if (!title)
        return {};
    const QString id = BoxText(form, u"txtBookID"_s);
    QTest::keyClick(title, Qt::Key_End);
    QTest::keyClicks(title, text);
    ClickButton(form, u"cmdNext"_s);
    return id;
}

void Retype(QLineEdit *box, const QString &text)
{
    box->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_Delete);
    QTest::keyClicks(box, text);
}

void ClickButton(const QWidget *form, const QString &name)
{
    QTest::mouseClick(FindControl<QAbstractButton>(form, name), Qt::LeftButton);
}

QString BoxText(const QWidget *form, const QString &name)
{
    const auto *box = FindControl<QLineEdit>(form, name);
    return box ? box->text() : u"(none)"_s;
}

QString ShownHelpTopic()
{
    const QWidget *window = FindForm(u"HelpWindow"_s);
    if (!window || !window->isVisible())
        return u"(no help window)"_s;
    return FindControl<QTextBrowser>(window, u"helpBrowser"_s)->documentTitle();
}

QString HelpTopicLacks(int topic, const QString &title, const QStringList &texts,
                       const QSize &size, const QString &screenshot)
{
    ShowHelpTopic(topic);
    QWidget *window = FindForm(u"HelpWindow"_s);
    if (!window || !QTest::qWaitForWindowExposed(window))
        return u"(no help window)"_s;
    const auto *page = FindControl<QTextBrowser>(window, u"helpBrowser"_s);
    if (!QTest::qWaitFor([&] { return page->documentTitle() == title; }))
        return page->documentTitle();
    QStringList lacking;
    for (const QString &text : texts) {
        if (!page->toPlainText().contains(text))
            lacking << text;
    }
    window->resize(size);
    SaveScreenshot(window, screenshot);
    return lacking.join(u"; "_s);
}
