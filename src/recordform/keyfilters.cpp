#include "recordform/keyfilters.h"

#include <QEvent>
#include <QKeyEvent>
#include <QWidget>

namespace {

constexpr int FirstPrintable = 32;
constexpr int Digit0 = 48;
constexpr int Colon = 58;
constexpr int FullStop = 46;
constexpr int Backspace = 8;
constexpr int Star = 42;
constexpr int Minus = 45;
constexpr int Plus = 43;

bool isTab(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
}

int keptCode(int code, KeyFilter kind)
{
    switch (kind) {
    case KeyFilter::Price:
        return KeyAsciiPrice(code);
    case KeyFilter::LettersAndStar:
        return KeyAsciiLettersAndStar(code);
    case KeyFilter::Percentage:
        return KeyAsciiPercentage(code);
    default:
        return KeyAsciiDigitsOnly(code);
    }
}

// Only a typed character is tested; a key that types nothing passes, and so does a key held
// with Ctrl or Alt, which is a command (select all, paste) or an access key, not a character.
bool swallowsCharacter(const QKeyEvent *event, KeyFilter kind)
{
    const QString text = event->text();
    const Qt::KeyboardModifiers command = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    // Tab moves on to the next box; it is never a character typed into this one.
    if (text.isEmpty() || event->modifiers() & command || isTab(event))
        return false;
    return keptCode(text.at(0).unicode(), kind) == 0;
}

class KeyFilterObject : public QObject
{
public:
    KeyFilterObject(KeyFilter kind, QObject *parent)
        : QObject(parent)
        , m_kind(kind)
    {
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const auto *key = static_cast<const QKeyEvent *>(event);
            return m_kind == KeyFilter::PickOnly ? !isTab(key) : swallowsCharacter(key, m_kind);
        }
        // The wheel would change a lookup's choice without a pick from its list.
        if (m_kind == KeyFilter::PickOnly && event->type() == QEvent::Wheel)
            return true;
        return QObject::eventFilter(watched, event);
    }

private:
    KeyFilter m_kind;
};

} // namespace

int KeyAsciiDigitsOnly(int keyAscii)
{
    if (keyAscii < FirstPrintable)
        return keyAscii;
    if (keyAscii >= Digit0 && keyAscii <= Colon)
        return keyAscii;
    return 0;
}

int KeyAsciiPrice(int keyAscii)
{
    return keyAscii == FullStop ? keyAscii : KeyAsciiDigitsOnly(keyAscii);
}

int KeyAsciiLettersAndStar(int keyAscii)
{
    const bool letter = (keyAscii >= 'A' && keyAscii <= 'Z') || (keyAscii >= 'a' && keyAscii <= 'z');
    return letter || keyAscii == Star || keyAscii == Backspace ? keyAscii : 0;
}

int KeyAsciiPercentage(int keyAscii)
{
    if (keyAscii == FullStop || keyAscii == Minus || keyAscii == Plus)
        return keyAscii;
    return KeyAsciiDigitsOnly(keyAscii);
}

void InstallKeyFilter(QWidget *control, KeyFilter kind)
{
    control->installEventFilter(new KeyFilterObject(kind, control));
}
