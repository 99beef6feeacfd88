#pragma once

#include "reports/reportdefinition.h"

#include <QFont>

// The font of a text in a report, sized in decipoints as a pixel size: laying out and
// painting then agree on every device, the painter's scale doing the rest.
QFont ReportFont(const QString &family, const TextStyle &style);
