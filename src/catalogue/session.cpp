#include "catalogue/session.h"

#include "data/connectionstring.h"
#include "data/runtimeerror.h"

using namespace Qt::StringLiterals;

QString Session::connectionString() const
{
    return ConnectionString::forCatalogue(strCataloguePath);
}

Connection &Session::sharedConnection() const
{
    if (!cnnCatalogue)
        throw RuntimeError{91, u"Object variable or With block variable not set"_s};
    return *cnnCatalogue;
}

void Session::connect()
{
    hold = std::make_unique<CatalogueHold>(strCataloguePath);
    cnnCatalogue = std::make_unique<Connection>();
    cnnCatalogue->open(connectionString(), QString(), QString());
}

void Session::disconnect()
{
    changeNotBackedUp = changed();
    if (cnnCatalogue)
        cnnCatalogue->close();
    cnnCatalogue.reset();
    hold.reset();
}

bool Session::changed() const
{
    // A catalogue that never opened has nothing of the program's in it.
    const bool connected = hold && cnnCatalogue && cnnCatalogue->isOpen();
    return changeNotBackedUp || (connected && hold->changedSinceTaken());
}

void Session::clear()
{
    disconnect();
    changeNotBackedUp = false;
    strCataloguePath.clear();
}
