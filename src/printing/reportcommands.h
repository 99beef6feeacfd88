#pragma once

#include "printing/cataloguereports.h"
#include "printing/dataenvironment.h"

#include <QObject>

#include <memory>

class MainFrame;

// The frame's report commands: Reports › by Title / by Author / by Topic and the matching
// items of the "Reports" drop-down. Each runs its listing afresh and opens it in its report
// window; while that window is open both of its entry points stay disabled.
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

private:
    MainFrame &m_frame;
    std::unique_ptr<DataEnvironment> m_deShelvane;
};
