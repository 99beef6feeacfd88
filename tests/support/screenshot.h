#pragma once

#include <QString>

class QWidget;

// Saves a picture of the widget as <name>.png in the folder named by $SHELVANE_SCREENSHOTS
// (the build's screenshots folder under CTest), so that a person can look at the form.
// Answers the file's path, empty when it could not be written.
QString SaveScreenshot(QWidget *widget, const QString &name);
