#include "reports/reportdocument.h"

#include "reports/reportpaginator.h"

std::unique_ptr<ReportPaginator> ReportDocument::paginate(QDate printDate) const
{
    return std::make_unique<ReportPaginator>(definition, bands(definition), printDate);
}
