#pragma once

#include "support/catalogueopener.h"
#include "support/testcatalogue.h"

#include <QString>
#include <QStringList>

class MainFrame;
class QWidget;

// What the listing and browser tests start from: the frame with the book forms and the
// search area's forms registered, and the catalogue opened through frmOpen. A test changes
// the catalogue through exec() before it opens a form, which reads it at load.
class BrowseFixture
{
public:
    explicit BrowseFixture(TestCatalogue::Content content = TestCatalogue::Content::Sample);

    MainFrame &frame() const { return m_opener.frame(); }
    const TestCatalogue &catalogue() const { return m_opener.catalogue(); }
    QString problems() const { return m_opener.problems(); }

    // Runs a statement straight on the file; answers SQLite's error, empty when it ran.
    QString exec(const QString &sql) const;
    // Adds a book of the first publisher, filed under no author and no topic, published in
    // the given year (SQL: "null" for none). Answers SQLite's error, empty when it ran.
    QString addUnlinkedBook(const QString &title, const QString &published = QStringLiteral("null")) const;
    // The first column of every row of a query.
    QStringList column(const QString &sql) const;

    // Opens a form from its menu entry or toolbar drop-down item, as a person does, and
    // answers it (nullptr when it did not load).
    QWidget *open(const QString &entryOrItem, const QString &formName) const;
    // The book keys in tblCriteriaHits, in key order.
    QStringList hits() const;
    // The loaded book form, shown or not; nullptr when none is loaded.
    QWidget *bookForm() const;
    // Empty when the book form is shown as a hand-over leaves it: filtered on one book, of
    // that title, with nothing pending; otherwise what differs.
    QString bookFormShowsOnly(const QString &title) const;

private:
    CatalogueOpener m_opener;
};

// The keys of a book as the catalogue knows it, by its title.
QString BookIdOf(const BrowseFixture &fixture, const QString &title);
