#pragma once

#include "forms/reference/registerreferenceforms.h"
#include "support/catalogueopener.h"
#include "support/modalresponder.h"

#include <QHash>
#include <QString>
#include <QStringList>

class QAbstractButton;
class QWidget;

// What a user sees of each maintenance form, written out here independently of the program,
// so that the tests check the texts rather than repeat them.
struct FormCase
{
    QString form;
    QString caption;
    QString menuEntry;
    QString entity;
    QString table;
    QString keyColumn;
    QString listColumn;
    QString lookupCombo;
    QStringList mandatory; // the yellow fields, in the order they are checked
    QStringList missingMessages;
    QString focusAfterAdd;
    // A complete new record, by field: every mandatory field and one optional field.
    QList<std::pair<QString, QString>> newRecord;
    QString addPrompt;
    QString deletePrompt;
    QString added;
    QString addedTitle;
    QString removed;
    QString removedTitle;
};

const FormCase &formCase(const QString &name);
// Adds the column "form" and one row per maintenance form, named after it.
void addFormRows();
// The case of the current data row.
const FormCase &currentCase();

// Opens the form as a user does, by its menu entry; nullptr when it did not appear.
QWidget *openForm(const FormCase &formCase);

QAbstractButton *button(const QWidget *form, const QString &name);
QWidget *field(const QWidget *form, const QString &name);
QString fieldText(const QWidget *form, const QString &name);
// Clicks a button with the mouse, as a user does.
void click(const QWidget *form, const QString &name);
// Replaces what a field shows by typing, as a user does.
void typeInto(const QWidget *form, const QString &name, const QString &text);
// Picks the entry shown as `text` from the list of the form's lookup combo with the mouse.
bool pickFromLookup(const QWidget *form, const FormCase &formCase, const QString &text);

// The second panel of the form's status bar: "Author 3 of 41".
QString statusText(const QWidget *form);
bool isYellow(const QWidget *field);
bool isWhite(const QWidget *field);
// Enabled states of First, Previous, Next, Last, e.g. "0011".
QString navigationState(const QWidget *form);

// A message box with an OK button and no icon, answered with OK.
ModalExpectation plainMessage(const QString &title, const QString &text);
// The add or delete prompt of the form, answered with the button named.
ModalExpectation addPrompt(const FormCase &formCase, const QString &press);
ModalExpectation deletePrompt(const FormCase &formCase, const QString &press);

// Whether the form is adding: Confirm and Cancel Add shown, the moves, Add and Delete off, the
// mandatory fields yellow. Empty when it is; otherwise what differs.
QString addModeProblems(const QWidget *form, const FormCase &formCase);
// The same for browsing: Confirm and Cancel hidden, Add on, the mandatory fields white.
QString browseModeProblems(const QWidget *form, const FormCase &formCase);

// Stores a prompt preference for the form ("AddNewPrompt" / "DeletePrompt").
void storePrompt(const FormCase &formCase, const QString &key, const QString &value);
// Rows of the form's table.
int rowCount(const CatalogueOpener &opener, const FormCase &formCase);
// How many rows of the form's table have `value` in the column.
int rowsWith(const CatalogueOpener &opener, const FormCase &formCase, const QString &column,
             const QString &value);
// The column of the row whose key is `key`.
QString valueOf(const CatalogueOpener &opener, const FormCase &formCase, const QString &column,
                const QString &key);
// Empties the form's table (and what refers to it).
void emptyTable(const CatalogueOpener &opener, const FormCase &formCase);
