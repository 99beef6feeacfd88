// The topic and author browsers: their trees against the catalogue, the picked book's
// details, Expand and Collapse, and Edit opening the book alone in the book form.

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "browsefixture.h"
#include "forms/books/bookformfixture.h"
#include "forms/search/booktreemodel.h"
#include "forms/search/treeimages.h"
#include "recordform/recordstatusbar.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QTextBrowser>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

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

// A root by its row, or a book by its row under a root.
QModelIndex node(const QTreeView *tree, int row, const QModelIndex &root = {})
{
    return tree->model()->index(row, 0, root);
}

int childCount(const QTreeView *tree, const QModelIndex &root = {})
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

// A click on a node, its root opened first so that it can be seen.
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

// Every book node of a book, under whichever roots it stands.
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

// Whether an icon, drawn in a mode, shows the picture of the other.
bool samePicture(const QIcon &shown, const QIcon &picture, QIcon::Mode mode = QIcon::Normal)
{
    return shown.pixmap(16, mode).toImage() == picture.pixmap(16).toImage();
}

} // namespace

class TestBookBrowsers : public QObject
{
    Q_OBJECT

    std::unique_ptr<BrowseFixture> m_fixture;
    // Owned here and let go before the forms, whose trees they look at.
    std::vector<std::unique_ptr<QAbstractItemModelTester>> m_testers;

    QWidget *openBrowser(const BrowserCase &c, const QString &opener = {})
    {
        QWidget *form = m_fixture->open(opener.isEmpty() ? c.menuEntry : opener, c.form);
        if (form && treeOf(form, c))
            m_testers.push_back(std::make_unique<QAbstractItemModelTester>(
                treeOf(form, c)->model(), QAbstractItemModelTester::FailureReportingMode::QtTest));
        return form;
    }

    // A book of the catalogue without links of one kind, filed under a topic or an author
    // of the sample so that the other browser shows it.
    QString addBookWithout(const QString &linkTable)
    {
        const QString other = linkTable == u"tblBookAuthor" ? u"tblBookTopic"_s : u"tblBookAuthor"_s;
        const QString otherKey = linkTable == u"tblBookAuthor" ? u"TopicID"_s : u"AuthorID"_s;
        m_fixture->addUnlinkedBook(u"Anonymous Leaves"_s);
        const QString id = BookIdOf(*m_fixture, u"Anonymous Leaves"_s);
        m_fixture->exec(u"insert into "_s + other + u" (BookID, "_s + otherKey + u") values ("_s
                        + id + u", (select min("_s + otherKey + u") from "_s + other + u"))"_s);
        return id;
    }

    static void addCases()
    {
        QTest::addColumn<QString>("form");
        QTest::newRow("topics") << TopicCase.form;
        QTest::newRow("authors") << AuthorCase.form;
    }

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<BrowseFixture>();
        QVERIFY2(m_fixture->problems().isEmpty(), qPrintable(m_fixture->problems()));
    }
    void cleanup()
    {
        m_testers.clear();
        m_fixture.reset();
    }

    void controlsAndCaption_data() { addCases(); }
    void controlsAndCaption()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        QVERIFY(shown);
        QVERIFY(treeOf(shown, c));
        for (const QString &box : DetailBoxes) {
            QVERIFY2(FindControl<QLineEdit>(shown, box), qPrintable(box));
            QVERIFY(FindControl<QLineEdit>(shown, box)->isReadOnly());
        }
        for (const QString &button : {u"cmdEdit"_s, u"cmdExpand"_s, u"cmdCollapse"_s,
                                      u"cmdExit"_s, u"cmdHelp"_s})
            QVERIFY2(FindControl<QPushButton>(shown, button), qPrintable(button));
        QCOMPARE(FindControl<QPushButton>(shown, u"cmdHelp"_s)->text(), u"Help"_s);
        QVERIFY(FindControl<RecordStatusBar>(shown, u"StatusBar1"_s));
        QVERIFY(FindControl<QPushButton>(shown, u"cmdEdit"_s)->isEnabled());
    }

    void treeFollowsTheCatalogue_data() { addCases(); }
    void treeFollowsTheCatalogue()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        const QTreeView *tree = treeOf(shown, c);

        // Ordered as the program orders text.
        const QList<QVariantList> rowsInOrder = m_fixture->catalogue().programRows(c.rowsSql);
        int root = -1;
        int child = 0;
        int count = 0;
        QString rootKey;
        for (const QVariantList &rows : rowsInOrder) {
            ++count;
            const QString rowRootKey = u"T"_s + rows.value(0).toString();
            if (root < 0 || rowRootKey != rootKey) {
                if (root >= 0)
                    QCOMPARE(childCount(tree, node(tree, root)), child);
                rootKey = rowRootKey;
                ++root;
                child = 0;
                const QModelIndex rootNode = node(tree, root);
                QVERIFY(rootNode.isValid());
                QCOMPARE(key(rootNode), rootKey);
                QCOMPARE(rootNode.data().toString(), rows.value(1).toString());
                QCOMPARE(tag(rootNode), QString());
                QCOMPARE(rootNode.data(BookTreeModel::ImageRole).toString(), c.rootImage);
            }
            const QModelIndex book = node(tree, child++, node(tree, root));
            QVERIFY(book.isValid());
            QCOMPARE(key(book), rootKey + u'B' + rows.value(2).toString());
            QCOMPARE(book.data().toString(), rows.value(3).toString());
            QCOMPARE(tag(book), rows.value(2).toString());
            QCOMPARE(book.data(BookTreeModel::ImageRole).toString(), u"Book"_s);
            QCOMPARE(book.data(BookTreeModel::SelectedImageRole).toString(), u"OpenBook"_s);
        }
        QCOMPARE(childCount(tree, node(tree, root)), child);
        QCOMPARE(childCount(tree), root + 1);
        QCOMPARE(FindControl<RecordStatusBar>(shown, u"StatusBar1"_s)->panelText(1),
                 u"Total: %1 entries."_s.arg(count));
    }

    void nodesShowRealPictures_data() { addCases(); }
    void nodesShowRealPictures()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        const QModelIndex root = node(treeOf(shown, c), 0);
        QVERIFY(samePicture(picture(root), TreeImage(c.rootImage)));
        const QIcon book = picture(node(treeOf(shown, c), 0, root));
        QVERIFY(samePicture(book, TreeImage(u"Book"_s)));
        QVERIFY(samePicture(book, TreeImage(u"OpenBook"_s), QIcon::Selected));
        QVERIFY(!samePicture(TreeImage(u"Book"_s), TreeImage(u"OpenBook"_s)));
    }

    void noLinksShowsTheMessageAndLeavesEditDisabled_data() { addCases(); }
    void noLinksShowsTheMessageAndLeavesEditDisabled()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QCOMPARE(m_fixture->exec(u"delete from "_s + c.linkTable), QString());
        ModalResponder responder;
        responder.expect(ModalResponder::message(c.emptyTitle, c.emptyMessage,
                                                 QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        QWidget *shown = openBrowser(c);
        QCOMPARE(responder.finish(), QString());
        QVERIFY(shown);
        QCOMPARE(childCount(treeOf(shown, c)), 0);
        QVERIFY(!FindControl<QPushButton>(shown, u"cmdEdit"_s)->isEnabled());
        QCOMPARE(FindControl<RecordStatusBar>(shown, u"StatusBar1"_s)->panelText(1), QString());
    }

    void editBeforeAnyBookAsksForOne_data() { addCases(); }
    void editBeforeAnyBookAsksForOne()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        ModalResponder responder;
        responder.expect(ModalResponder::message(
            c.editTitle, u"Please pick a book from the left hand pane first!"_s,
            QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        click(shown, u"cmdEdit"_s);
        QCOMPARE(responder.finish(), QString());
        QVERIFY(!m_fixture->bookForm()->isVisible());
    }

    void clickingABookShowsItsDetails_data() { addCases(); }
    void clickingABookShowsItsDetails()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        // A book of one author and one topic, so that there is one right answer.
        const QString id = BookIdOf(*m_fixture, u"Emma"_s);
        clickNode(treeOf(shown, c), bookNodes(treeOf(shown, c), id).first());
        QCOMPARE(details(shown),
                 (QStringList{id, u"Emma"_s, u"Jane Austen"_s,
                              m_fixture->column(u"select TopicDescription from tblTopic, "
                                                "tblBookTopic where tblTopic.TopicID = "
                                                "tblBookTopic.TopicID and BookID = "_s + id)
                                  .value(0),
                              m_fixture->column(u"select PublisherName from tblPublisher, tblBook "
                                                "where PublisherID = BookPublisherId and BookID "
                                                "= "_s + id)
                                  .value(0)}));
    }

    void clickingARootChangesNothing_data() { addCases(); }
    void clickingARootChangesNothing()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        QTreeView *tree = treeOf(shown, c);
        clickNode(tree, node(tree, 0));
        QCOMPARE(details(shown), QStringList(DetailBoxes.size()));
        clickNode(tree, node(tree, 0, node(tree, 0)));
        const QStringList picked = details(shown);
        clickNode(tree, node(tree, 1));
        QCOMPARE(details(shown), picked);
    }

    void bookWithoutALinkShowsTheFallback_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("missingLinks");
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("fallback");
        QTest::newRow("no author, in the topic browser")
            << TopicCase.form << u"tblBookAuthor"_s << u"txtAuthor"_s
            << u"No author allocated to this book"_s;
        QTest::newRow("no topic, in the author browser")
            << AuthorCase.form << u"tblBookTopic"_s << u"txtTopic"_s
            << u"No topic allocated to this book"_s;
    }

    void bookWithoutALinkShowsTheFallback()
    {
        QFETCH(QString, form);
        QFETCH(QString, missingLinks);
        QFETCH(QString, box);
        QFETCH(QString, fallback);
        const BrowserCase &c = caseNamed(form);
        const QString id = addBookWithout(missingLinks);
        QWidget *shown = openBrowser(c);
        clickNode(treeOf(shown, c), bookNodes(treeOf(shown, c), id).first());
        QCOMPARE(text(shown, u"txtTitle"_s), u"Anonymous Leaves"_s);
        QCOMPARE(text(shown, box), fallback);
    }

    void bookInTwoTopicsStandsUnderBoth()
    {
        QWidget *shown = openBrowser(TopicCase);
        QTreeView *tree = treeOf(shown, TopicCase);
        const QList<QModelIndex> nodes = bookNodes(tree, u"1"_s);
        QCOMPARE(nodes.size(), 2);
        QVERIFY(nodes.at(0).parent() != nodes.at(1).parent());
        QVERIFY(key(nodes.at(0)) != key(nodes.at(1)));
        clickNode(tree, nodes.at(0));
        const QStringList first = details(shown);
        QCOMPARE(first.at(0), u"1"_s);
        QCOMPARE(first.at(1), u"Pride and Prejudice"_s);
        clickNode(tree, node(tree, 0)); // away, to a root, and back to the other node
        clickNode(tree, nodes.at(1));
        QCOMPARE(details(shown), first);
    }

    // Every root opened by Expand and closed by Collapse.
    static void expandAndCollapse(const QWidget *shown, const QTreeView *tree)
    {
        const auto expandedRoots = [tree] {
            int expanded = 0;
            for (int r = 0; r < childCount(tree); ++r)
                expanded += tree->isExpanded(node(tree, r)) ? 1 : 0;
            return expanded;
        };
        QCOMPARE(expandedRoots(), 0);
        click(shown, u"cmdExpand"_s);
        QCOMPARE(expandedRoots(), childCount(tree));
        click(shown, u"cmdCollapse"_s);
        QCOMPARE(expandedRoots(), 0);
    }

    void expandAndCollapseEveryNode_data() { addCases(); }
    void expandAndCollapseEveryNode()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        expandAndCollapse(shown, treeOf(shown, c));
    }

    // Thousands of roots and books: Expand, Collapse and Exit from an expanded tree all end
    // (they once took minutes, hashing the tree's nodes into a few buckets).
    void expandCollapseAndExitOnALargeCatalogue_data() { addCases(); }
    void expandCollapseAndExitOnALargeCatalogue()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        m_fixture = std::make_unique<BrowseFixture>(TestCatalogue::Content::Large);
        QWidget *shown = m_fixture->open(c.menuEntry, c.form);
        QVERIFY(shown);
        const QTreeView *tree = treeOf(shown, c);
        QVERIFY(childCount(tree) >= 100);
        expandAndCollapse(shown, tree);
        click(shown, u"cmdExpand"_s);
        click(shown, u"cmdExit"_s);
        QTRY_VERIFY(!m_fixture->frame().forms().find(c.form));
    }

    void editOpensThePickedBookAlone_data() { addCases(); }
    void editOpensThePickedBookAlone()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        m_fixture->exec(u"insert into tblCriteriaHits (BookID) values (3), (4)"_s);
        QWidget *shown = openBrowser(c);
        const QString id = BookIdOf(*m_fixture, u"Wuthering Heights"_s);
        clickNode(treeOf(shown, c), bookNodes(treeOf(shown, c), id).first());
        click(shown, u"cmdEdit"_s);
        QCOMPARE(m_fixture->hits(), QStringList{id});
        QCOMPARE(m_fixture->bookFormShowsOnly(u"Wuthering Heights"_s), QString());
        // The browser stays open beside it.
        QCOMPARE(m_fixture->frame().forms().find(c.form), shown);
    }

    void menuEntryAndDropDownItemOffWhileOpen_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("opener");
        QTest::newRow("topics from the menu") << TopicCase.form << TopicCase.menuEntry;
        QTest::newRow("topics from the drop-down") << TopicCase.form << TopicCase.dropDownItem;
        QTest::newRow("authors from the menu") << AuthorCase.form << AuthorCase.menuEntry;
        QTest::newRow("authors from the drop-down") << AuthorCase.form << AuthorCase.dropDownItem;
    }

    void menuEntryAndDropDownItemOffWhileOpen()
    {
        QFETCH(QString, form);
        QFETCH(QString, opener);
        const BrowserCase &c = caseNamed(form);
        const BrowserCase &other = form == TopicCase.form ? AuthorCase : TopicCase;
        QWidget *shown = openBrowser(c, opener);
        QVERIFY(shown);
        QVERIFY(!FindAction(c.menuEntry)->isEnabled());
        QVERIFY(!FindAction(c.dropDownItem)->isEnabled());
        // Each browser has its own entry.
        QVERIFY(FindAction(other.menuEntry)->isEnabled());
        QVERIFY(FindAction(other.dropDownItem)->isEnabled());
        m_testers.clear();
        click(shown, u"cmdExit"_s);
        QTRY_VERIFY(!m_fixture->frame().forms().find(c.form));
        QVERIFY(FindAction(c.menuEntry)->isEnabled());
        QVERIFY(FindAction(c.dropDownItem)->isEnabled());
    }

    void helpOpensTheBrowsersTopic_data() { addCases(); }
    void helpOpensTheBrowsersTopic()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        click(shown, u"cmdHelp"_s);
        QWidget *help = FindForm(u"HelpWindow"_s);
        QVERIFY(help);
        auto *browser = FindControl<QTextBrowser>(help, u"helpBrowser"_s);
        QTRY_COMPARE(browser->documentTitle(), c.helpTitle);
        help->close();
    }

    void screenshotExpandedWithABookPicked_data() { addCases(); }
    void screenshotExpandedWithABookPicked()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        QTreeView *tree = treeOf(shown, c);
        click(shown, u"cmdExpand"_s);
        const QString id = BookIdOf(*m_fixture, u"Wuthering Heights"_s);
        const QModelIndex picked = bookNodes(tree, id).first();
        clickNode(tree, picked);
        tree->scrollTo(picked, QAbstractItemView::PositionAtCenter);
        QVERIFY(!SaveScreenshot(m_fixture->frame().forms().windowOf(shown),
                                form + u"-expanded"_s)
                     .isEmpty());
    }
};

SHELVANE_TEST_MAIN(TestBookBrowsers)
#include "tst_bookbrowsers.moc"
