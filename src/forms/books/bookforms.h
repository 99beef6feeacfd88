#pragma once

#include <QString>

class MainFrame;

// The book form's name, by which the other areas reach it through the frame.
inline const QString BookFormName = QStringLiteral("frmBookMaintenance");

// Makes the book form and its two pickers known to the frame: how each is made, its help
// topic and prompts, and the Books command.
void RegisterBookForms(MainFrame &frame);
