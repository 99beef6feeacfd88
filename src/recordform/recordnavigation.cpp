#include "recordform/recordnavigation.h"

#include <QAbstractButton>

int RecordPosition(int absolutePosition)
{
    return absolutePosition < 0 ? 0 : absolutePosition;
}

void EnableNavigation(const NavigationButtons &buttons, int position, int count)
{
    position = RecordPosition(position);
    const bool atStart = position < 2;
    // Deliberately "equals": an empty set (position 0 of 0) counts as being on its last row.
    const bool atEnd = position == count;
    buttons.first->setEnabled(!atStart);
    buttons.previous->setEnabled(!atStart);
    buttons.next->setEnabled(!atEnd);
    buttons.last->setEnabled(!atEnd);
}
