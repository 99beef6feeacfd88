#pragma once

#include <QString>

struct ReportDefinition;

// Fills the labels of the report's "FrontPage" section from the owner's details, the first
// row of tblCatalogueControl read by column position through a connection of its own.
// Throws ProviderError when there is no row, and RuntimeError 94 "Invalid use of Null"
// when a printed column is null: a null cannot become a caption.
void FillFrontPage(ReportDefinition &report, const QString &cataloguePath);
