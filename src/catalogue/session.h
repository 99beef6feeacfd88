#pragma once

#include "data/connection.h"

#include <QString>

#include <memory>

// What the program knows about the open catalogue. An empty path means that no catalogue is
// open; while the path is set, cnnCatalogue is open on that file.
struct Session
{
    QString strCataloguePath;
    // The one shared connection every form uses for statements it runs in code.
    std::unique_ptr<Connection> cnnCatalogue;
    // The locale's currency symbol, and the reports' price format, which places it as the
    // locale does (PriceFormat).
    QString strCurrencySymbol;
    QString strPriceFormat;
    // Set by the search and browsers before they reload the book form, which consumes it.
    bool BookFilterPending = false;

    bool isOpen() const { return !strCataloguePath.isEmpty(); }
    // The shared connection for a statement. After a compaction that found the catalogue in
    // use the path stays set without a connection: a statement then raises run-time error
    // 91, as using the released connection object always did, instead of crashing.
    Connection &sharedConnection() const;
    // The run-time connection string every form gives its data controls.
    QString connectionString() const;
    // Back to "no catalogue": the shared connection is closed and released.
    void clear();
};
