#include "app/frametoolbar.h"

#include "app/toolbaricons.h"

#include <QMenu>
#include <QStyle>
#include <QToolButton>

using namespace Qt::StringLiterals;

FrameToolbar::FrameToolbar(QWidget *parent)
    : QToolBar(parent)
{
    setObjectName(u"Toolbar1"_s);
    setWindowTitle(u"Toolbar"_s);
    setMovable(false);
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);

    // The open button's tip is the one it has always had.
    addButton(u"Open"_s, u"Open File"_s, u"Maintain Books"_s,
              standard(QStyle::SP_DialogOpenButton));
    addSeparator();
    addButton(u"Book"_s, u"Books"_s, {}, ToolbarIcons::book(), u"mnuBooks"_s);
    addButton(u"Author"_s, u"Authors"_s, u"Maintain Authors"_s, ToolbarIcons::author(),
              u"mnuAuthorS"_s);
    addButton(u"Publisher"_s, u"Publishers"_s, u"Maintain Publishers"_s,
              ToolbarIcons::publisher(), u"mnuPublishers"_s);
    addButton(u"Topic"_s, u"Topics"_s, u"Maintain Topics"_s, ToolbarIcons::topic(),
              u"mnuTopicS"_s);
    addSeparator();
    addDropDown(addButton(u"Reports"_s, u"Reports"_s, u"Go to report selector screen"_s,
                          standard(QStyle::SP_FileDialogDetailedView)),
                {{u"TitleRep"_s, u"by Title"_s, u"mnuRepTitleOrder"_s},
                 {u"AuthorRep"_s, u"by Author"_s, u"mnuRepAuthorOrder"_s},
                 {u"TopicRep"_s, u"by Topic"_s, u"mnuRepTopicOrder"_s}});
    addDropDown(addButton(u"ListBooks"_s, u"List Books"_s,
                          u"List the books by author, by topic or all of them"_s,
                          standard(QStyle::SP_FileDialogListView)),
                {{u"ByAuthor"_s, u"By Author"_s, u"mnuAuthorSrch"_s},
                 {u"ByTopic"_s, u"By Topic"_s, u"mnuTopicSrch"_s},
                 {u"CompleteCat"_s, u"Complete Catalogue"_s, u"mnuBookList"_s}});
    addButton(u"Search"_s, u"Search"_s, {}, standard(QStyle::SP_FileDialogContentsView),
              u"mnuSearch"_s);
    addSeparator();
    addButton(u"Exit"_s, u"Exit"_s, u"Exit"_s, standard(QStyle::SP_DialogCloseButton));
}

QToolButton *FrameToolbar::button(const QString &key) const
{
    return m_buttons.value(key);
}

QAction *FrameToolbar::dropDownItem(const QString &key) const
{
    return m_dropDownItems.value(key);
}

QString FrameToolbar::menuEntryOf(const QString &key) const
{
    return m_menuEntries.value(key);
}

QList<QAction *> FrameToolbar::dropDownItemsFor(const QString &menuEntry) const
{
    QList<QAction *> items;
    for (auto item = m_dropDownItems.cbegin(); item != m_dropDownItems.cend(); ++item) {
        if (m_menuEntries.value(item.key()) == menuEntry)
            items.append(item.value());
    }
    return items;
}

QToolButton *FrameToolbar::addButton(const QString &key, const QString &caption,
                                     const QString &toolTip, const QIcon &icon,
                                     const QString &menuEntry)
{
    // Plain buttons rather than actions: an action would lend its caption as a tip to the
    // buttons that have none.
    auto *button = new QToolButton(this);
    button->setObjectName(key);
    button->setText(caption);
    button->setToolTip(toolTip);
    button->setIcon(icon);
    button->setIconSize(iconSize());
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    addWidget(button);
    m_buttons.insert(key, button);
    if (!menuEntry.isEmpty())
        m_menuEntries.insert(key, menuEntry);
    connect(button, &QToolButton::clicked, this, [this, key] { Q_EMIT buttonClicked(key); });
    return button;
}

QIcon FrameToolbar::standard(QStyle::StandardPixmap icon) const
{
    return style()->standardIcon(icon);
}

void FrameToolbar::addDropDown(QToolButton *button, const QList<Item> &items)
{
    auto *menu = new QMenu(button);
    menu->setObjectName(button->objectName() + u"Menu"_s);
    for (const Item &each : items) {
        QAction *item = menu->addAction(each.caption);
        item->setObjectName(each.key);
        m_dropDownItems.insert(each.key, item);
        m_menuEntries.insert(each.key, each.menuEntry);
        connect(item, &QAction::triggered, this, [this, item] { Q_EMIT dropDownItemClicked(item); });
    }
    button->setMenu(menu);
    // The face answers like any other button; the arrow opens the items.
    button->setPopupMode(QToolButton::MenuButtonPopup);
}
