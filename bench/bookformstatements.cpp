#include "bookformstatements.h"

#include "benchcatalogue.h"
#include "data/jetsql.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>

using namespace Qt::StringLiterals;

const QStringList &BookFormLoadStatements()
{
    static const QStringList statements{
        u"select * from tblauthor order by authorsurname"_s,
        u"select tblauthor.authorid, tblauthor.authorfirstname, tblauthor.authorsurname from "
        "tblauthor inner join tblbookauthor on tblbookauthor.authorid =  tblauthor.authorid"_s,
        u"Select tblbooktopic.topicId, tblbooktopic.BookId, tbltopic.topicdescription, "
        "tbltopic.topicnotes  from tbltopic inner join tblbooktopic on tblbooktopic.topicid = "
        "tbltopic.topicid  "_s,
        u"select * from tblBook order by bookdescription"_s,
        u"select BookID,bookdescription from tblbook order by bookdescription"_s,
        u"select * from tblPublisher order by PublisherName"_s,
    };
    return statements;
}

const QStringList &BookFormLinkStatements()
{
    static const QStringList statements{
        u"Select tblbooktopic.topicid,tblbooktopic.BookId, tbltopic.topicdescription, "
        "tbltopic.topicnotes from tbltopic inner join tblbooktopic on tblbooktopic.topicid = "
        "tbltopic.topicid where tblbooktopic.bookid = "_s,
        u"select tblauthor.authorid, tblauthor.authorfirstname, tblauthor.authorsurname from "
        "tblauthor inner join tblbookauthor on tblbookauthor.authorid =  tblauthor.authorid where "
        "tblbookauthor.bookid = "_s,
    };
    return statements;
}

void readFirstBookShown(const QSqlDatabase &db, const QString &bookRows)
{
    readAll(db, u"select count(*) from ("_s + bookRows + u")"_s);
    QSqlQuery first(db);
    first.setForwardOnly(true);
    first.exec(JetSql::toSqlite(bookRows + u" limit 1"_s));
    if (!first.next())
        return;
    for (int c = 0; c < first.record().count(); ++c)
        first.value(c);
    const QString book = first.value(u"BookID"_s).toString();
    readAll(db, u"select PublisherName from tblPublisher where PublisherID = "_s
                    + first.value(u"BookPublisherID"_s).toString());
    for (const QString &statement : BookFormLinkStatements())
        readAll(db, statement + book);
}
