#include "recordform/lockkeys.h"

#include <QGuiApplication>
#include <QKeyEvent>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

using namespace Qt::StringLiterals;

namespace {

struct LockState
{
    bool capsLock = false;
    bool numLock = false;
    bool insert = false;
};

LockState &tracked()
{
    static LockState state;
    return state;
}

// The X11 modifier mask of a key event holds the lock states as they were before the key.
constexpr quint32 X11LockMask = 0x02;
constexpr quint32 X11NumLockMask = 0x10;

void readX11Modifiers(const QKeyEvent *event)
{
    // A key made up by the program itself carries no state of the keyboard.
    if (QGuiApplication::platformName() != u"xcb" || event->nativeScanCode() == 0)
        return;
    tracked().capsLock = event->nativeModifiers() & X11LockMask;
    tracked().numLock = event->nativeModifiers() & X11NumLockMask;
}

} // namespace

bool IsLockKeyOn(LockKey key)
{
#ifdef Q_OS_WIN
    switch (key) {
    case LockKey::CapsLock:
        return GetKeyState(VK_CAPITAL) & 1;
    case LockKey::NumLock:
        return GetKeyState(VK_NUMLOCK) & 1;
    case LockKey::Insert:
        return GetKeyState(VK_INSERT) & 1;
    }
    return false;
#else
    switch (key) {
    case LockKey::CapsLock:
        return tracked().capsLock;
    case LockKey::NumLock:
        return tracked().numLock;
    case LockKey::Insert:
        return tracked().insert;
    }
    return false;
#endif
}

void NoteKeyEvent(const QKeyEvent *event)
{
    if (event->type() != QEvent::KeyPress || event->isAutoRepeat())
        return;
    readX11Modifiers(event);
    // The toggle itself: the modifiers read above are from before this key.
    switch (event->key()) {
    case Qt::Key_CapsLock:
        tracked().capsLock = !tracked().capsLock;
        break;
    case Qt::Key_NumLock:
        tracked().numLock = !tracked().numLock;
        break;
    case Qt::Key_Insert:
        tracked().insert = !tracked().insert;
        break;
    default:
        break;
    }
}
