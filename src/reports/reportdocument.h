#pragma once

#include "reports/bandsource.h"
#include "reports/reportdefinition.h"

#include <QDate>

#include <functional>
#include <memory>

class ReportPaginator;

// A report ready to lay out: its definition, with the front page filled in, and its rows,
// fetched once and shared by every layout made from it (the window's preview, its printing,
// its export).
struct ReportDocument
{
    ReportDefinition definition;
    std::function<std::unique_ptr<BandSource>(const ReportDefinition &)> bands;

    std::unique_ptr<ReportPaginator> paginate(QDate printDate = QDate::currentDate()) const;
};
