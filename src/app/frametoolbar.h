#pragma once

#include <QHash>
#include <QStyle>
#include <QToolBar>

class QToolButton;

// The frame's toolbar Toolbar1. Each button and each drop-down item carries its key as its
// name ("Open", "Book", ..., "TitleRep"); the frame dispatches on the key. Most of them stand
// for a menu entry and do what it does.
class FrameToolbar : public QToolBar
{
    Q_OBJECT

public:
    explicit FrameToolbar(QWidget *parent = nullptr);

    QToolButton *button(const QString &key) const;
    QAction *dropDownItem(const QString &key) const;
    // The menu entry a button or drop-down item stands for; empty for the others (Open, Exit,
    // and the faces of the two drop-down buttons).
    QString menuEntryOf(const QString &key) const;
    // The drop-down items that stand for the entry.
    QList<QAction *> dropDownItemsFor(const QString &menuEntry) const;

Q_SIGNALS:
    void buttonClicked(const QString &key);
    void dropDownItemClicked(QAction *item);

private:
    // A drop-down item: its key, its caption and the menu entry it stands for.
    struct Item
    {
        QString key;
        QString caption;
        QString menuEntry;
    };

    QToolButton *addButton(const QString &key, const QString &caption, const QString &toolTip,
                           const QIcon &icon, const QString &menuEntry = {});
    QIcon standard(QStyle::StandardPixmap icon) const;
    void addDropDown(QToolButton *button, const QList<Item> &items);

    QHash<QString, QToolButton *> m_buttons;
    QHash<QString, QAction *> m_dropDownItems;
    QHash<QString, QString> m_menuEntries; // by key
};
