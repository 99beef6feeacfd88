#include "browsertest.h"

#include "forms/search/booktreemodel.h"
#include "support/finders.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

const BrowserCase TopicCase{
    u"frmTopicBook"_s,
    u"mnuTopicSrch"_s,
    u"ByTopic"_s,
    u"tvwTopics"_s,
    u"Topic"_s,
    u"select tblTopic.TopicID, TopicDescription, tblBook.BookID, BookDescription from tblTopic, "
    "tblBook, tblBookTopic where tblBook.BookID = tblBookTopic.BookID and tblBookTopic.TopicID "
    "= tblTopic.TopicID order by TopicDescription, BookDescription"_s,
    u"tblBookTopic"_s,
    u"This form cannot be displayed as there are\r\nno topics linked to any books. Please "
    "allocate books\r\nto topics before using this form"_s,
    u"Topic/Book form"_s,
    u"Topic/Book List"_s,
    u"Browsing books by topic"_s,
};

const BrowserCase AuthorCase{
    u"frmAuthorBook"_s,
    u"mnuAuthorSrch"_s,
    u"ByAuthor"_s,
    u"tvwAuthors"_s,
    u"Author"_s,
    u"select tblAuthor.AuthorID, ifnull(AuthorFirstName, '') || ' ' || ifnull(AuthorSurName, "
    "'') as AuthorName, tblBook.BookID, BookDescription from tblAuthor, tblBook, tblBookAuthor "
    "where tblBook.BookID = tblBookAuthor.BookID and tblBookAuthor.AuthorID = "
    "tblAuthor.AuthorID order by 2, BookDescription"_s,
    u"tblBookAuthor"_s,
    u"This form cannot be displayed as there are\r\nno authors linked to any books. Please "
    "allocate books\r\nto authors before using this form"_s,
    u"Author/Book form"_s,
    u"Author/Book List"_s,
    u"Browsing books by author"_s,
};

const BrowserCase &caseNamed(const QString &form)
{
    return form == TopicCase.form ? TopicCase : AuthorCase;
}

const QStringList DetailBoxes{u"txtBookID"_s, u"txtTitle"_s, u"txtAuthor"_s, u"txtTopic"_s,
                              u"txtPublisher"_s};

QTreeView *treeOf(const QWidget *form, const BrowserCase &c)
{
    return FindControl<QTreeView>(form, c.tree);
}

QModelIndex node(const QTreeView *tree, int row, const QModelIndex &root)
{
    return tree->model()->index(row, 0, root);
}

int childCount(const QTreeView *tree, const QModelIndex &root)
{
    return tree->model()->rowCount(root);
}

QString text(const QWidget *form, const QString &box)
{
    return FindControl<QLineEdit>(form, box)->text();
}

QStringList details(const QWidget *form)
{
    QStringList texts;
    for (const QString &box : DetailBoxes)
        texts.append(text(form, box));
    return texts;
}

void click(const QWidget *form, const QString &button)
{
    QTest::mouseClick(FindControl<QPushButton>(form, button), Qt::LeftButton);
}

void clickNode(QTreeView *tree, const QModelIndex &node)
{
    if (node.parent().isValid())
        tree->expand(node.parent());
    tree->scrollTo(node);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(node).center());
}

QString key(const QModelIndex &node)
{
    return node.data(BookTreeModel::KeyRole).toString();
}

QString tag(const QModelIndex &node)
{
    return node.data(BookTreeModel::TagRole).toString();
}

QIcon picture(const QModelIndex &node)
{
    return node.data(Qt::DecorationRole).value<QIcon>();
}

QList<QModelIndex> bookNodes(const QTreeView *tree, const QString &bookId)
{
    QList<QModelIndex> nodes;
    for (int r = 0; r < childCount(tree); ++r) {
        const QModelIndex root = node(tree, r);
        for (int b = 0; b < childCount(tree, root); ++b) {
            if (tag(node(tree, b, root)) == bookId)
                nodes.append(node(tree, b, root));
        }
    }
    return nodes;
}

bool samePicture(const QIcon &shown, const QIcon &picture, QIcon::Mode mode)
{
    return shown.pixmap(16, mode).toImage() == picture.pixmap(16).toImage();
}

QWidget *BrowserTest::openBrowser(const BrowserCase &c, const QString &opener)
{
    QWidget *form = m_fixture->open(opener.isEmpty() ? c.menuEntry : opener, c.form);
    if (form && treeOf(form, c))
        m_testers.push_back(std::make_unique<QAbstractItemModelTester>(
            treeOf(form, c)->model(), QAbstractItemModelTester::FailureReportingMode::QtTest));
    return form;
}

QString BrowserTest::addBookWithout(const QString &linkTable)
{
    const QString other = linkTable == u"tblBookAuthor" ? u"tblBookTopic"_s : u"tblBookAuthor"_s;
    const QString otherKey = linkTable == u"tblBookAuthor" ? u"TopicID"_s : u"AuthorID"_s;
    m_fixture->addUnlinkedBook(u"Anonymous Leaves"_s);
    const QString id = BookIdOf(*m_fixture, u"Anonymous Leaves"_s);
    m_fixture->exec(u"insert into "_s + other + u" (BookID, "_s + otherKey + u") values ("_s
                    + id + u", (select min("_s + otherKey + u") from "_s + other + u"))"_s);
    return id;
}

void BrowserTest::addCases()
{
    QTest::addColumn<QString>("form");
    QTest::newRow("topics") << TopicCase.form;
    QTest::newRow("authors") << AuthorCase.form;
}

void BrowserTest::init()
{
    m_fixture = std::make_unique<BrowseFixture>();
    QVERIFY2(m_fixture->problems().isEmpty(), qPrintable(m_fixture->problems()));
}

void BrowserTest::cleanup()
{
    m_testers.clear();
    m_fixture.reset();
}
