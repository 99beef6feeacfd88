#pragma once

#include <QWidget>

#include <memory>

class MainFrame;
class BookTreeModel;
class QModelIndex;
class RecordStatusBar;
class Recordset;
struct BookBrowserKind;
namespace Ui {
class frmBookBrowser;
}

// A tree browser of the books (frmTopicBook, frmAuthorBook): roots with their books beneath,
// the picked book's details beside the tree, and Edit to open that book alone in the book
// form. The kind says everything in which the two differ. The tree is built once, at load.
class BookBrowser : public QWidget
{
    Q_OBJECT

public:
    BookBrowser(const BookBrowserKind &kind, MainFrame &frame, QWidget *parent = nullptr);
    ~BookBrowser() override;

private Q_SLOTS:
    void on_cmdEdit_clicked();
    void on_cmdExpand_clicked();
    void on_cmdCollapse_clicked();
    void on_cmdExit_clicked();
    void on_cmdHelp_clicked();

private:
    void buildTree();
    void addNodes(const Recordset &rows);
    void onNodeClicked(const QModelIndex &node);
    void showBook(const QString &bookId);

    std::unique_ptr<Ui::frmBookBrowser> ui;
    const BookBrowserKind &m_kind;
    MainFrame &m_frame;
    RecordStatusBar *m_statusBar;
    BookTreeModel *m_nodes = nullptr;
};
