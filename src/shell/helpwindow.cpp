#include "shell/helpwindow.h"

#include "shell/helpbrowser.h"

#include <QHBoxLayout>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpLink>
#include <QSplitter>

using namespace Qt::StringLiterals;

HelpWindow::HelpWindow(const QString &collectionFile, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_engine(new QHelpEngine(collectionFile, this))
    , m_browser(new HelpBrowser(m_engine, this))
{
    setObjectName(u"HelpWindow"_s);
    setWindowTitle(u"Shelvane Help"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    // An open help window must not keep the program running once the main window is gone.
    setAttribute(Qt::WA_QuitOnClose, false);
    // The help file sits beside the program, where the user may not be allowed to write.
    m_engine->setReadOnly(true);
    m_engine->setupData();

    m_browser->setObjectName(u"helpBrowser"_s);
    m_browser->setOpenExternalLinks(true);
    QHelpContentWidget *contents = m_engine->contentWidget();
    contents->setObjectName(u"helpContents"_s);
    // The contents are read in the background; open the first level once they are there.
    connect(m_engine->contentModel(), &QHelpContentModel::contentsCreated, contents,
            [contents] { contents->expandToDepth(0); });
    connect(contents, &QHelpContentWidget::linkActivated, m_browser,
            [this](const QUrl &page) { m_browser->setSource(page); });

    auto *splitter = new QSplitter(this);
    splitter->addWidget(contents);
    splitter->addWidget(m_browser);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({220, 580});
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    resize(860, 620);
}

bool HelpWindow::showTopic(int topic)
{
    const QList<QHelpLink> links = m_engine->documentsForIdentifier(QString::number(topic));
    if (links.isEmpty())
        return false;
    m_browser->setSource(links.constFirst().url);
    return true;
}

QUrl HelpWindow::currentPage() const
{
    return m_browser->source();
}
