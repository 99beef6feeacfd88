// The help window as a reader uses it: links between topics, the contents, Back and Forward,
// the index and the full-text search, the keys that close it, and its place kept.

#include "app/helptopics.h"
#include "support/finders.h"
#include "support/testenvironment.h"
#include "support/testmain.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QHelpContentWidget>
#include <QHelpEngineCore>
#include <QHelpSearchEngine>
#include <QHelpSearchQueryWidget>
#include <QLineEdit>
#include <QScreen>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

QWidget *helpWindow()
{
    return FindForm(u"HelpWindow"_s);
}

QTextBrowser *helpBrowser()
{
    return FindControl<QTextBrowser>(helpWindow(), u"helpBrowser"_s);
}

QString shownTopic()
{
    QWidget *window = helpWindow();
    return window && window->isVisible() ? helpBrowser()->documentTitle() : u"(none)"_s;
}

QString helpCollection()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(u"Shelvane.qhc"_s);
}

// Every link of a page: its address as written, and where it sits in the text.
QList<std::pair<QString, int>> linksOf(const QTextDocument &page)
{
    QList<std::pair<QString, int>> links;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const QString href = fragment.charFormat().anchorHref();
            if (!href.isEmpty())
                links.append({href, fragment.position()});
        }
    }
    return links;
}

// The names a link's "#part" may point at on a page.
QStringList anchorsOf(const QTextDocument &page)
{
    QStringList names;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it)
            names << it.fragment().charFormat().anchorNames();
    }
    return names;
}

void clickLink(QTextBrowser *browser, const QString &href)
{
    for (const auto &[link, position] : linksOf(*browser->document())) {
        if (link != href)
            continue;
        QTextCursor cursor(browser->document());
        cursor.setPosition(position + 1);
        browser->ensureCursorVisible();
        const QPoint where = browser->cursorRect(cursor).center() - QPoint(3, 0);
        QTest::mouseClick(browser->viewport(), Qt::LeftButton, {}, where);
        return;
    }
    QFAIL(qPrintable(u"no link to "_s + href));
}

QString describe(const QRect &r)
{
    return u"%1x%2 at %3,%4"_s.arg(r.width()).arg(r.height()).arg(r.x()).arg(r.y());
}

class DesktopDouble : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl &url) { opened << url; }
};

} // namespace

class TestHelpWindow : public QObject
{
    Q_OBJECT

    // Shows the contents and checks that the window, frame and all, lies on its screen.
    void showAndVerifyOnScreen()
    {
        ShowHelpTopic(HelpTopic::Contents);
        QVERIFY(QTest::qWaitForWindowExposed(helpWindow()));
        const QRect screen = helpWindow()->screen()->availableGeometry();
        QVERIFY2(screen.contains(helpWindow()->frameGeometry()),
                 qPrintable(describe(helpWindow()->frameGeometry()) + u" on "_s + describe(screen)));
    }

private Q_SLOTS:
    void init() { TestEnvironment::clearSettings(); }
    void cleanup()
    {
        if (QWidget *window = helpWindow())
            window->close();
        QTRY_VERIFY(!helpWindow());
    }

    void everyLinkOfEveryTopicLeadsSomewhere()
    {
        QHelpEngineCore engine(helpCollection());
        engine.setReadOnly(true);
        QVERIFY(engine.setupData());
        const QList<QUrl> pages = engine.files(u"org.shelvane.help"_s, QString(), u"html"_s);
        QVERIFY(pages.size() >= 20);
        QStringList broken;
        int followed = 0;
        for (const QUrl &page : pages) {
            QTextDocument document;
            document.setHtml(QString::fromUtf8(engine.fileData(page)));
            for (const auto &[href, position] : linksOf(document)) {
                Q_UNUSED(position);
                const QUrl target = page.resolved(QUrl(href));
                if (target.scheme() != u"qthelp"_s)
                    continue;
                ++followed;
                QUrl file = target;
                file.setFragment(QString());
                const QByteArray data = engine.fileData(file);
                if (data.isEmpty()) {
                    broken << page.fileName() + u" → "_s + href;
                    continue;
                }
                if (target.hasFragment()) {
                    QTextDocument linked;
                    linked.setHtml(QString::fromUtf8(data));
                    if (!anchorsOf(linked).contains(target.fragment()))
                        broken << page.fileName() + u" → "_s + href;
                }
            }
        }
        QVERIFY(followed > 20);
        QVERIFY2(broken.isEmpty(), qPrintable(broken.join(u", "_s)));
    }

    void clickingALinkOpensItsTopicInTheWindow()
    {
        ShowHelpTopic(HelpTopic::Contents);
        QTextBrowser *browser = helpBrowser();
        QVERIFY(QTest::qWaitForWindowExposed(helpWindow()));
        clickLink(browser, u"books.html"_s);
        QTRY_COMPARE(shownTopic(), u"Maintaining books"_s);
    }

    void aWebAddressGoesToTheDesktop()
    {
        DesktopDouble desktop;
        QDesktopServices::setUrlHandler(u"https"_s, &desktop, "open");
        ShowHelpTopic(HelpTopic::Contents);
        const QUrl before = helpBrowser()->source();
        Q_EMIT helpBrowser()->anchorClicked(QUrl(u"https://example.org/books"_s));
        QDesktopServices::unsetUrlHandler(u"https"_s);
        QCOMPARE(desktop.opened, QList<QUrl>{QUrl(u"https://example.org/books"_s)});
        QCOMPARE(helpBrowser()->source(), before);
    }

    void oneClickOnTheContentsOpensATopic()
    {
        ShowHelpTopic(HelpTopic::Contents);
        QVERIFY(QTest::qWaitForWindowExposed(helpWindow()));
        auto *contents = FindControl<QHelpContentWidget>(helpWindow(), u"helpContents"_s);
        QVERIFY(contents);
        QModelIndex entry;
        QTRY_VERIFY((entry = contents->indexOf(helpBrowser()->source())).isValid());
        contents->expandAll();
        const QModelIndex books =
            contents->model()->match(entry, Qt::DisplayRole, u"Maintaining books"_s, 1,
                                     Qt::MatchExactly | Qt::MatchRecursive).value(0);
        QVERIFY(books.isValid());
        contents->scrollTo(books);
        QTest::mouseClick(contents->viewport(), Qt::LeftButton, {},
                          contents->visualRect(books).center());
        QCOMPARE(shownTopic(), u"Maintaining books"_s);

        // The keyboard too: down to the next entry, and Enter.
        contents->setFocus();
        QTest::keyClick(contents, Qt::Key_Down);
        QTest::keyClick(contents, Qt::Key_Return);
        QCOMPARE(shownTopic(), u"Adding an author to a book"_s);
    }

    void backAndForwardRetraceTheTopics()
    {
        ShowHelpTopic(HelpTopic::Contents);
        QVERIFY(QTest::qWaitForWindowExposed(helpWindow()));
        QAction *back = FindControl<QAction>(helpWindow(), u"helpBack"_s);
        QAction *forward = FindControl<QAction>(helpWindow(), u"helpForward"_s);
        QVERIFY(back && forward);
        QVERIFY(!back->isEnabled());
        clickLink(helpBrowser(), u"search.html"_s);
        QTRY_COMPARE(shownTopic(), u"Searching the catalogue"_s);
        QVERIFY(back->isEnabled());

        QTest::keyClick(helpBrowser(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(shownTopic(), u"Shelvane Help"_s);
        QVERIFY(forward->isEnabled());
        QTest::keyClick(helpBrowser(), Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(shownTopic(), u"Searching the catalogue"_s);
        back->trigger();
        QCOMPARE(shownTopic(), u"Shelvane Help"_s);
    }

    void theIndexFindsAKeyword()
    {
        ShowHelpTopic(HelpTopic::Contents);
        QVERIFY(QTest::qWaitForWindowExposed(helpWindow()));
        auto *filter = FindControl<QLineEdit>(helpWindow(), u"helpIndexFilter"_s);
        QVERIFY(filter);
        QTRY_VERIFY(FindControl<QAbstractItemView>(helpWindow(), u"helpIndex"_s)->model()->rowCount() > 0);
        QTest::keyClicks(filter, u"Collection stat"_s);
        QTest::keyClick(filter, Qt::Key_Return);
        QCOMPARE(shownTopic(), u"Collection statistics"_s);
    }

    void theSearchFindsTopicsByAnyWord()
    {
        ShowHelpTopic(HelpTopic::Contents);
        auto *search = helpWindow()->findChild<QHelpSearchEngine *>();
        QVERIFY(search);
        auto *query = FindControl<QHelpSearchQueryWidget>(helpWindow(), u"helpSearchQuery"_s);
        QVERIFY(query);
        QSignalSpy finished(search, &QHelpSearchEngine::searchingFinished);
        auto *words = query->findChild<QLineEdit *>();
        QVERIFY(words);
        QTest::keyClicks(words, u"percentage"_s);
        QTest::keyClick(words, Qt::Key_Return);
        QTRY_COMPARE(finished.size(), 1);
        const int found = finished.first().first().toInt();
        QVERIFY(found > 0);
        QStringList pages;
        for (const QHelpSearchResult &result : search->searchResults(0, found))
            pages << result.url().fileName();
        QVERIFY2(pages.contains(u"prices.html"_s), qPrintable(pages.join(u' ')));
    }

    void escapeAndCtrlWCloseTheWindow_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("Escape") << int(Qt::Key_Escape) << int(Qt::NoModifier);
        QTest::newRow("Ctrl+W") << int(Qt::Key_W) << int(Qt::ControlModifier);
    }
    void escapeAndCtrlWCloseTheWindow()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        ShowHelpTopic(HelpTopic::Contents);
        QVERIFY(QTest::qWaitForWindowExposed(helpWindow()));
        QTest::keyClick(helpBrowser(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QTRY_VERIFY(!helpWindow());
    }

    // On a screen smaller than the window's own size, and with no place kept, the window still
    // opens wholly on the screen, frame and all.
    void opensWhollyOnItsScreen()
    {
        showAndVerifyOnScreen();
    }

    // A place kept from a taller screen (640 pixels tall from 275 down), or from a screen no
    // longer there, is brought back wholly onto the screen.
    void aKeptPlaceThatNoLongerFitsIsBroughtOnScreen_data()
    {
        QTest::addColumn<QRect>("kept");
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QTest::newRow("below the bottom") << QRect(120, 275, 700, 640);
        QTest::newRow("past the right") << QRect(screen.right() - 200, 40, 600, 400);
        QTest::newRow("on a screen gone") << QRect(screen.right() + 900, 100, 600, 400);
    }

    void aKeptPlaceThatNoLongerFitsIsBroughtOnScreen()
    {
        QFETCH(QRect, kept);
        QWidget elsewhere;
        elsewhere.setGeometry(kept);
        QSettings().setValue(u"HelpWindow/Geometry"_s, elsewhere.saveGeometry());
        showAndVerifyOnScreen();
    }

    void sizeAndPlaceAreKept()
    {
        ShowHelpTopic(HelpTopic::Contents);
        QVERIFY(QTest::qWaitForWindowExposed(helpWindow()));
        helpWindow()->resize(700, 500);
        helpWindow()->close();
        QTRY_VERIFY(!helpWindow());
        ShowHelpTopic(HelpTopic::Contents);
        QCOMPARE(helpWindow()->size(), QSize(700, 500));
    }
};

SHELVANE_TEST_MAIN(TestHelpWindow)
#include "tst_helpwindow.moc"
