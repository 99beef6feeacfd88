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
    // The first column of every row of a query.
    QStringList column(const QString &sql) const;

    // Opens a form from its menu entry or toolbar drop-down item, as a person does, and
    // answers it (nullptr when it did not load).
    QWidget *open(const QString &entryOrItem, const QString &formName) const;
    // The book keys in tblCriteriaHits, in key order.
    QStringList hits() const;

private:
    CatalogueOpener m_opener;
};

// The keys of a book as the catalogue knows it, by its title.
QString BookIdOf(const BrowseFixture &fixture, const QString &title);
