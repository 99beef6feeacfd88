#pragma once

#include <QHash>
#include <QString>

class QAction;
class QMainWindow;
class QMenu;

// The frame's menu tree, every entry named as the rest of the program refers to it.
struct FrameMenus
{
    QMenu *mnuFile = nullptr;
    QMenu *mnuPrint = nullptr;
    QMenu *mnuListWindows = nullptr;
    // Every item by its name: mnuOpen, mnuBooks, mnuSearch, mnuOn, ...
    QHash<QString, QAction *> items;
};

FrameMenus buildFrameMenus(QMainWindow *frame);
