#include "shell/mainframe.h"

#include <QMdiArea>
#include <QStatusBar>

using namespace Qt::StringLiterals;

MainFrame::MainFrame(QWidget *parent)
    : QMainWindow(parent)
    , m_mdiArea(new QMdiArea(this))
{
    setObjectName(u"MDIForm1"_s);
    setWindowTitle(u"Shelvane"_s);
    m_mdiArea->setObjectName(u"mdiArea"_s);
    m_mdiArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_mdiArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(m_mdiArea);
    statusBar()->setObjectName(u"stbMain"_s);
    resize(1024, 720);
}
