#pragma once

#include "benchcatalogue.h"

#include "app/application.h"
#include "app/mainframe.h"

#include <QSqlDatabase>
#include <QTemporaryDir>

// The program as its owner starts it, on a generated catalogue: the application (off screen
// unless a platform is named), the frame with every form registered, shown, and settings kept
// apart from the user's. The number of books is the benchmark's first argument.
class BenchProgram
{
public:
    BenchProgram(int &argc, char **argv);

    int books() const { return m_books; }
    QString cataloguePath() const { return m_catalogue.path(); }
    MainFrame &frame() { return m_frame; }
    // Opens the catalogue as File › Open Catalogue does once the file has passed its checks.
    void openCatalogue();
    // The toolbar's Books button: how a user brings up the book form, loaded hidden with the
    // catalogue, while its menu entry is greyed.
    void showBooks();
    // The open catalogue's connection, for the raw baselines.
    QSqlDatabase database();

private:
    // Settings in a folder of their own, from before the frame reads them.
    class SeparateSettings
    {
    public:
        SeparateSettings();

    private:
        QTemporaryDir m_folder;
    };

    Application m_app;
    SeparateSettings m_settings;
    int m_books;
    BenchCatalogue m_catalogue;
    MainFrame m_frame;
};

// The least SQL behind the book form showing one book's authors and topics.
void readBookLinks(const QSqlDatabase &db, const QString &book);
// The least SQL behind a book form showing the first book of its rows (a Jet select with its
// ORDER BY): how many books there are, the first of them with its publisher's name, and that
// book's topics and authors.
void readFirstBookShown(const QSqlDatabase &db, const QString &bookRows);
