#pragma once

#include "catalogue/cataloguehold.h"
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
    // Held while connected: no other copy of the program can replace the file meanwhile.
    std::unique_ptr<CatalogueHold> hold;
    // A change seen before the hold was let go, that no backup has kept yet.
    bool changeNotBackedUp = false;
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

    // Takes the hold on the catalogue at strCataloguePath and opens the shared connection.
    // Throws ProviderError (3356 while another copy is replacing the file).
    void connect();
    // Closes the shared connection and lets go of the hold, so that the file may be
    // replaced; whether the catalogue changed is remembered.
    void disconnect();
    // Whether anything was written to the catalogue since it was opened or last backed up.
    bool changed() const;
    // Back to "no catalogue": the shared connection is closed and released, the hold let go.
    // A catalogue that changed is backed up by whoever closes it, before this.
    void clear();
};
