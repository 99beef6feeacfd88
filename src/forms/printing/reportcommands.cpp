#include "forms/printing/reportcommands.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/connection.h"
#include "forms/books/labelprinter.h"
#include "forms/printing/showreport.h"
#include "recordform/msgbox.h"
#include "recordform/runtimeerrorreport.h"
#include "reports/labelreports.h"
#include "reports/labeltable.h"

using namespace Qt::StringLiterals;

namespace {

// Each listing's two entry points: its Reports menu entry and its "Reports" drop-down item.
struct EntryPoints
{
    CatalogueListing listing;
    QString menuEntry;
    QString dropDownItem;
};

const QList<EntryPoints> &entryPoints()
{
    static const QList<EntryPoints> entries{
        {CatalogueListing::ByTitle, u"mnuRepTitleOrder"_s, u"TitleRep"_s},
        {CatalogueListing::ByAuthor, u"mnuRepAuthorOrder"_s, u"AuthorRep"_s},
        {CatalogueListing::ByTopic, u"mnuRepTopicOrder"_s, u"TopicRep"_s},
    };
    return entries;
}

const EntryPoints &entryPointsOf(CatalogueListing listing)
{
    return entryPoints()[int(listing)];
}

} // namespace

ReportCommands::ReportCommands(MainFrame &frame)
    : QObject(&frame)
    , m_frame(frame)
{
    setObjectName(u"ReportCommands"_s);
    for (const EntryPoints &entry : entryPoints()) {
        const CatalogueListing listing = entry.listing;
        frame.setCommand(entry.menuEntry,
                         [this, listing] { runListing(listing); });
    }
    frame.setCommand(u"mnuPrintLabels"_s, [this] { printLabels(); });
    SetSingleLabelPrinter([this](const QString &bookNumber) {
        RunHandler([this, bookNumber] { printSingleLabel(bookNumber); });
    });
    // Compacting the catalogue needs every connection to it closed, deShelvane's included.
    connect(&frame, &MainFrame::closingConnections, this, [this] {
        if (m_deShelvane)
            m_deShelvane->close();
    });
}

ReportCommands::~ReportCommands()
{
    SetSingleLabelPrinter({});
}

// Points all four connections of a new deShelvane at the open catalogue.
DataEnvironment &ReportCommands::PrepareDataEnvironment()
{
    m_deShelvane = ::PrepareDataEnvironment(m_frame.session().strCataloguePath);
    return *m_deShelvane;
}

void ReportCommands::runListing(CatalogueListing listing)
{
    const QString reportName = ListingInfo(listing).reportName;
    FormRegistry &forms = m_frame.forms();
    if (forms.find(reportName)) {
        forms.show(reportName);
        return;
    }
    ReportDocument document = LoadCatalogueListing(listing, PrepareDataEnvironment(),
                                                   m_frame.session().strCataloguePath);
    // The rows are held by the report now; no connection stays open on the catalogue file.
    m_deShelvane->close();

    ShowReportWindow(m_frame, std::move(document));
    const EntryPoints &entry = entryPointsOf(listing);
    for (const QString &name : {entry.menuEntry, entry.dropDownItem}) {
        if (QAction *action = m_frame.action(name))
            forms.disableWhileLoaded(reportName, action);
    }
}

void ReportCommands::printLabels()
{
    if (MsgBox(u"This will print labels for the whole of your collection!\r\n\r\n"
               "Are you sure you wish to continue?"_s,
               Vb::YesNo | Vb::Information, u"Print Labels!"_s) == Vb::No)
        return;
    {
        Connection connection;
        connection.open(m_frame.session().connectionString());
        FillLabelTable(connection);
    }
    ReportDocument document = LoadLabelSheet(PrepareDataEnvironment());
    m_deShelvane->close();
    replaceReport(std::move(document));
}

void ReportCommands::printSingleLabel(const QString &bookNumber)
{
    ReportDocument document = LoadSingleLabel(PrepareDataEnvironment(), bookNumber);
    m_deShelvane->close();
    replaceReport(std::move(document));
}

void ReportCommands::replaceReport(ReportDocument document)
{
    FormRegistry &forms = m_frame.forms();
    if (QWidget *open = forms.find(document.definition.name)) {
        if (!forms.unload(open))
            return;
    }
    ShowReportWindow(m_frame, std::move(document));
}
