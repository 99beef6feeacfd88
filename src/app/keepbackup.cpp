#include "app/keepbackup.h"

#include "catalogue/session.h"
#include "recordform/msgbox.h"

#include <QDir>

using namespace Qt::StringLiterals;

void TellBackupFailed(const CatalogueBackups::Made &made)
{
    const QString CRLF = u"\r\n"_s;
    MsgBox(u"No backup copy of the catalogue could be made in"_s + CRLF
               + QDir::toNativeSeparators(made.folder) + CRLF + u"("_s + made.problem + u")"_s
               + CRLF + CRLF
               + u"Your catalogue itself is unharmed. Please check that folder and that the "
                 "disk has room."_s,
           Vb::OKOnly | Vb::Exclamation, u"Shelvane"_s);
}

void KeepBackupIfChanged(const Session &session)
{
    if (!session.changed())
        return;
    const CatalogueBackups::Made made = CatalogueBackups::keep(session.strCataloguePath);
    if (!made.ok())
        TellBackupFailed(made);
}
