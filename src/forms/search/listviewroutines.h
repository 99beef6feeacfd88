#pragma once

#include <Qt>

class QTreeView;

// The book listing's own ways with its list view, whose model is a BookListingModel.

// Sorts the list on a column whose text stands for a number (or a date, when isDate), by
// that value rather than as text: 12 comes before 100.
void ListViewSortOnNonStringField(QTreeView *list, int column, Qt::SortOrder order, bool isDate);

// Fits every column but the title, which keeps its width, to its widest text, and to its
// header's text when includeHeaders.
void ListViewAdjustColumnWidth(QTreeView *list, bool includeHeaders);
