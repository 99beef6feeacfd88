#include "recordform/prompttexts.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

const QString MandatoryNote = u"Note: manditory fields are highlighted in yellow"_s;

QString linksWarning(const QString &entity)
{
    return u"Are you sure you wish to delete this "_s + entity + u", \r\n"_s
        + u"it will also delete the links to any books \r\n"_s
        + u"that are classified against this "_s + entity + u"?"_s;
}

const QHash<QString, PromptText> &addTexts()
{
    static const QHash<QString, PromptText> texts{
        {u"frmBookMaintenance"_s,
         {u"Add New Book"_s,
          u"Enter Book details then confirm or cancel, then \r\n"_s
              + u"allocate topic(s) and author(s).\r\n\r\n"_s + MandatoryNote}},
        {u"frmAuthor"_s,
         {u"Add New Author"_s,
          u"Enter Author details then confirm or cancel.\r\n\r\n"_s + MandatoryNote}},
        {u"frmTopic"_s,
         {u"Add New Topic"_s,
          u"Enter Topic details then confirm or cancel.\r\n\r\n"_s + MandatoryNote}},
        {u"frmPublisher"_s,
         {u"Add New Publisher"_s,
          u"Enter Publisher details then confirm or cancel.\r\n\r\n"_s + MandatoryNote}},
    };
    return texts;
}

const QHash<QString, PromptText> &deleteTexts()
{
    static const QHash<QString, PromptText> texts{
        {u"frmBookMaintenance"_s,
         {u"Delete Book"_s,
          u"Delete will remove connections with the associated topics and \r\n"_s
              + u"authors, and remove the current book. Are you sure you wish to \r\n"_s
              + u"continue"_s}},
        {u"frmAuthor"_s, {u"Delete Author"_s, linksWarning(u"author"_s)}},
        {u"frmTopic"_s, {u"Delete Topic"_s, linksWarning(u"topic"_s)}},
        {u"frmPublisher"_s, {u"Delete Publisher"_s, linksWarning(u"Publisher"_s)}},
    };
    return texts;
}

PromptText searchResults(int booksFound)
{
    return {u"Search Results"_s,
            u"The search found "_s + QString::number(booksFound) + u" Books, \r\n\r\n"_s
                + u"Would you like to see the results?"_s};
}

} // namespace

std::optional<PromptText> PromptTextFor(PromptKind kind, const QString &calledFrom,
                                        int booksFound)
{
    if (kind == PromptKind::AddNew && calledFrom == u"frmSearch")
        return searchResults(booksFound);
    const QHash<QString, PromptText> &texts = kind == PromptKind::AddNew ? addTexts() : deleteTexts();
    const auto found = texts.constFind(calledFrom);
    if (found == texts.constEnd())
        return std::nullopt;
    return *found;
}

bool PromptAnswersReach(PromptKind kind, const QString &calledFrom)
{
    if (kind == PromptKind::AddNew && calledFrom == u"frmSearch")
        return true;
    return deleteTexts().contains(calledFrom);
}
