#pragma once

class MainFrame;

// Makes the statistics and the price maintenance forms known to the frame.
void RegisterFigureForms(MainFrame &frame);
