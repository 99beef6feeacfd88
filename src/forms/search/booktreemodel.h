#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <QList>
#include <QString>

// The two-level tree of a browser: roots (topics or authors) with their books beneath. Each
// node has a key, a text, a picture by name and a tag, as the browsers describe them; keys
// and tags are made when asked for, so that a tree of many thousand books stays small.
class BookTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    // What a node carries besides its text and picture, as roles of its one column.
    enum NodeRole { KeyRole = Qt::UserRole, TagRole, ImageRole, SelectedImageRole };

    // Roots show rootImage; books "Book", and "OpenBook" while picked.
    BookTreeModel(const QString &rootImage, QObject *parent = nullptr);

    // Filling, before any view looks at the model: a root, then the books under it.
    void addRoot(const QString &key, const QString &text);
    void addBook(qint64 bookId, const QString &text);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    struct Root
    {
        QString key;
        QString text;
        int firstBook = 0;
        int bookCount = 0;
    };
    struct Book
    {
        qint64 id;
        QString text;
    };

    QVariant rootData(const Root &root, int role) const;
    QVariant bookData(const Root &root, const Book &book, int role) const;

    QString m_rootImage;
    QIcon m_rootIcon;
    QIcon m_bookIcon;
    QList<Root> m_roots;
    QList<Book> m_books; // root by root, in the order added
};
