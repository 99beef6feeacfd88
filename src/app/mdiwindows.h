#pragma once

class QMdiArea;
class QMenu;

// How Window's arrange commands lay out the frame's child windows; the numbers are the
// modes the commands have always passed.
enum class Arrangement { Cascade = 0, TileHorizontal = 1, TileVertical = 2, ArrangeIcons = 3 };

// Cascade and the two tilings move the visible, non-minimised children, never smaller than
// their forms need (the frame scrolls instead); ArrangeIcons lines the minimised ones up
// along the bottom edge.
void arrangeChildren(QMdiArea *area, Arrangement arrangement);

// Window › List: one item per visible child window, the active one checked; choosing an item
// activates its window.
void fillWindowList(QMenu *list, QMdiArea *area);
