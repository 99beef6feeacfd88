#pragma once

class MainFrame;

// Makes the printing area's forms and commands known to the frame.
void RegisterPrintingForms(MainFrame &frame);
