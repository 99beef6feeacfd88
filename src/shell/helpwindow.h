#pragma once

#include <QWidget>

class HelpBrowser;
class QHelpEngine;

// The program's help window: the table of contents of the help file beside the topic shown.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    explicit HelpWindow(const QString &collectionFile, QWidget *parent = nullptr);

    // Shows the topic with that number; false when the help file has no such topic.
    bool showTopic(int topic);
    // The address of the page shown.
    QUrl currentPage() const;

private:
    QHelpEngine *m_engine;
    HelpBrowser *m_browser;
};
