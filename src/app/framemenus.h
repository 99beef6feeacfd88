#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

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
    // The entries that work on the open catalogue: a form of an area or a command.
    QStringList taskEntries;
};

FrameMenus buildFrameMenus(QMainWindow *frame);
