#pragma once

#include <QString>

class MainFrame;

// Opens the book form on one book alone: the book becomes the only row of tblCriteriaHits,
// and the book form is loaded afresh with its filter pending. Throws ProviderError when the
// hits cannot be written; they keep their earlier rows then.
void ShowOnlyBook(MainFrame &frame, const QString &bookId);
