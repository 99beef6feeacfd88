#pragma once

class QKeyEvent;

// The toggle keys a record form's status bar shows: Caps Lock, Num Lock and Insert.
enum class LockKey { CapsLock, NumLock, Insert };

// Whether a toggle key is on now. Windows answers from the keyboard itself; elsewhere the
// state is what the key events seen so far tell, so it is known from the first key typed.
bool IsLockKeyOn(LockKey key);

// Keeps the state up to date from a key event anywhere in the program.
void NoteKeyEvent(const QKeyEvent *event);
