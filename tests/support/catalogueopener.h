#pragma once

#include "support/modalresponder.h"
#include "support/testcatalogue.h"

#include <QString>

#include <functional>
#include <memory>

class MainFrame;

// Picks `path` in frmOpen the way a person does (the toolbar's open button, "..." and the
// file in the file dialog) and presses "Open", answering the windows that follow as
// `expected` says with the test's responder. Answers what went wrong, empty when all was so.
QString PressOpenFor(MainFrame &frame, const QString &path, ModalResponder &responder,
                     const QList<ModalExpectation> &expected, int timeoutMs = 5000);

// Opens the catalogue at `path` in the frame the way a person does: the toolbar's open
// button, "..." and the file in the file dialog, "Open", and OK to "Quireshelf Sucessfully
// opened". The test's responder answers the dialogs (two responders would answer each other's
// windows). Answers what went wrong, empty when the catalogue is open.
QString OpenCatalogueThroughForm(MainFrame &frame, const QString &path,
                                 ModalResponder &responder);

// The start of every form test: a catalogue in a temporary folder (the demo collection
// unless told otherwise), the main frame shown with the forms of the areas under test
// registered, and the catalogue opened through frmOpen. Make the test's own responder after
// this fixture has opened the catalogue.
class CatalogueOpener
{
public:
    using Registration = std::function<void(MainFrame &)>;

    explicit CatalogueOpener(const Registration &registerForms = {},
                             TestCatalogue::Content content = TestCatalogue::Content::Sample);
    ~CatalogueOpener();
    CatalogueOpener(const CatalogueOpener &) = delete;
    CatalogueOpener &operator=(const CatalogueOpener &) = delete;

    MainFrame &frame() const { return *m_frame; }
    const TestCatalogue &catalogue() const { return m_catalogue; }
    // What went wrong while opening; empty when the catalogue is open.
    QString problems() const { return m_problems; }

private:
    TestCatalogue m_catalogue;
    std::unique_ptr<MainFrame> m_frame;
    QString m_problems;
};
