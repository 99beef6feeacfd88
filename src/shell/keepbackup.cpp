#include "shell/keepbackup.h"

#include "shell/msgbox.h"

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

bool KeepBackup(const QString &catalogue)
{
    const CatalogueBackups::Made made = CatalogueBackups::keep(catalogue);
    if (!made.ok())
        TellBackupFailed(made);
    return made.ok();
}
