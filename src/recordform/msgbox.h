#pragma once

#include <QString>

// The program's message boxes take the style and give the answer as plain numbers, so that a
// message reads as "OK with the exclamation icon" wherever it is shown.
namespace Vb {
enum Style : int {
    OKOnly = 0,
    OKCancel = 1,
    YesNoCancel = 3,
    YesNo = 4,
    Critical = 16,
    Question = 32,
    Exclamation = 48,
    Information = 64,
};
enum Answer : int { OK = 1, Cancel = 2, Yes = 6, No = 7 };
} // namespace Vb

// Shows a modal message box over the active window and answers with the button pressed.
// `style` is one button set plus at most one icon; "\r\n" in `text` is a line break. An
// empty title shows the program's title.
int MsgBox(const QString &text, int style, const QString &title);
