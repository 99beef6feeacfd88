#pragma once

#include <functional>

class QDataWidgetMapper;
class Recordset;

// What a record form does with an edit still pending when it is closed: asks "Confirm Exit"
// (Yes applies the edit, No drops it, Cancel keeps the form open). The forms differ only in
// how they apply it, so each passes its own steps for Yes, which answer whether the form may
// close. The mapper is submitted first, so that what the user typed counts as an edit.
// Answers whether the form may close; without a pending edit it closes without a question.
bool ConfirmExit(QDataWidgetMapper *mapper, Recordset *recordset,
                 const std::function<bool()> &applyUpdates);
