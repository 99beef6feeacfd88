#include "forms/reference/referencelist.h"

#include "recordform/prompttexts.h"

using namespace Qt::StringLiterals;

namespace {

ReferenceMessage addPrompt(const QString &entity)
{
    return {u"Enter "_s + entity + u" details then confirm or cancel.\r\n\r\n"_s + MandatoryNote,
            u"Add New "_s + entity};
}

// As each form words it: "author" and "topic", but "Publisher".
ReferenceMessage deletePrompt(const QString &entity, const QString &asWordedInText)
{
    return {u"Are you sure you wish to delete this "_s + asWordedInText + u", \r\n"_s
                + u"it will also delete the links to any books \r\n"_s
                + u"that are classified against this "_s + asWordedInText + u"?"_s,
            u"Delete "_s + entity};
}

// The key field's tooltip speaks of a book on every form; its wording is kept.
const QString KeyToolTip = u"Display only field, shows unique book id. Shown on reports."_s;

const QStringList &nationalities()
{
    // "Isreali" is spelled so in the catalogues already written; it stays.
    static const QStringList list{
        u"American"_s, u"Australian"_s, u"Austrian"_s, u"Belgian"_s, u"British"_s,
        u"Canadian"_s, u"Danish"_s,     u"Dutch"_s,    u"French"_s,  u"German"_s,
        u"Greek"_s,    u"Isreali"_s,    u"Norwegian"_s, u"Polish"_s, u"Portuguese"_s,
        u"Russian"_s,  u"Spanish"_s,    u"Swedish"_s,  u"Swiss"_s,   u"Turkish"_s,
    };
    return list;
}

ReferenceList authors()
{
    ReferenceList list;
    list.formName = u"frmAuthor"_s;
    list.helpTopic = 10;
    list.menuEntry = u"mnuAuthorS"_s;
    list.caption = u"Author Maintenance"_s;
    list.entity = u"Author"_s;
    list.addPrompt = addPrompt(u"Author"_s);
    list.deletePrompt = deletePrompt(u"Author"_s, u"author"_s);
    list.edited = {u"adoAuthor"_s, u"select * from tblAuthor order by AuthorSurname"_s};
    list.lookup = {u"adoAuthorLkup"_s, u"select * from tblauthor order by authorsurname"_s};
    list.lookupCombo = u"dboAuthorLkup"_s;
    list.lookupLabel = u"Auth&or List "_s;
    list.lookupToolTip = u"You can pick an Author from the list for editting."_s;
    list.listField = u"AuthorSurname"_s;
    list.keyField = u"AuthorID"_s;
    list.fields = {
        {u"txtAuthorID"_s, u"AuthorID"_s, u"Author ID"_s, KeyToolTip, FieldKind::Key, {}, {}},
        {u"txtAuthorFirstName"_s, u"AuthorFirstName"_s, u"Author Firstna&me"_s,
         u"Enter author firstname here - Optional"_s, FieldKind::Text, {}, {}},
        {u"txtAuthorSurname"_s, u"AuthorSurname"_s, u"Author &Surname"_s,
         u"Enter author surname here - Mandatory"_s, FieldKind::Text, {},
         u"Please enter the Author surname"_s},
        {u"cboAuthorNationality"_s, u"AuthorNationality"_s, u"A&uthor Nationality"_s,
         u"Pick author nationality from the list - Optional"_s, FieldKind::Choice,
         nationalities(), {}},
        {u"txtAuthorNotes"_s, u"AuthorNotes"_s, u"Note&s"_s,
         u"You may enter notes about the author here - Optional"_s, FieldKind::Notes, {}, {}},
    };
    list.focusAfterAdd = u"txtAuthorFirstName"_s;
    list.added = {u"New Author Sucessfully added"_s, u"Add New Author"_s};
    list.removed = {u"Author Successfully removed"_s, u"Delete Author"_s};
    list.refusal = DeleteRefusal::Halt;
    return list;
}

ReferenceList topics()
{
    ReferenceList list;
    list.formName = u"frmTopic"_s;
    list.helpTopic = 11;
    list.menuEntry = u"mnuTopicS"_s;
    list.caption = u"Topic Maintenance"_s;
    list.entity = u"Topic"_s;
    list.addPrompt = addPrompt(u"Topic"_s);
    list.deletePrompt = deletePrompt(u"Topic"_s, u"topic"_s);
    list.edited = {u"adoTopic"_s, u"select * from tblTopic order by topicdescription"_s};
    list.lookup = {u"adoTopicLkup"_s, u"select * from tbltopic order by topicdescription"_s};
    list.lookupCombo = u"dboTopicLkup"_s;
    list.lookupLabel = u"T&opic List "_s;
    list.lookupToolTip = u"Pick a topic from the drop down list for editting"_s;
    list.listField = u"TopicDescription"_s;
    list.keyField = u"TopicID"_s;
    // The notes are checked although their tooltip calls them optional.
    list.fields = {
        {u"txtTopicID"_s, u"TopicID"_s, u"&Topic ID"_s, KeyToolTip, FieldKind::Key, {}, {}},
        {u"txtTopicDescription"_s, u"TopicDescription"_s, u"Topic &Description"_s,
         u"ENter topic description - mandatory field"_s, FieldKind::Text, {},
         u"Please enter a topic description"_s},
        {u"txtTopicNotes"_s, u"TopicNotes"_s, u"Topic N&otes:"_s,
         u"Enter topic notes - optional field"_s, FieldKind::Notes, {},
         u"Please enter topic notes"_s},
    };
    list.focusAfterAdd = u"txtTopicDescription"_s;
    list.added = {u"New topic Sucessfully added"_s, u"Add New Topic"_s};
    list.removed = {u"Topic Successfully removed"_s, u"Delete Topic"_s};
    list.refusal = DeleteRefusal::RunTimeError;
    return list;
}

ReferenceList publishers()
{
    ReferenceList list;
    list.formName = u"frmPublisher"_s;
    list.helpTopic = 12;
    list.menuEntry = u"mnuPublishers"_s;
    list.caption = u"Publisher Maintenance"_s;
    list.entity = u"Publisher"_s;
    list.addPrompt = addPrompt(u"Publisher"_s);
    list.deletePrompt = deletePrompt(u"Publisher"_s, u"Publisher"_s);
    list.edited = {u"adoPublisher"_s, u"select * from tblpublisher order by publishername"_s};
    list.lookup = {u"adoPublisherLkup"_s, u"select * from tblPublisher order by publishername"_s};
    list.lookupCombo = u"dboPublisherLkup"_s;
    list.lookupLabel = u"&Publisher List "_s;
    list.lookupToolTip = u"Pick a publisher from the drop down list for editting"_s;
    list.listField = u"PublisherName"_s;
    list.keyField = u"PublisherID"_s;
    list.fields = {
        {u"txtPublisherID"_s, u"PublisherID"_s, u"Publisher ID"_s, KeyToolTip, FieldKind::Key,
         {}, {}},
        {u"txtPublisherName"_s, u"PublisherName"_s, u"P&ublisher Name"_s,
         u"Enter publisher name - Mandatory field"_s, FieldKind::Text, {},
         u"Please enter a Publisher name"_s},
        {u"txtPublisherPlace"_s, u"PublisherPlace"_s, u"Publisher Pla&ce"_s,
         u"Enter publishers location - optional field"_s, FieldKind::Text, {}, {}},
        {u"txtPublisherNotes"_s, u"PublisherNotes"_s, u"Note&s"_s,
         u"Notes about the publisher - optional field"_s, FieldKind::Notes, {}, {}},
    };
    list.focusAfterAdd = u"txtPublisherName"_s;
    list.added = {u"New Publisher Sucessfully added"_s, u"Add New Publisher"_s};
    list.removed = {u"Publisher Successfully removed"_s, u"Delete Publisher"_s};
    list.refusal = DeleteRefusal::InUseMessage;
    list.inUse = {u"Publisher in use, please re-assign any books\r\n"
                  "using this publisher to another publisher!"_s,
                  u"Maintain Publisher"_s};
    list.refreshesBookPublishers = true;
    return list;
}

} // namespace

const QList<ReferenceList> &ReferenceLists()
{
    static const QList<ReferenceList> lists{authors(), topics(), publishers()};
    return lists;
}
