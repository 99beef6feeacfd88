#pragma once

class MainFrame;

// Makes the search form, the book listing and the two tree browsers known to the frame.
void RegisterSearchForms(MainFrame &frame);
