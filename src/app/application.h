#pragma once

#include <QApplication>

// The program's application object. It carries the settings store's name, opens the help
// of the active form on F1 and closes the frame's active child window on Ctrl+F4. Handlers
// report their errors through RunHandler; an error that still escapes one is reported here
// as a last resort rather than ending the program.
class Application : public QApplication
{
    Q_OBJECT

public:
    Application(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;
};
