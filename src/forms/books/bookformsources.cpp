#include "forms/books/bookformsources.h"

using namespace Qt::StringLiterals;

const QList<DataControlSource> &BookFormSources()
{
    static const QList<DataControlSource> sources{
        {u"adoAuthorLkup"_s, u"select * from tblauthor order by authorsurname"_s},
        {u"adoAuthor"_s,
         u"select tblauthor.authorid, tblauthor.authorfirstname, tblauthor.authorsurname from "
         "tblauthor inner join tblbookauthor on tblbookauthor.authorid =  tblauthor.authorid"_s},
        {u"adoTopic"_s,
         u"Select tblbooktopic.topicId, tblbooktopic.BookId, tbltopic.topicdescription, "
         "tbltopic.topicnotes  from tbltopic inner join tblbooktopic on tblbooktopic.topicid = "
         "tbltopic.topicid  "_s},
        {u"adoBook"_s, u"select * from tblBook order by bookdescription"_s},
        {u"adoBookLkup"_s,
         u"select BookID,bookdescription from tblbook order by bookdescription"_s},
        {u"adoPublisher"_s, u"select * from tblPublisher order by PublisherName"_s},
    };
    return sources;
}

const QString FilteredLookupSource =
    u"select tblbook.BookID, tblbook.bookdescription from tblbook, tblCriteriaHits where "
    "tblcriteriahits.BookID = tblBook.BookID order by tblBook.bookdescription"_s;
const QString FilteredBookSource =
    u"Select tblBook.* from tblBook,tblCriteriaHits where tblcriteriahits.BookID = "
    "tblBook.BookID order by tblBook.BookDescription"_s;
