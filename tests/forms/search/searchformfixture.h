#pragma once

#include "forms/books/bookformfixture.h"

#include <QStringList>

class FrmSearch;

// What every search test starts from: the demo catalogue opened through frmOpen in a frame
// that knows the book and search forms, and the search form opened from the toolbar.
class SearchFormFixture : public BookFormFixture
{
public:
    SearchFormFixture();

    // The toolbar's "Search" button; the loaded search form.
    FrmSearch *openSearch();
    FrmSearch *search() const;

    // Ticks or clears a criterion's box with the mouse.
    void click(const QString &control);
    // Types into a box of the search form key by key, so that its key filter runs.
    void type(const QString &box, const QString &text);
    void pick(const QString &lookup, const QString &text);
    // One of the above written as a step: "tick chkX", "type txtX text", "pick dboX entry".
    void apply(const QString &step);
    void apply(const QStringList &steps);
    // Presses Search, answering the windows it brings up; answers what went wrong.
    QString pressSearch(const QList<ModalExpectation> &expected);

    // The keys in tblCriteriaHits, and the keys a statement selects, both in key order.
    QStringList hits() const;
    QStringList keysOf(const QString &statement) const;
    // Fills tblCriteriaHits with the given keys, as an earlier search would have.
    void setHits(const QStringList &keys) const;
};

// The results prompt for a number of books, answered with "OK" or "Cancel".
ModalExpectation ResultsPrompt(int booksFound, const QString &press);
// The run-time error report of a statement the catalogue refused.
ModalExpectation RuntimeErrorReport(const QString &text);
