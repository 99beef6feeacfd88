#pragma once

#include <QHash>
#include <QStyle>
#include <QToolBar>

class QToolButton;

// The frame's toolbar Toolbar1. Each button and each drop-down item carries its key as its
// name ("Open", "Book", ..., "TitleRep"); the frame dispatches on the key.
class FrameToolbar : public QToolBar
{
    Q_OBJECT

public:
    explicit FrameToolbar(QWidget *parent = nullptr);

    QToolButton *button(const QString &key) const;
    QAction *dropDownItem(const QString &key) const;

Q_SIGNALS:
    void buttonClicked(const QString &key);
    void dropDownItemClicked(QAction *item);

private:
    QToolButton *addButton(const QString &key, const QString &caption, const QString &toolTip,
                           const QIcon &icon);
    QIcon standard(QStyle::StandardPixmap icon) const;
    void addDropDown(QToolButton *button, const QList<std::pair<QString, QString>> &items);

    QHash<QString, QToolButton *> m_buttons;
    QHash<QString, QAction *> m_dropDownItems;
};
