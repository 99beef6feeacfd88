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

void Session::clear()
{
    if (cnnCatalogue)
        cnnCatalogue->close();
    cnnCatalogue.reset();
    strCataloguePath.clear();
}
