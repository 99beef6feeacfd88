#pragma once

#include <QString>

class QWidget;

// Catalogues kept in the older Jet format are converted where they stand: the old file is
// renamed to say what it is and stays beside the converted catalogue, which takes its name.

// The name the old file is kept under: "QuireshelfCatalog01 (older format).mdb" in the same
// folder, numbered "(older format 2)" and on when that name is taken.
QString OlderFormatPath(const QString &path);

// Asks whether to convert the older catalogue at `path`; on Yes converts it with a progress
// dialog over `parent` and tells how it went. True when a converted catalogue now stands at
// `path`; on No, or when the conversion fails, the file is as it was.
bool OfferConversion(const QString &path, QWidget *parent);
