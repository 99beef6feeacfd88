#pragma once

#include "recordform/promptpreference.h"

#include <QString>

#include <optional>

// What a prompt says for the form that shows it. Line breaks are "\r\n".
struct PromptText
{
    QString caption;
    QString text;
};

// The caption and text of the prompt for the calling form; none for a form that has no such
// prompt (the dialog then keeps its design texts). The search form's results prompt tells how
// many books were found.
std::optional<PromptText> PromptTextFor(PromptKind kind, const QString &calledFrom,
                                        int booksFound);

// Whether the prompt hands its answer to a form of that name: the add prompt to the book,
// author, topic, publisher and search forms, the delete prompt to the first four.
bool PromptAnswersReach(PromptKind kind, const QString &calledFrom);
