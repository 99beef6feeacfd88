#pragma once

class QComboBox;

// A lookup combo is used by picking from its list with the mouse only: every key but Tab (and
// Shift+Tab) is discarded, in the box and in its open list, and so is the wheel, so that the
// record shown changes only when the user picks one.
void MakePickOnly(QComboBox *combo);
