#include "app/formregistry.h"

#include "app/helptopics.h"
#include "recordform/confirmexit.h"
#include "recordform/runtimeerrorreport.h"

#include <QAction>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QWidget>

FormRegistry::FormRegistry(QWidget *frame, QMdiArea *area)
    : QObject(frame)
    , m_frame(frame)
    , m_area(area)
{
}

FormRegistry::~FormRegistry()
{
    // The forms die with the frame; their bookkeeping must not outlive this object.
    for (const Loaded &entry : std::as_const(m_loaded)) {
        if (entry.form)
            disconnect(entry.form, nullptr, this, nullptr);
    }
}

void FormRegistry::registerForm(FormEntry entry)
{
    if (entry.helpTopic)
        RegisterHelpTopic(entry.name, entry.helpTopic);
    RegisterPromptWording(entry.name, PromptKind::AddNew, entry.addPrompt);
    RegisterPromptWording(entry.name, PromptKind::Delete, entry.deletePrompt);
    const QString name = entry.name;
    m_registrations.insert(name, std::move(entry));
}

void FormRegistry::registerForm(const QString &name, Placement placement, Factory factory)
{
    FormEntry entry;
    entry.name = name;
    entry.placement = placement;
    entry.factory = std::move(factory);
    m_registrations.insert(name, std::move(entry));
}

bool FormRegistry::isRegistered(const QString &name) const
{
    return m_registrations.contains(name);
}

const FormEntry *FormRegistry::entry(const QString &name) const
{
    const auto found = m_registrations.constFind(name);
    return found == m_registrations.cend() ? nullptr : &*found;
}

const FormEntry *FormRegistry::entryOf(const QWidget *form) const
{
    const qsizetype index = indexOf(form);
    return index < 0 ? nullptr : entry(m_loaded.at(index).name);
}

QList<FormEntry> FormRegistry::entries() const
{
    return m_registrations.values();
}

QWidget *FormRegistry::load(const QString &name)
{
    if (QWidget *loaded = find(name))
        return loaded;
    const auto registration = m_registrations.constFind(name);
    if (registration == m_registrations.cend())
        return nullptr;

    QWidget *form = registration->factory();
    if (form->objectName().isEmpty())
        form->setObjectName(name);
    form->setAttribute(Qt::WA_DeleteOnClose);
    m_loaded.append(Loaded{name, form, form, nullptr, {}});
    place(form, registration->placement, m_loaded.last());
    connect(form, &QObject::destroyed, this, &FormRegistry::forget);
    return form;
}

void FormRegistry::place(QWidget *form, Placement placement, Loaded &entry)
{
    if (placement == Placement::Window) {
        form->setParent(m_frame, Qt::Dialog);
        return;
    }
    const QSize designed = form->size();
    entry.subWindow = m_area->addSubWindow(form);
    entry.subWindow->hide();
    // The frame would shrink a form to its smallest; it keeps the size it was designed at.
    entry.subWindow->ensurePolished();
    if (QLayout *layout = entry.subWindow->layout())
        layout->activate();
    // Tiling never squeezes a form below the size at which its fields and buttons still fit:
    // where the frame has less room, its own scroll bars take over.
    form->setMinimumSize(form->minimumSizeHint());
    entry.subWindow->resize(designed + (entry.subWindow->size() - form->size()));
}

QWidget *FormRegistry::show(const QString &name)
{
    QWidget *form = load(name);
    if (!form)
        return nullptr;
    QWidget *window = windowOf(form);
    form->show();
    window->show();
    if (auto *subWindow = qobject_cast<QMdiSubWindow *>(window)) {
        keepInsideArea(subWindow);
        m_area->setActiveSubWindow(subWindow);
    } else {
        window->raise();
        window->activateWindow();
    }
    return form;
}

// The frame's own placement may put a form partly past its right or bottom edge, and a form
// designed larger than the frame's workspace would hide its buttons and scroll bars: a form
// is made to fit, never below its smallest size, and moved back in as far as the frame's
// size allows.
void FormRegistry::keepInsideArea(QMdiSubWindow *subWindow) const
{
    if (subWindow->isMaximized() || subWindow->isMinimized())
        return;
    const QRect area = m_area->viewport()->rect();
    subWindow->resize(subWindow->size().boundedTo(area.size()).expandedTo(subWindow->minimumSizeHint()));
    QRect placed = subWindow->geometry();
    placed.moveRight(std::min(placed.right(), area.right()));
    placed.moveBottom(std::min(placed.bottom(), area.bottom()));
    placed.moveLeft(std::max(placed.left(), area.left()));
    placed.moveTop(std::max(placed.top(), area.top()));
    subWindow->move(placed.topLeft());
}

QWidget *FormRegistry::find(const QString &name) const
{
    for (const Loaded &entry : m_loaded) {
        if (entry.name == name)
            return entry.form;
    }
    return nullptr;
}

QList<QWidget *> FormRegistry::loadedForms() const
{
    QList<QWidget *> forms;
    for (const Loaded &entry : m_loaded) {
        if (entry.form)
            forms.append(entry.form);
    }
    return forms;
}

QWidget *FormRegistry::windowOf(QWidget *form) const
{
    const qsizetype index = indexOf(form);
    if (index >= 0 && m_loaded.at(index).subWindow)
        return m_loaded.at(index).subWindow;
    return form;
}

bool FormRegistry::unload(QWidget *form)
{
    if (indexOf(form) < 0)
        return true;
    // Closing the frame of a child closes the form inside it, which may refuse.
    if (!windowOf(form)->close())
        return false;
    // The form is deleted later; to the rest of the program it is gone now.
    forget(form);
    return true;
}

bool FormRegistry::unloadAll()
{
    const QList<QWidget *> forms = loadedForms();
    // Every form with a pending edit is asked before any form closes, in load order, and
    // none closes when one of them answers Cancel.
    QList<ExitQuestion *> asked;
    for (QWidget *form : forms) {
        ExitQuestion *question = ExitQuestion::of(form);
        if (!question)
            continue;
        asked.append(question);
        bool mayClose = false;
        RunHandler([&] { mayClose = question->askAhead(); });
        if (!mayClose) {
            for (ExitQuestion *answered : std::as_const(asked))
                answered->forget();
            return false;
        }
    }
    bool allGone = true;
    for (QWidget *form : forms)
        allGone = unload(form) && allGone;
    return allGone;
}

void FormRegistry::disableWhileLoaded(const QString &name, QAction *action)
{
    for (Loaded &entry : m_loaded) {
        if (entry.name == name) {
            action->setEnabled(false);
            entry.disabledActions.append(action);
            return;
        }
    }
}

qsizetype FormRegistry::indexOf(const QObject *key) const
{
    for (qsizetype i = 0; i < m_loaded.size(); ++i) {
        if (m_loaded.at(i).key == key)
            return i;
    }
    return -1;
}

void FormRegistry::forget(const QObject *key)
{
    const qsizetype index = indexOf(key);
    if (index < 0)
        return;
    const Loaded entry = m_loaded.takeAt(index);
    for (const QPointer<QAction> &action : entry.disabledActions) {
        if (action)
            action->setEnabled(true);
    }
    if (entry.subWindow)
        entry.subWindow->deleteLater();
    Q_EMIT formUnloaded(entry.name);
}
