// The topic and author browsers' trees: their nodes against the catalogue, their pictures,
// books under more than one root or none, and Expand and Collapse, on a large catalogue too.
#include "app/formregistry.h"
#include "app/mainframe.h"
#include "browsertest.h"
#include "forms/search/booktreemodel.h"
#include "forms/search/treeimages.h"
#include "recordform/recordstatusbar.h"
#include "support/finders.h"
#include "support/testmain.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

class TestBrowserTrees : public BrowserTest
{
    Q_OBJECT

private Q_SLOTS:
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
};

SHELVANE_TEST_MAIN(TestBrowserTrees)
#include "tst_browsertrees.moc"
