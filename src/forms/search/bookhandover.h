#pragma once

#include <QString>

class Connection;
class MainFrame;

// The hand-over of found books to the book form: the search, the listing and the two trees
// put the books in tblCriteriaHits and load the book form afresh with its filter pending.

// Replaces the hits with the books of `source`, the rest of the INSERT after "(BookID) ": a
// select, or "values (" + a book number + ")". Both statements or neither: when the insert
// fails (it throws ProviderError) the earlier hits stay.
void ReplaceHits(Connection &connection, const QString &source);

// Loads the book form afresh, showing only the hits. An open book form that keeps a pending
// edit stays as it is, and nothing is left pending.
void ShowBookFormFiltered(MainFrame &frame);

// Opens the book form on one book alone, through a connection of its own. Throws
// ProviderError when the hits cannot be written.
void ShowOnlyBook(MainFrame &frame, const QString &bookId);
