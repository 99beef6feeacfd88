#include "forms/search/bookhandover.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/connection.h"
#include "data/recordset.h"
#include "data/transactionguard.h"
#include "forms/books/bookforms.h"

using namespace Qt::StringLiterals;

namespace {


} // namespace

void ReplaceHits(Connection &connection, const QString &source)
{
    TransactionGuard transaction(connection);
    connection.execute(u"Delete from tblcriteriahits"_s, CommandType::Text);
    connection.execute(u"Insert into tblcriteriahits (BookID) "_s + source, CommandType::Text);
    transaction.commit();
}

// The book form reads the hits only as it loads, so an open one is closed first.
void ShowBookFormFiltered(MainFrame &frame)
{
    FormRegistry &forms = frame.forms();
    frame.session().BookFilterPending = true;
    if (QWidget *books = forms.find(BookFormName); books && !forms.unload(books)) {
        // It kept a pending edit; it shows its books as before until it is reloaded.
        frame.session().BookFilterPending = false;
        return;
    }
    forms.show(BookFormName);
}

void ShowOnlyBook(MainFrame &frame, const QString &bookId)
{
    {
        Connection connection;
        connection.open(frame.session().connectionString());
        ReplaceHits(connection, u"values ("_s + bookId + u")"_s);
    }
    ShowBookFormFiltered(frame);
}
