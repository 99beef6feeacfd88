#pragma once

#include "support/modalresponder.h"
#include "support/testcatalogue.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>

class FrmBookMaintenance;
class MainFrame;
class QWidget;

// What every book form test starts from: a catalogue in a temporary folder (prepared by the
// test before anything opens it), the frame with the book forms registered, and the catalogue
// opened through frmOpen as a person does.
class BookFormFixture
{
public:
    using Preparation = std::function<void(const TestCatalogue &)>;

    explicit BookFormFixture(TestCatalogue::Content content = TestCatalogue::Content::Sample,
                             const Preparation &prepare = {});
    ~BookFormFixture();
    BookFormFixture(const BookFormFixture &) = delete;
    BookFormFixture &operator=(const BookFormFixture &) = delete;

    MainFrame &frame() const { return *m_frame; }
    const TestCatalogue &catalogue() const { return m_catalogue; }
    // The one responder of the test: it answers every message box and modal dialog.
    ModalResponder &responder() const { return *m_responder; }
    // What went wrong while opening; empty when the catalogue is open.
    QString problems() const { return m_problems; }

    // The toolbar's "Book" button, answering the windows that showing the form brings up.
    FrmBookMaintenance *showBooks(const QList<ModalExpectation> &expected = {});
    // The loaded book form, shown or not.
    FrmBookMaintenance *form() const;

    // One column of tblBook, in title order, for looking at what the form wrote.
    QStringList bookColumn(const QString &column) const;
    int rows(const QString &sql) const;

private:
    TestCatalogue m_catalogue;
    std::unique_ptr<MainFrame> m_frame;
    std::unique_ptr<ModalResponder> m_responder;
    QString m_problems;
};

// The first book of the sample catalogue in title order.
inline const QString FirstTitle = QStringLiteral("A Christmas Carol");

// One column of the book with the given title, straight from the file.
QVariant bookValue(const BookFormFixture &fixture, const QString &column, const QString &title);

// A status bar panel of the form, counted from 1.
QString Panel(const QWidget *form, int number);
// The text a box or list shows.
QString Shown(const QWidget *form, const QString &control);
// Whether the prompts of the book form are shown: "Y" or anything else.
void SetBookPrompt(const QString &key, const QString &value);

// Adds the text at the end of a box as a person types it, so that the box's key filter sees
// each key.
void TypeInto(QWidget *box, const QString &text);
// Empties a text box with the keyboard.
void ClearWithKeys(QWidget *box);
// Picks an entry of a drop-down list with the mouse (an editable one through its arrow).
void PickFromList(QWidget *combo, const QString &text);
// Clicks a widget with the left button.
void Click(QWidget *widget);

// The message boxes of the book form, as the user sees them.
ModalExpectation Message(const QString &title, const QString &text, const QString &press = QStringLiteral("OK"));
ModalExpectation Question(const QString &title, const QString &text, const QStringList &buttons,
                          const QString &press);
ModalExpectation Warning(const QString &title, const QString &text);
