#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// What one of the two tree browsers (books by topic, books by author) is made of. One form
// serves both; everything in which they differ is here.

// A detail box filled from a query's first row: the fields' values joined by a blank.
struct DetailBox
{
    QString box;
    QStringList fields;
};

struct BookBrowserKind
{
    QString formName;
    QString menuEntry; // and the toolbar's item that stands for it
    int helpTopic = 0;
    QString caption;
    QString tree;

    // The tree's rows, one per book under each of its roots, ordered by root then title.
    QString loadSql;
    QString rootIdField;
    QString rootTextField;
    QString rootImage;

    // Shown, over the rows of the title, when the load query gives no rows.
    QString emptyMessage;
    QString emptyTitle;

    // Both queries end in "= " and take the book's key. The detail query gives the book's
    // number, title and publisher and fills ownBox too; the second lookup fills otherBox,
    // or puts otherFallback there when it gives no rows.
    QString detailSql;
    DetailBox ownBox;
    QString secondSql;
    DetailBox otherBox;
    QString otherFallback;

    QString editTitle;
};

// The topic browser, then the author browser.
const QList<BookBrowserKind> &BookBrowserKinds();
