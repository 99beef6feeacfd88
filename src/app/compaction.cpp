#include "app/compaction.h"

#include "app/formregistry.h"
#include "app/keepbackup.h"
#include "app/mainframe.h"
#include "catalogue/reorganisation.h"
#include "recordform/msgbox.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

const QString CRLF = u"\r\n"_s;

bool userWantsToCompact()
{
    const QString question = u"Use this option after adding 100 or more entities,"_s + CRLF
        + u"either books, authors, publishers or topics."_s + CRLF + CRLF
        + u"It will help improve the Shelvane response time.     "_s + CRLF + CRLF
        + u"Please ensure all open windows are closed before use!      "_s + CRLF + CRLF
        + u"Do you wish to continue?"_s;
    return MsgBox(question, Vb::YesNo | Vb::Information, u"Compact Database!"_s) == Vb::Yes;
}

// Walks the loaded forms in load order: the forms that open with the catalogue (the book
// form) are unloaded, any other window stops the command (the forms unloaded until then stay
// unloaded).
bool closeBookForms(FormRegistry &forms)
{
    for (QWidget *form : forms.loadedForms()) {
        const FormEntry *entry = forms.entryOf(form);
        if (entry && entry->loadedWithCatalogue && forms.unload(form))
            continue;
        MsgBox(u"One or more windows still open!"_s + CRLF
                   + u"Please close all open windows and try again."_s + CRLF + CRLF
                   + u"Re-Organisation Cancelled!"_s,
               Vb::OKOnly | Vb::Exclamation, u"Re-Organised Database"_s);
        return false;
    }
    // Unloaded forms are destroyed later; their own connections must be closed now.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return true;
}

void closeConnections(MainFrame &frame)
{
    Q_EMIT frame.closingConnections();
    frame.session().disconnect();
}

// The dated backup made before compacting stands for the changes made until then.
void settleDatedBackup(Session &session, const Reorganisation::Result &result)
{
    if (!result.kept)
        return;
    if (result.kept->ok())
        session.changeNotBackedUp = false;
    else
        TellBackupFailed(*result.kept);
}

void tellInUse()
{
    MsgBox(u"Database in use please exit Shelvane"_s + CRLF + u"re-open Database and try again"_s,
           Vb::OKOnly | Vb::Exclamation, u"Compact Database"_s);
}

// Our own messages for what the re-organisation met: what failed and why, that the
// catalogue is as it was, where the backup is when one was made, and what to do.
void tellFailure(const QString &what, const QString &reason, const QString &advice,
                 const QString &backup = {})
{
    QString text = u"Database not re-organised!"_s + CRLF + what + CRLF + u"("_s + reason
        + u")"_s + CRLF + CRLF + u"Your catalogue has not been changed."_s;
    if (!backup.isEmpty())
        text += CRLF + u"A backup copy is kept at"_s + CRLF + backup;
    MsgBox(text + CRLF + CRLF + advice, Vb::OKOnly | Vb::Exclamation, u"Compact Database"_s);
}

// Says how the re-organisation ended; answers whether the catalogue can be reconnected.
bool tellOutcome(const Reorganisation::Result &result, const QString &catalogue,
                 const QString &backup)
{
    const QString nativeCatalogue = QDir::toNativeSeparators(catalogue);
    const QString nativeBackup = QDir::toNativeSeparators(backup);
    switch (result.outcome) {
    case Reorganisation::Outcome::InUse:
        tellInUse();
        return false;
    case Reorganisation::Outcome::Damaged:
        tellFailure(u"The catalogue file is damaged:"_s + CRLF + nativeCatalogue, result.reason,
                    u"Please check it with: shelvane-catalog check"_s);
        break;
    case Reorganisation::Outcome::BackupFailed:
        tellFailure(u"The backup copy could not be written to"_s + CRLF + nativeBackup,
                    result.reason,
                    u"Please make room on the disk or check that folder and try again."_s);
        break;
    case Reorganisation::Outcome::ReplaceFailed:
        tellFailure(u"The re-organised copy could not be written beside"_s + CRLF
                        + nativeCatalogue,
                    result.reason,
                    u"Please make room on the disk or check the catalogue's folder "
                    "and try again."_s,
                    nativeBackup);
        break;
    case Reorganisation::Outcome::Done:
        MsgBox(u"Database Successfully re-organised"_s + CRLF + catalogue,
               Vb::OKOnly | Vb::Information, u"Re-Organise Database"_s);
        break;
    }
    return true;
}

} // namespace

QString CompactionBackupPath()
{
#ifdef Q_OS_WIN
    return u"C:\\Program Files\\QuireshelfBackUp.mdb"_s;
#else
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
        + u"/QuireshelfBackUp.mdb"_s;
#endif
}

void CompactDatabase(MainFrame &frame)
{
    if (!userWantsToCompact() || !closeBookForms(frame.forms()))
        return;
    closeConnections(frame);
    const QString catalogue = frame.session().strCataloguePath;
    const QString backup = CompactionBackupPath();
    // A folder that cannot be made is reported by the backup that cannot be written there.
    QDir().mkpath(QFileInfo(backup).absolutePath());
    const auto result = Reorganisation::reorganiseCatalogue(catalogue, backup);
    settleDatedBackup(frame.session(), result);
    // Another program holding the catalogue leaves it closed: the user is told to start again.
    if (tellOutcome(result, catalogue, backup))
        frame.connectCatalogue();
}
