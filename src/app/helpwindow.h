#pragma once

#include <QWidget>

class HelpBrowser;
class QHelpEngine;
class QTabWidget;

// The program's help window: the contents, an index of keywords and a full-text search beside
// the topic shown, with Back and Forward. Its size and place are kept between runs; it opens
// wholly on the screen it belongs to, whatever place was kept.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    explicit HelpWindow(const QString &collectionFile, QWidget *parent = nullptr);

    // Shows the topic with that number; false when the help file has no such topic.
    bool showTopic(int topic);
    // The address of the page shown.
    QUrl currentPage() const;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void addNavigation();
    QWidget *contentsPane();
    QWidget *indexPane();
    QWidget *searchPane();
    void restorePlace();
    void keepOnScreen();

    QHelpEngine *m_engine;
    HelpBrowser *m_browser;
    QTabWidget *m_panes;
};
