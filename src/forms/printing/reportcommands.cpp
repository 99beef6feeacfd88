#include "forms/printing/reportcommands.h"

#include "app/formregistry.h"
#include "app/helptopics.h"
#include "app/mainframe.h"
#include "data/connection.h"
#include "forms/printing/showreport.h"
#include "forms/printing/workprogress.h"
#include "recordform/msgbox.h"
#include "recordform/runtimeerrorreport.h"
#include "reports/labelreports.h"
#include "reports/labeltable.h"

using namespace Qt::StringLiterals;

namespace {

// Each listing's Reports menu entry (and so the toolbar's item standing for it).
const QList<std::pair<CatalogueListing, QString>> &menuEntries()
{
    static const QList<std::pair<CatalogueListing, QString>> entries{
        {CatalogueListing::ByTitle, u"mnuRepTitleOrder"_s},
        {CatalogueListing::ByAuthor, u"mnuRepAuthorOrder"_s},
        {CatalogueListing::ByTopic, u"mnuRepTopicOrder"_s},
    };
    return entries;
}

// The help topics of the listings' windows and of the labels' windows.
constexpr int ListingHelpTopic = 20;
constexpr int LabelHelpTopic = 21;

} // namespace

ReportCommands::ReportCommands(MainFrame &frame)
    : QObject(&frame)
    , m_frame(frame)
{
    setObjectName(u"ReportCommands"_s);
    for (const auto &[listing, entry] : menuEntries()) {
        frame.setCommand(entry, [this, listing = listing] { runListing(listing); });
        RegisterHelpTopic(ListingInfo(listing).reportName, ListingHelpTopic);
    }
    for (const ReportDefinition &labels : {LabelSheetDefinition(), SingleLabelDefinition()})
        RegisterHelpTopic(labels.name, LabelHelpTopic);
    frame.setCommand(u"mnuPrintLabels"_s, [this] { printLabels(); });
    // The book form's Print Label.
    frame.setCommand(u"cmdPrintLabel"_s,
                     [this](const QString &bookNumber) { printSingleLabel(bookNumber); });
    // Compacting the catalogue needs every connection to it closed, deShelvane's included.
    connect(&frame, &MainFrame::closingConnections, this, [this] {
        if (m_deShelvane)
            m_deShelvane->close();
    });
}

ReportCommands::~ReportCommands() = default;

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
    m_frame.disableWhileLoaded(reportName, menuEntries().at(int(listing)).second);
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
        WorkProgress progress(&m_frame, u"Catalogue Labels"_s, u"Copying the labels..."_s);
        const LabelCopy copied = FillLabelTable(connection, [&progress](int done, int total) {
            progress.setTotal(total);
            return progress.step(done);
        });
        // Cancelled: the labels copied so far stay in the table, and no sheet is shown.
        if (copied == LabelCopy::Stopped)
            return;
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
