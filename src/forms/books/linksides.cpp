#include "forms/books/linksides.h"

#include "data/runtimeerror.h"

using namespace Qt::StringLiterals;

namespace {

LinkSideTexts authors()
{
    LinkSideTexts texts;
    texts.side = LinkSide::Author;
    texts.dialog = u"dlgGetAuthor"_s;
    texts.helpTopic = 7;
    texts.dialogCaption = u"Author Selection"_s;
    texts.lookupCombo = u"dboAuthorLkup"_s;
    texts.lookupControl = u"adoAuthorLkup"_s;
    texts.lookupSource = u"select authorid,authorsurname & ' ,  ' & authorfirstname from tblauthor "
                         "order by authorsurname"_s;
    texts.lookupBoundColumn = u"authorid"_s;
    texts.lookupToolTip = u"Display Authors by clicking the down arrow."_s;
    texts.insertPrefix = u"Insert into tblBookAuthor (BookID,authorID) values ("_s;
    texts.duplicateMessage = u"This author is already linked to this book, try again."_s;
    texts.nothingPickedMessage = u"Please pick an author from the list, or cancel to exit"_s;

    texts.linkControl = u"adoAuthor"_s;
    texts.gridColumns = {{u"authorid"_s, u"authorid"_s, 64},
                         {u"authorfirstname"_s, u"First Name"_s, 120},
                         {u"authorsurname"_s, u"Surname"_s}};
    texts.deleteTitle = u"Delete Author"_s;
    texts.oneAtATimeMessage = u"Please remove authors one at a time"_s;
    texts.noneSelectedMessage = u"No author selected for deletion"_s;
    texts.question = u"Are you sure you wish to disassociate the book from this author?"_s;
    texts.deletePrefix = u"Delete from tblBookauthor where BookID = "_s;
    texts.deleteKeyCondition = u" and authorID = "_s;
    texts.listSource = u"select tblauthor.authorid, tblauthor.authorfirstname, "
                       "tblauthor.authorsurname from tblauthor inner join tblbookauthor on "
                       "tblbookauthor.authorid =  tblauthor.authorid where tblbookauthor.bookid = "_s;
    return texts;
}

LinkSideTexts topics()
{
    LinkSideTexts texts;
    texts.side = LinkSide::Topic;
    texts.dialog = u"dlgGetTopic"_s;
    texts.helpTopic = 9;
    texts.dialogCaption = u"Topic Selection"_s;
    texts.lookupCombo = u"dboTopicLkup"_s;
    texts.lookupControl = u"adoTopicLkup"_s;
    texts.lookupSource = u"select * from tbltopic order by topicdescription"_s;
    texts.lookupListField = u"TopicDescription"_s;
    texts.lookupBoundColumn = u"TopicID"_s;
    texts.lookupToolTip = u"Display topics by clicking the down arrow."_s;
    texts.insertPrefix = u"Insert into tblBookTopic (BookID,TopicID) values ("_s;
    texts.duplicateMessage = u"This topic is already linked to this book, try again."_s;
    texts.nothingPickedMessage = u"Please pick a topic from the list, or cancel to exit"_s;

    texts.linkControl = u"adoTopic"_s;
    texts.gridColumns = {{u"topicid"_s, u"topicid"_s, 56},
                         {u"bookid"_s, u"BookId"_s, 56},
                         {u"topicdescription"_s, u"Description "_s, 120},
                         {u"topicnotes"_s, u"Notes"_s}};
    texts.deleteTitle = u"Delete Topic"_s;
    texts.oneAtATimeMessage = u"Please remove topics one at a time"_s;
    texts.noneSelectedMessage = u"No topic selected for deletion"_s;
    texts.question = u"Are you sure you wish to disassociate the book from this topic?"_s;
    texts.deletePrefix = u"Delete from tblBookTopic where BookID = "_s;
    texts.deleteKeyCondition = u" and TopicID = "_s;
    texts.listSource = u"Select tblbooktopic.topicid,tblbooktopic.BookId, "
                       "tbltopic.topicdescription, tbltopic.topicnotes from tbltopic inner join "
                       "tblbooktopic on tblbooktopic.topicid = tbltopic.topicid where "
                       "tblbooktopic.bookid = "_s;
    return texts;
}

} // namespace

const QList<LinkSideTexts> &LinkSides()
{
    static const QList<LinkSideTexts> sides{authors(), topics()};
    return sides;
}

const LinkSideTexts &LinkSideOf(LinkSide side)
{
    return LinkSides().at(side == LinkSide::Author ? 0 : 1);
}

QString AsWholeNumber(const QString &text)
{
    bool ok = false;
    const double number = text.trimmed().toDouble(&ok);
    if (!ok)
        throw RuntimeError{13, u"Type mismatch"_s};
    return QString::number(qRound64(number));
}
