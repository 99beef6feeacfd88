#pragma once

class MainFrame;

// Makes the book form and its two pickers known to the frame by name.
void RegisterBookForms(MainFrame &frame);
