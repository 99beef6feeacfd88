#pragma once

#include <QTextBrowser>

class QHelpEngineCore;

// Shows pages of the compiled help file: every qthelp:// address, the page and its pictures
// and style sheet alike, is read from the help engine.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    HelpBrowser(QHelpEngineCore *engine, QWidget *parent = nullptr);

    QVariant loadResource(int type, const QUrl &name) override;

private:
    QHelpEngineCore *m_engine;
};
