#include "app/helpbrowser.h"

#include <QDesktopServices>
#include <QHelpEngineCore>

using namespace Qt::StringLiterals;

HelpBrowser::HelpBrowser(QHelpEngineCore *engine, QWidget *parent)
    : QTextBrowser(parent)
    , m_engine(engine)
{
    // The browser's own link handling hands qthelp:// addresses to the desktop, which cannot
    // open them: every link is followed here instead.
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::followLink);
}

QVariant HelpBrowser::loadResource(int type, const QUrl &name)
{
    if (name.scheme() == u"qthelp"_s)
        return m_engine->fileData(name);
    return QTextBrowser::loadResource(type, name);
}

void HelpBrowser::followLink(const QUrl &link)
{
    const QUrl target = source().resolved(link);
    if (target.scheme() == u"qthelp"_s)
        setSource(target);
    else
        QDesktopServices::openUrl(target);
}
