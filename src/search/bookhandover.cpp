#include "search/bookhandover.h"

#include "data/connection.h"
#include "data/recordset.h"
#include "data/transactionguard.h"
#include "shell/formregistry.h"
#include "shell/mainframe.h"

using namespace Qt::StringLiterals;

namespace {

const QString BookFormName = u"frmBookMaintenance"_s;

// On a connection of its own, closed again at once; both statements or neither.
void ReplaceHitsWith(const QString &connectionString, const QString &bookId)
{
    Connection connection;
    connection.open(connectionString);
    TransactionGuard transaction(connection);
    connection.execute(u"Delete from tblcriteriahits"_s, CommandType::Text);
    connection.execute(u"Insert into tblcriteriahits (BookID) values ("_s + bookId + u")"_s,
                       CommandType::Text);
    transaction.commit();
}

} // namespace

void ShowOnlyBook(MainFrame &frame, const QString &bookId)
{
    ReplaceHitsWith(frame.session().connectionString(), bookId);
    frame.session().BookFilterPending = true;
    if (QWidget *bookForm = frame.forms().find(BookFormName))
        frame.forms().unload(bookForm);
    frame.forms().show(BookFormName);
}
