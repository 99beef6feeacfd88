#include "shell/session.h"

#include "data/connectionstring.h"
#include "data/runtimeerror.h"
#include "printing/numberformat.h"
#include "shell/msgbox.h"

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
    strCurrencySymbol = CurrencySymbol(locale);
    strPriceFormat = PriceFormat(locale);
}

void Session::clear()
{
    if (cnnCatalogue)
        cnnCatalogue->close();
    cnnCatalogue.reset();
    strCataloguePath.clear();
}

bool CatalogueIsOpen(const Session &session)
{
    if (session.isOpen())
        return true;
    MsgBox(u"Please open Quireshelf database first!"_s, Vb::OKOnly | Vb::Exclamation,
           u"Shelvane"_s);
    return false;
}
