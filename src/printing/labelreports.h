#pragma once

#include "printing/reportdocument.h"

class DataEnvironment;

// The label sheet DataReport4 ("Catalogue Labels"): four labels across, read from the
// working table through cmdLabels. The single label DataReport5: one book's labels, read
// through cmdOneLabel re-pointed at that book.
ReportDefinition LabelSheetDefinition();
ReportDefinition SingleLabelDefinition();

// Runs cmdLabels afresh. Throws ProviderError.
ReportDocument LoadLabelSheet(DataEnvironment &deShelvane);
// Points rscmdOneLabel at the book and runs it. Throws ProviderError.
ReportDocument LoadSingleLabel(DataEnvironment &deShelvane, const QString &bookNumber);
