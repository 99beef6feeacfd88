#pragma once

#include "recordform/promptpreference.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

// What a prompt says for the form that shows it. Line breaks are "\r\n".
struct PromptText
{
    QString caption;
    QString text;
};

// How a form words one of its prompts; only the search form's results prompt uses the number
// of books found.
using PromptWording = std::function<PromptText(int booksFound)>;

// The last line of every add prompt of a form with mandatory fields.
extern const QString MandatoryNote;

// The same words whatever was found.
PromptWording FixedWording(const QString &caption, const QString &text);

// Each area words the prompts of its forms as it registers them; an empty wording leaves the
// form without that prompt.
void RegisterPromptWording(const QString &formName, PromptKind kind, PromptWording wording);

// The caption and text of the prompt for the calling form; none for a form that has no such
// prompt (the dialog then keeps its design texts).
std::optional<PromptText> PromptTextFor(PromptKind kind, const QString &calledFrom,
                                        int booksFound);

// Whether the prompt hands its answer to a form of that name: to every form that words it.
bool PromptAnswersReach(PromptKind kind, const QString &calledFrom);

// The forms that word the prompt.
QStringList FormsWithPrompt(PromptKind kind);
