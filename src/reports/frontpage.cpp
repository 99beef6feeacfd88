#include "reports/frontpage.h"

#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/recordset.h"
#include "data/runtimeerror.h"
#include "reports/reportdefinition.h"

using namespace Qt::StringLiterals;

namespace {

const QString frontPage = u"FrontPage"_s;

QString caption(const Recordset &owner, int column)
{
    const QVariant value = owner.value(column);
    if (value.isNull())
        throw RuntimeError{94, u"Invalid use of Null"_s};
    return value.toString();
}

void setCaption(ReportDefinition &report, const QString &label, const QString &text)
{
    if (ReportControl *control = report.control(frontPage, label))
        control->caption = text;
}

} // namespace

void FillFrontPage(ReportDefinition &report, const QString &cataloguePath)
{
    Connection connection;
    connection.open(ConnectionString::forCatalogue(cataloguePath), QString(), QString());
    const std::unique_ptr<Recordset> owner =
        connection.execute(u"tblCatalogueControl"_s, CommandType::Table);

    const QString title = caption(*owner, 0);
    setCaption(report, u"lblTitle"_s, title);
    setCaption(report, u"lblName"_s,
               caption(*owner, 1).trimmed() + u' ' + caption(*owner, 2).trimmed());
    for (int line = 1; line <= 5; ++line)
        setCaption(report, u"lbladdr"_s + QString::number(line), caption(*owner, 2 + line).trimmed());
    setCaption(report, u"lblPostCode"_s, caption(*owner, 8).trimmed());
    setCaption(report, u"lblTelephone"_s, caption(*owner, 9).trimmed());
    // Column 10, the second telephone number, is not printed.
    setCaption(report, u"lblFax"_s, caption(*owner, 11).trimmed());
    setCaption(report, u"lblEmail"_s, caption(*owner, 12).trimmed());

    // Every page after the first carries the catalogue's name in its header.
    const int pageHeader = report.sectionIndex(SectionKind::PageHeader);
    if (pageHeader >= 0) {
        if (ReportControl *header = report.control(report.sections[pageHeader].name,
                                                   u"lblCatalogueName"_s))
            header->caption = title;
    }
    owner->close();
    connection.close();
}
