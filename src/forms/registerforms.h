#pragma once

class MainFrame;

// Registers the forms and commands of every area with the frame.
void RegisterAllForms(MainFrame &frame);
