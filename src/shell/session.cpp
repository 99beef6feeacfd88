#include "shell/session.h"

#include "data/connectionstring.h"
#include "data/runtimeerror.h"
#include "shell/keepbackup.h"
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
    strCurrencySymbol = currencySymbol(locale);
    strPriceFormat = strCurrencySymbol + u"###,##0.00"_s;
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
    if (changed())
        KeepBackup(strCataloguePath);
    disconnect();
    changeNotBackedUp = false;
    strCataloguePath.clear();
}

QString currencySymbol(const QLocale &locale)
{
    // Where the locale writes its symbol after the number this is a digit, as it always was.
    return locale.toCurrencyString(1.0).left(1);
}

bool CatalogueIsOpen(const Session &session)
{
    if (session.isOpen())
        return true;
    MsgBox(u"Please open Quireshelf database first!"_s, Vb::OKOnly | Vb::Exclamation,
           u"Shelvane"_s);
    return false;
}
