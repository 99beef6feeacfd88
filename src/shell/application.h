#pragma once

#include <QApplication>

// The program's application object. It carries the settings store's name, reports any
// run-time error that escapes an event handler (the handler is abandoned, the program goes
// on) and opens the help of the active form on F1.
class Application : public QApplication
{
    Q_OBJECT

public:
    Application(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;
};
