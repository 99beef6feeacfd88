#pragma once

class QWidget;

// A mandatory field is yellow while a new record is being added and white otherwise, so that
// the user sees what must be filled in before confirming.
void SetMandatoryColour(QWidget *field, bool adding);
