#include "recordform/promptpreference.h"

#include "recordform/prompttexts.h"

#include <QAction>
#include <QApplication>
#include <QSettings>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

const QString Show = u"Y"_s;
const QString DontShow = u"N"_s;

QAction *frameItem(const QString &itemName)
{
    const QList<QWidget *> windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        if (window->objectName() == u"MDIForm1")
            return window->findChild<QAction *>(itemName);
    }
    return nullptr;
}

void setMark(const QString &itemName, bool checked)
{
    if (QAction *item = frameItem(itemName))
        item->setChecked(checked);
}

} // namespace

QString PromptKey(PromptKind kind)
{
    return kind == PromptKind::AddNew ? u"AddNewPrompt"_s : u"DeletePrompt"_s;
}

QString PromptSetting(const QString &formName, PromptKind kind)
{
    const QSettings store;
    return store.value(formName + u'/' + PromptKey(kind), Show).toString();
}

void StorePromptSetting(const QString &formName, PromptKind kind, const QString &value)
{
    QSettings store;
    store.setValue(formName + u'/' + PromptKey(kind), value);
}

bool PromptWanted(const QString &formName, PromptKind kind)
{
    return PromptSetting(formName, kind) == Show;
}

void SetAllHelpPrompts(bool on)
{
    const QString value = on ? Show : DontShow;
    for (PromptKind kind : {PromptKind::AddNew, PromptKind::Delete}) {
        for (const QString &form : FormsWithPrompt(kind))
            StorePromptSetting(form, kind, value);
    }
    setMark(u"mnuOff"_s, !on);
    setMark(u"mnuOn"_s, on);
}

void ClearHelpPromptMark(const QString &itemName)
{
    setMark(itemName, false);
}
