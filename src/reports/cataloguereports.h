#pragma once

#include "reports/reportdocument.h"

#include <QString>

class DataEnvironment;

// The three listings of the whole collection: one report design, configured by the few
// ways in which they differ.
enum class CatalogueListing { ByTitle, ByAuthor, ByTopic };

struct CatalogueListingInfo
{
    QString reportName; // "DataReport1"
    QString caption;    // the window's caption
    QString title;      // printed on the front page and in the page header
    QString command;    // the data environment's command that gives the rows
    ControlAddress priceBox;
};

const CatalogueListingInfo &ListingInfo(CatalogueListing listing);

// The report as designed, front page labels still holding their design captions.
ReportDefinition CatalogueListingDefinition(CatalogueListing listing);

// Runs the listing's command afresh and fills its front page from the owner's details.
// Throws ProviderError or RuntimeError; nothing is shown then.
ReportDocument LoadCatalogueListing(CatalogueListing listing, DataEnvironment &deShelvane,
                                    const QString &cataloguePath);
