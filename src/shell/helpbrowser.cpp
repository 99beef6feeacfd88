#include "shell/helpbrowser.h"

#include <QHelpEngineCore>

using namespace Qt::StringLiterals;

HelpBrowser::HelpBrowser(QHelpEngineCore *engine, QWidget *parent)
    : QTextBrowser(parent)
    , m_engine(engine)
{
}

QVariant HelpBrowser::loadResource(int type, const QUrl &name)
{
    if (name.scheme() == u"qthelp"_s)
        return m_engine->fileData(name);
    return QTextBrowser::loadResource(type, name);
}
