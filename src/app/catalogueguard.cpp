#include "app/catalogueguard.h"

#include "catalogue/session.h"
#include "recordform/msgbox.h"

using namespace Qt::StringLiterals;

bool CatalogueIsOpen(const Session &session)
{
    if (session.isOpen())
        return true;
    MsgBox(u"Please open Quireshelf database first!"_s, Vb::OKOnly | Vb::Exclamation,
           u"Shelvane"_s);
    return false;
}
