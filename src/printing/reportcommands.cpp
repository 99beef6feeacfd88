#include "printing/reportcommands.h"

#include "printing/showreport.h"
#include "shell/formregistry.h"
#include "shell/mainframe.h"
#include "shell/runtimeerrorreport.h"

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
                         [this, listing] { RunHandler([this, listing] { runListing(listing); }); });
    }
}

ReportCommands::~ReportCommands() = default;

void ReportCommands::runListing(CatalogueListing listing)
{
    const QString reportName = ListingInfo(listing).reportName;
    FormRegistry &forms = m_frame.forms();
    if (forms.find(reportName)) {
        forms.show(reportName);
        return;
    }
    const QString cataloguePath = m_frame.session().strCataloguePath;
    m_deShelvane = PrepareDataEnvironment(cataloguePath);
    ReportDocument document = LoadCatalogueListing(listing, *m_deShelvane, cataloguePath);
    // The rows are held by the report now; no connection stays open on the catalogue file.
    m_deShelvane->close();

    ShowReportWindow(m_frame, std::move(document));
    const EntryPoints &entry = entryPointsOf(listing);
    for (const QString &name : {entry.menuEntry, entry.dropDownItem}) {
        if (QAction *action = m_frame.action(name))
            forms.disableWhileLoaded(reportName, action);
    }
}
