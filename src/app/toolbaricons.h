#pragma once

#include <QIcon>

// The pictures of the toolbar buttons that no standard icon fits: drawn, so that they
// scale cleanly and match one another.
namespace ToolbarIcons {
QIcon book();
// A book lying open: the picked book of the browsers' trees.
QIcon openBook();
QIcon author();
QIcon publisher();
QIcon topic();
} // namespace ToolbarIcons
