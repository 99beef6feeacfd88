#pragma once

#include <QString>
#include <QStringList>

// The statements the book form runs when it loads, in its order.
const QStringList &BookFormLoadStatements();
// The book's place among them: its rows, and the titles of the lookup list.
inline constexpr int BookRowsStatement = 3;
inline constexpr int BookLookupStatement = 4;
// Those that list one book's authors and topics (followed by the book's number).
const QStringList &BookFormLinkStatements();

class QSqlDatabase;

// The least SQL behind a book form showing the first book of its rows (a Jet select with its
// ORDER BY): how many books there are, the first of them with its publisher's name, and that
// book's topics and authors.
void readFirstBookShown(const QSqlDatabase &db, const QString &bookRows);
