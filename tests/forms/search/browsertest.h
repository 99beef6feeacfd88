#pragma once

#include "browsefixture.h"

#include <QAbstractItemModelTester>
#include <QIcon>
#include <QModelIndex>
#include <QObject>
#include <QStringList>

#include <memory>
#include <vector>

class QTreeView;

// What a test knows of each browser.
struct BrowserCase
{
    QString form;
    QString menuEntry;
    QString dropDownItem;
    QString tree;
    QString rootImage;
    // The tree's rows straight from SQLite: root key, root text, book key, book title.
    QString rowsSql;
    QString linkTable;
    QString emptyMessage;
    QString emptyTitle;
    QString editTitle;
    QString helpTitle;
};

extern const BrowserCase TopicCase;
extern const BrowserCase AuthorCase;
const BrowserCase &caseNamed(const QString &form);

// The boxes of the picked book's details, in order.
extern const QStringList DetailBoxes;

QTreeView *treeOf(const QWidget *form, const BrowserCase &c);
// A root by its row, or a book by its row under a root.
QModelIndex node(const QTreeView *tree, int row, const QModelIndex &root = {});
int childCount(const QTreeView *tree, const QModelIndex &root = {});
QString text(const QWidget *form, const QString &box);
QStringList details(const QWidget *form);
void click(const QWidget *form, const QString &button);
// A click on a node, its root opened first so that it can be seen.
void clickNode(QTreeView *tree, const QModelIndex &node);
QString key(const QModelIndex &node);
QString tag(const QModelIndex &node);
QIcon picture(const QModelIndex &node);
// Every book node of a book, under whichever roots it stands.
QList<QModelIndex> bookNodes(const QTreeView *tree, const QString &bookId);
// Whether an icon, drawn in a mode, shows the picture of the other.
bool samePicture(const QIcon &shown, const QIcon &picture, QIcon::Mode mode = QIcon::Normal);

// The catalogue opened through the frame for each test, and each browser opened with a model
// tester watching its tree; tests driven for both browsers take the form's name as data.
class BrowserTest : public QObject
{
    Q_OBJECT

protected:
    std::unique_ptr<BrowseFixture> m_fixture;
    // Owned here and let go before the forms, whose trees they look at.
    std::vector<std::unique_ptr<QAbstractItemModelTester>> m_testers;

    QWidget *openBrowser(const BrowserCase &c, const QString &opener = {});
    // A book of the catalogue without links of one kind, filed under a topic or an author
    // of the sample so that the other browser shows it.
    QString addBookWithout(const QString &linkTable);
    static void addCases();

private Q_SLOTS:
    void init();
    void cleanup();
};
