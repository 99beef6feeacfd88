#pragma once

class QAbstractButton;

// The four move buttons of a record form.
struct NavigationButtons
{
    QAbstractButton *first;
    QAbstractButton *previous;
    QAbstractButton *next;
    QAbstractButton *last;
};

// A record set's position as the forms count it: no current record (a negative position)
// counts as 0.
int RecordPosition(int absolutePosition);

// Enables the move buttons for the current record: all four, then First and Previous off
// before the second record, Next and Last off on the last one. With one record (or none)
// all four are off.
void EnableNavigation(const NavigationButtons &buttons, int position, int count);
