#pragma once

#include <QString>

// The two prompts a form can show before it acts: the add prompt (which on the search form
// offers the results) and the delete prompt. Each can be switched off per form; the choice is
// kept in the settings store under the form's name, "Y" to show and "N" not to.
enum class PromptKind { AddNew, Delete };

// The settings key of the prompt: "AddNewPrompt" or "DeletePrompt".
QString PromptKey(PromptKind kind);

// The stored preference of a form, "Y" when nothing is stored.
QString PromptSetting(const QString &formName, PromptKind kind);
void StorePromptSetting(const QString &formName, PromptKind kind, const QString &value);

// Whether the form shows the prompt: exactly when its preference is "Y".
bool PromptWanted(const QString &formName, PromptKind kind);

// Help › Set All Help Prompts › On / Off: every prompt of every form is switched on (or off)
// and the sub-menu's check marks follow.
void SetAllHelpPrompts(bool on);

// Clears the check mark of the frame's mnuOn or mnuOff item. The marks only tell what was
// chosen last in this run; they are never read back from the store.
void ClearHelpPromptMark(const QString &itemName);
