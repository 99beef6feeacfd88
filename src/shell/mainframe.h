#pragma once

#include <QMainWindow>

class QMdiArea;

// The program's frame: the window every task form opens inside.
class MainFrame : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainFrame(QWidget *parent = nullptr);

    QMdiArea *mdiArea() const { return m_mdiArea; }

private:
    QMdiArea *m_mdiArea;
};
