#include "catalogue/session.h"

#include "data/connectionstring.h"
#include "data/runtimeerror.h"

#include <QLocale>

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

void Session::setPriceFormat(const QLocale &locale)
{
    strCurrencySymbol = currencySymbol(locale);
    strPriceFormat = strCurrencySymbol + u"###,##0.00"_s;
}

void Session::clear()
{
    if (cnnCatalogue)
        cnnCatalogue->close();
    cnnCatalogue.reset();
    strCataloguePath.clear();
}

QString currencySymbol(const QLocale &locale)
{
    // Where the locale writes its symbol after the number this is a digit, as it always was.
    return locale.toCurrencyString(1.0).left(1);
}
