#pragma once

#include <QTextBrowser>

class QHelpEngineCore;

// Shows pages of the compiled help file: every qthelp:// address, the page and its pictures
// and style sheet alike, is read from the help engine. A link to another topic opens in the
// browser itself; a link to anything else (a web address, mail) goes to the desktop.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    HelpBrowser(QHelpEngineCore *engine, QWidget *parent = nullptr);

    QVariant loadResource(int type, const QUrl &name) override;

    // Follows a link of the page shown, as a click on it does.
    void followLink(const QUrl &link);

private:
    QHelpEngineCore *m_engine;
};
