#pragma once

#include "reports/cataloguereports.h"
#include "reports/dataenvironment.h"

#include <QObject>

#include <memory>

class MainFrame;

// The frame's report commands: Reports › by Title / by Author / by Topic and the matching
// items of the "Reports" drop-down, File › Print Labels, and the book form's single label.
// Each runs its data-environment command afresh and opens the result in a report window.
// While a listing is open both of its entry points stay disabled; the labels disable nothing.
class ReportCommands : public QObject
{
    Q_OBJECT

public:
    explicit ReportCommands(MainFrame &frame);
    ~ReportCommands() override;

    // deShelvane as the last report command prepared it; nullptr before the first.
    DataEnvironment *dataEnvironment() const { return m_deShelvane.get(); }

    // Runs a listing's command: its rows, its front page, its window. Throws ProviderError or
    // RuntimeError before any window is made.
    void runListing(CatalogueListing listing);
    // Asks, fills the label table and shows the label sheet. Throws as runListing.
    void printLabels();
    // Shows the labels of the book with that number. Throws as runListing.
    void printSingleLabel(const QString &bookNumber);

private:
    DataEnvironment &PrepareDataEnvironment();
    // A label report is made afresh each time, so an open one gives way to the new one.
    void replaceReport(ReportDocument document);

    MainFrame &m_frame;
    std::unique_ptr<DataEnvironment> m_deShelvane;
};
