#include "forms/search/bookbrowserkind.h"

using namespace Qt::StringLiterals;

namespace {

const DetailBox TopicBox{u"txtTopic"_s, {u"TopicDescription"_s}};
const DetailBox AuthorBox{u"txtAuthor"_s, {u"AuthorFirstName"_s, u"AuthorSurName"_s}};

BookBrowserKind topicBrowser()
{
    BookBrowserKind kind;
    kind.formName = u"frmTopicBook"_s;
    kind.menuEntry = u"mnuTopicSrch"_s;
    kind.helpTopic = 15;
    kind.caption = u"Books by Topic"_s;
    kind.tree = u"tvwTopics"_s;
    kind.loadSql =
        u"select tblTopic.TopicID, tblTopic.TopicDescription,  tblBook.BookID, "
        "tblBook.BookDescription from tblTopic, tblBook, tblBookTopic where tblBook.BookID = "
        "tblBookTopic.BookID and tblBookTopic.TopicID = tblTopic.TopicID order by "
        "tblTopic.TopicDescription, tblBook.BookDescription "_s;
    kind.rootIdField = u"TopicID"_s;
    kind.rootTextField = u"TopicDescription"_s;
    kind.rootImage = u"Topic"_s;
    kind.emptyMessage = u"This form cannot be displayed as there are\r\nno topics linked to any "
                        "books. Please allocate books\r\nto topics before using this form"_s;
    kind.emptyTitle = u"Topic/Book form"_s;
    kind.detailSql =
        u"Select tblTopic.TopicDescription, tblBook.BookID, tblBook.BookDescription, "
        "tblpublisher.publishername from tblTopic, tblBook, tblBookTopic,tblPublisher where "
        "tblBook.BookID = tblBookTopic.BookID and tblBookTopic.TopicID = tblTopic.TopicID and "
        "tblBook.BookPublisherID = tblPublisher.PublisherID and tblBook.BookID = "_s;
    kind.ownBox = TopicBox;
    kind.secondSql = u"Select tblauthor.authorfirstname,tblauthor.authorsurname from "
                     "tblBookAuthor, tblAuthor where tblBookAuthor.AuthorID = "
                     "tblAuthor.AuthorID and tblBookAuthor.BookID = "_s;
    kind.otherBox = AuthorBox;
    kind.otherFallback = u"No author allocated to this book"_s;
    kind.editTitle = u"Topic/Book List"_s;
    return kind;
}

BookBrowserKind authorBrowser()
{
    BookBrowserKind kind;
    kind.formName = u"frmAuthorBook"_s;
    kind.menuEntry = u"mnuAuthorSrch"_s;
    kind.helpTopic = 16;
    kind.caption = u"Books by Author"_s;
    kind.tree = u"tvwAuthors"_s;
    kind.loadSql =
        u"select tblAuthor.AuthorID, tblAuthor.AuthorFirstName & ' ' & tblAuthor.AuthorSurName "
        "as AuthorName,  tblBook.BookID, tblBook.BookDescription from tblAuthor, tblBook, "
        "tblBookAuthor where tblBook.BookID = tblBookAuthor.BookID and tblBookAuthor.AuthorID = "
        "tblAuthor.AuthorID order by 2, tblBook.BookDescription "_s;
    kind.rootIdField = u"AuthorID"_s;
    kind.rootTextField = u"AuthorName"_s;
    kind.rootImage = u"Author"_s;
    kind.emptyMessage = u"This form cannot be displayed as there are\r\nno authors linked to any "
                        "books. Please allocate books\r\nto authors before using this form"_s;
    kind.emptyTitle = u"Author/Book form"_s;
    kind.detailSql =
        u"Select tblBook.BookID, tblBook.BookDescription, tblpublisher.publishername, "
        "tblauthor.authorfirstname,tblauthor.authorsurname from tblAuthor, tblBook, "
        "tblBookAuthor,tblPublisher where tblBook.BookID = tblBookAuthor.BookID and "
        "tblBookAuthor.AuthorID = tblAuthor.AuthorID and tblBook.BookPublisherID = "
        "tblPublisher.PublisherID and tblBook.BookID = "_s;
    kind.ownBox = AuthorBox;
    kind.secondSql = u"Select tblTopic.TopicDescription from tblBookTopic, tblTopic where "
                     "tblBookTopic.TopicID = tblTopic.TopicID and tblBookTopic.BookID = "_s;
    kind.otherBox = TopicBox;
    kind.otherFallback = u"No topic allocated to this book"_s;
    kind.editTitle = u"Author/Book List"_s;
    return kind;
}

} // namespace

const QList<BookBrowserKind> &BookBrowserKinds()
{
    static const QList<BookBrowserKind> kinds{topicBrowser(), authorBrowser()};
    return kinds;
}
