#pragma once

#include "reports/reportdocument.h"

#include <memory>

class DataEnvironment;
class Recordset;

// The label sheet DataReport4 ("Catalogue Labels"): four labels across, read from the
// working table through cmdLabels. The single label DataReport5: one book's labels, read
// through cmdOneLabel re-pointed at that book.
inline constexpr int LabelsAcross = 4;

ReportDefinition LabelSheetDefinition();
ReportDefinition SingleLabelDefinition();

// Runs cmdLabels afresh. Throws ProviderError. The sheet starts at the definition's
// firstLabel.
ReportDocument LoadLabelSheet(DataEnvironment &deShelvane);
// The label table's rows as the sheet prints them when it starts at place `firstLabel`:
// the places before it left empty, every label after them in order, four to a row, each
// row made only when the pages laid out reach it.
std::unique_ptr<BandSource> LabelSheetBands(std::shared_ptr<const Recordset> table,
                                            int firstLabel, int detailSection);
// Points rscmdOneLabel at the book and runs it. Throws ProviderError.
ReportDocument LoadSingleLabel(DataEnvironment &deShelvane, const QString &bookNumber);
