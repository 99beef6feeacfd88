#include "recordform/recordstatusbar.h"

#include "recordform/lockkeys.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int ClockIntervalMs = 1000;

// Sees every key of the program once, however many status bars there are, and tells them.
class KeyWatcher : public QObject
{
    Q_OBJECT

public:
    static KeyWatcher &instance()
    {
        static auto *watcher = new KeyWatcher(QCoreApplication::instance());
        return *watcher;
    }

Q_SIGNALS:
    void keysChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress && watched->isWidgetType()
            && isNewKey(event, watched)) {
            NoteKeyEvent(static_cast<const QKeyEvent *>(event));
            Q_EMIT keysChanged();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    explicit KeyWatcher(QObject *parent)
        : QObject(parent)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    // A key that no widget takes travels up to the parents of the one it was sent to; the
    // filter sees it at each of them, but it is one key.
    bool isNewKey(const QEvent *event, QObject *watched)
    {
        auto *widget = static_cast<QWidget *>(watched);
        if (event == m_lastEvent && m_firstReceiver && widget != m_firstReceiver
            && widget->isAncestorOf(m_firstReceiver))
            return false;
        m_lastEvent = event;
        m_firstReceiver = widget;
        return true;
    }

    const QEvent *m_lastEvent = nullptr;
    QPointer<QWidget> m_firstReceiver;
};

QString captionOf(RecordStatusBar::Panel kind)
{
    switch (kind) {
    case RecordStatusBar::Panel::CapsLock:
        return u"CAPS"_s;
    case RecordStatusBar::Panel::NumLock:
        return u"NUM"_s;
    case RecordStatusBar::Panel::Insert:
        return u"INS"_s;
    default:
        return {};
    }
}

std::optional<LockKey> lockKeyOf(RecordStatusBar::Panel kind)
{
    switch (kind) {
    case RecordStatusBar::Panel::CapsLock:
        return LockKey::CapsLock;
    case RecordStatusBar::Panel::NumLock:
        return LockKey::NumLock;
    case RecordStatusBar::Panel::Insert:
        return LockKey::Insert;
    default:
        return std::nullopt;
    }
}

} // namespace

RecordStatusBar::RecordStatusBar(const QList<Panel> &panels, QWidget *parent)
    : QStatusBar(parent)
    , m_kinds(panels)
    , m_clock(new QTimer(this))
{
    setSizeGripEnabled(false);
    for (qsizetype i = 0; i < panels.size(); ++i) {
        auto *label = new QLabel(captionOf(panels.at(i)), this);
        label->setObjectName(u"Panel"_s + QString::number(i + 1));
        label->setFrameShape(QFrame::Panel);
        label->setFrameShadow(QFrame::Sunken);
        label->setContentsMargins(4, 0, 4, 0);
        // The first panel takes the room left over, as the form's own message line; the
        // others keep room for what they show, such as "Publisher 12345 of 12345".
        if (i > 0 && panels.at(i) == Panel::Text)
            label->setMinimumWidth(
                label->fontMetrics().horizontalAdvance(u"Publisher 00000 of 00000"_s));
        addWidget(label, i == 0 ? 1 : 0);
        m_panels.append(label);
    }
    connect(&KeyWatcher::instance(), &KeyWatcher::keysChanged, this,
            &RecordStatusBar::refreshSelfPanels);
    connect(m_clock, &QTimer::timeout, this, &RecordStatusBar::refreshSelfPanels);
    m_clock->start(ClockIntervalMs);
    refreshSelfPanels();
}

void RecordStatusBar::setPanelText(int number, const QString &text)
{
    if (QLabel *label = panel(number))
        label->setText(text);
}

QString RecordStatusBar::panelText(int number) const
{
    const QLabel *label = panel(number);
    return label ? label->text() : QString();
}

QLabel *RecordStatusBar::panel(int number) const
{
    return number >= 1 && number <= m_panels.size() ? m_panels.at(number - 1) : nullptr;
}

void RecordStatusBar::refreshSelfPanels()
{
    const QLocale locale;
    const QDateTime now = QDateTime::currentDateTime();
    for (qsizetype i = 0; i < m_kinds.size(); ++i) {
        const Panel kind = m_kinds.at(i);
        if (const std::optional<LockKey> key = lockKeyOf(kind))
            m_panels.at(i)->setEnabled(IsLockKeyOn(*key));
        else if (kind == Panel::Date)
            m_panels.at(i)->setText(locale.toString(now.date(), QLocale::ShortFormat));
        else if (kind == Panel::Time)
            m_panels.at(i)->setText(locale.toString(now.time(), QLocale::ShortFormat));
    }
}

#include "recordstatusbar.moc"
