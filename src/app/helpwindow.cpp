#include "app/helpwindow.h"

#include "app/helpbrowser.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QHelpSearchEngine>
#include <QHelpSearchQueryWidget>
#include <QHelpSearchResultWidget>
#include <QLineEdit>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString PlaceGroup = u"HelpWindow"_s;
const QString PlaceKey = u"Geometry"_s;
const QSize DefaultSize(900, 640);
// The window manager's frame round a window not yet shown, which it has not measured yet: a
// title bar above and a thin border elsewhere.
const QMargins AssumedFrame(4, 32, 4, 4);

// The screen a window at `place` belongs to: the one it stands on, or, when it stands on
// none (a screen since unplugged), the one the program is working on.
QScreen *screenFor(const QRect &place)
{
    if (QScreen *screen = QGuiApplication::screenAt(place.center()))
        return screen;
    if (QWidget *active = QApplication::activeWindow())
        return active->screen();
    return QGuiApplication::primaryScreen();
}

} // namespace

HelpWindow::HelpWindow(const QString &collectionFile, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_engine(new QHelpEngine(collectionFile, this))
    , m_browser(new HelpBrowser(m_engine, this))
    , m_panes(new QTabWidget(this))
{
    setObjectName(u"HelpWindow"_s);
    setWindowTitle(u"Shelvane Help"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    // An open help window must not keep the program running once the main window is gone.
    setAttribute(Qt::WA_QuitOnClose, false);
    // The help file and its search index sit beside the program, where the user may not be
    // allowed to write; both are made when the program is built.
    m_engine->setReadOnly(true);
    m_engine->setupData();

    m_browser->setObjectName(u"helpBrowser"_s);
    m_panes->setObjectName(u"helpPanes"_s);
    m_panes->addTab(contentsPane(), u"&Contents"_s);
    m_panes->addTab(indexPane(), u"&Index"_s);
    m_panes->addTab(searchPane(), u"&Search"_s);

    auto *splitter = new QSplitter(this);
    splitter->addWidget(m_panes);
    splitter->addWidget(m_browser);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({240, 620});
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    addNavigation();
    layout->addWidget(splitter);
    restorePlace();
}

bool HelpWindow::showTopic(int topic)
{
    const QList<QHelpLink> links = m_engine->documentsForIdentifier(QString::number(topic));
    if (links.isEmpty())
        return false;
    m_browser->setSource(links.constFirst().url);
    return true;
}

QUrl HelpWindow::currentPage() const
{
    return m_browser->source();
}

void HelpWindow::closeEvent(QCloseEvent *event)
{
    QSettings settings;
    settings.setValue(PlaceGroup + u'/' + PlaceKey, saveGeometry());
    QWidget::closeEvent(event);
}

// Back and Forward as buttons and as the usual keys; Escape and Ctrl+W close the window.
void HelpWindow::addNavigation()
{
    auto *toolbar = new QToolBar(this);
    toolbar->setObjectName(u"helpToolbar"_s);
    toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QAction *back = toolbar->addAction(style()->standardIcon(QStyle::SP_ArrowBack), u"Back"_s,
                                       m_browser, &QTextBrowser::backward);
    back->setObjectName(u"helpBack"_s);
    back->setShortcut(QKeySequence::Back);
    back->setEnabled(false);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    QAction *forward = toolbar->addAction(style()->standardIcon(QStyle::SP_ArrowForward),
                                          u"Forward"_s, m_browser, &QTextBrowser::forward);
    forward->setObjectName(u"helpForward"_s);
    forward->setShortcut(QKeySequence::Forward);
    forward->setEnabled(false);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    for (const QKeySequence &keys : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)})
        connect(new QShortcut(keys, this), &QShortcut::activated, this, &QWidget::close);
    static_cast<QVBoxLayout *>(layout())->addWidget(toolbar);
}

// One click on a topic opens it, as do the arrow keys and Enter.
QWidget *HelpWindow::contentsPane()
{
    QHelpContentWidget *contents = m_engine->contentWidget();
    contents->setObjectName(u"helpContents"_s);
    // The contents are read in the background; open the first level once they are there.
    connect(m_engine->contentModel(), &QHelpContentModel::contentsCreated, contents,
            [contents] { contents->expandToDepth(0); });
    connect(contents, &QHelpContentWidget::linkActivated, m_browser,
            [this](const QUrl &page) { m_browser->setSource(page); });
    connect(contents, &QAbstractItemView::clicked, this, [this](const QModelIndex &index) {
        if (QHelpContentItem *item = m_engine->contentModel()->contentItemAt(index))
            m_browser->setSource(item->url());
    });
    return contents;
}

// The keywords of the help file, narrowed as the user types.
QWidget *HelpWindow::indexPane()
{
    auto *pane = new QWidget(this);
    auto *filter = new QLineEdit(pane);
    filter->setObjectName(u"helpIndexFilter"_s);
    filter->setPlaceholderText(u"Type a word to look for"_s);
    filter->setClearButtonEnabled(true);
    QHelpIndexWidget *index = m_engine->indexWidget();
    index->setObjectName(u"helpIndex"_s);
    connect(filter, &QLineEdit::textChanged, index,
            [index](const QString &text) { index->filterIndices(text); });
    connect(filter, &QLineEdit::returnPressed, index, &QHelpIndexWidget::activateCurrentItem);
    connect(index, &QHelpIndexWidget::documentActivated, m_browser,
            [this](const QHelpLink &document) { m_browser->setSource(document.url); });
    connect(index, &QHelpIndexWidget::documentsActivated, m_browser,
            [this](const QList<QHelpLink> &documents) {
                if (!documents.isEmpty())
                    m_browser->setSource(documents.constFirst().url);
            });
    auto *layout = new QVBoxLayout(pane);
    layout->addWidget(filter);
    layout->addWidget(index);
    return pane;
}

// Every word of every topic, from the index made when the program was built.
QWidget *HelpWindow::searchPane()
{
    QHelpSearchEngine *search = m_engine->searchEngine();
    auto *pane = new QWidget(this);
    QHelpSearchQueryWidget *query = search->queryWidget();
    query->setObjectName(u"helpSearchQuery"_s);
    QHelpSearchResultWidget *results = search->resultWidget();
    results->setObjectName(u"helpSearchResults"_s);
    connect(query, &QHelpSearchQueryWidget::search, search,
            [search, query] { search->search(query->searchInput()); });
    connect(results, &QHelpSearchResultWidget::requestShowLink, m_browser,
            [this](const QUrl &page) { m_browser->setSource(page); });
    auto *layout = new QVBoxLayout(pane);
    layout->addWidget(query);
    layout->addWidget(results, 1);
    return pane;
}

// The place kept from the last time, or centred over the program's active window.
void HelpWindow::restorePlace()
{
    const QByteArray place = QSettings().value(PlaceGroup + u'/' + PlaceKey).toByteArray();
    if (place.isEmpty() || !restoreGeometry(place)) {
        resize(DefaultSize);
        const QWidget *active = QApplication::activeWindow();
        const QRect over = active ? active->frameGeometry()
                                  : QGuiApplication::primaryScreen()->availableGeometry();
        move(over.center() - rect().center());
    }
    keepOnScreen();
}

// A place kept on a larger screen, or a window taller than a small screen, is moved and
// shrunk until the window with its frame lies wholly on its screen.
void HelpWindow::keepOnScreen()
{
    const QRect frameRect = frameGeometry();
    const QMargins frame = frameRect == geometry()
        ? AssumedFrame
        : QMargins(geometry().left() - frameRect.left(), geometry().top() - frameRect.top(),
                   frameRect.right() - geometry().right(), frameRect.bottom() - geometry().bottom());
    const QRect room = screenFor(geometry())->availableGeometry().marginsRemoved(frame);
    QRect place = geometry();
    place.setSize(place.size().boundedTo(room.size()));
    place.moveRight(std::min(place.right(), room.right()));
    place.moveBottom(std::min(place.bottom(), room.bottom()));
    place.moveLeft(std::max(place.left(), room.left()));
    place.moveTop(std::max(place.top(), room.top()));
    setGeometry(place);
}
