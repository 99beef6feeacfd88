#include "recordform/prompttexts.h"

#include <QHash>

using namespace Qt::StringLiterals;

const QString MandatoryNote = u"Note: manditory fields are highlighted in yellow"_s;

namespace {

// The wordings of the forms registered so far, by form name. A form registered again (a new
// frame) words its prompts the same.
QHash<QString, PromptWording> &wordings(PromptKind kind)
{
    static QHash<QString, PromptWording> add;
    static QHash<QString, PromptWording> remove;
    return kind == PromptKind::AddNew ? add : remove;
}

} // namespace

PromptWording FixedWording(const QString &caption, const QString &text)
{
    return [caption, text](int) { return PromptText{caption, text}; };
}

void RegisterPromptWording(const QString &formName, PromptKind kind, PromptWording wording)
{
    if (wording)
        wordings(kind).insert(formName, std::move(wording));
}

std::optional<PromptText> PromptTextFor(PromptKind kind, const QString &calledFrom,
                                        int booksFound)
{
    const PromptWording wording = wordings(kind).value(calledFrom);
    if (!wording)
        return std::nullopt;
    return wording(booksFound);
}

bool PromptAnswersReach(PromptKind kind, const QString &calledFrom)
{
    return wordings(kind).contains(calledFrom);
}

QStringList FormsWithPrompt(PromptKind kind)
{
    return wordings(kind).keys();
}
