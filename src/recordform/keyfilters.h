#pragma once

class QWidget;

// What a box lets through as the user types.
enum class KeyFilter {
    DigitsOnly, // KeyAsciiDigitsOnly: control characters, the digits and the colon
    Price,      // as DigitsOnly, and the full stop of pounds and pence
    Percentage, // as Price, and the signs of a rise or a fall
    PickOnly,   // nothing at all but Tab: a lookup combo is used by picking from its list
    LettersAndStar, // KeyAsciiLettersAndStar: the search's text criteria
};

// The shared test of numeric boxes: answers the character code unchanged when it may be
// typed (codes below 32, and 48 to 58, the digits and, kept on purpose, the colon), and 0
// when it is to be swallowed.
int KeyAsciiDigitsOnly(int keyAscii);
// The price boxes' variant: the full stop always, otherwise KeyAsciiDigitsOnly.
int KeyAsciiPrice(int keyAscii);
// The percentage box's variant: the full stop, "-" and "+" always, otherwise
// KeyAsciiDigitsOnly. A comma never passes, whatever the locale.
int KeyAsciiPercentage(int keyAscii);

// The search's text criteria: the letters A to Z and a to z, the "*" of a partial match and
// Backspace; everything else, the blank included, is swallowed (answered as 0).
int KeyAsciiLettersAndStar(int keyAscii);

// Filters the keys typed into `control` from now on. Keys that type no character (arrows,
// Delete, Home) pass, except where the filter takes every key (PickOnly).
void InstallKeyFilter(QWidget *control, KeyFilter kind);
