#include "catalogue/cataloguerestore.h"

#include "catalogue/cataloguecheck.h"
#include "catalogue/cataloguefile.h"
#include "catalogue/cataloguebackups.h"
#include "catalogue/cataloguelock.h"
#include "catalogue/filereplacement.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace CatalogueRestore {
namespace {

void checkBackup(const QString &backup, const QString &catalogue)
{
    const QFileInfo backupFile(backup);
    if (backupFile.exists() && backupFile.canonicalFilePath() == QFileInfo(catalogue).canonicalFilePath())
        throw CatalogueFileError(u"%1 is the catalogue itself"_s.arg(backup));
    const QStringList problems = CatalogueCheck::problemsIn(backup);
    if (!problems.isEmpty())
        throw CatalogueFileError(u"%1 is not a sound catalogue (%2); nothing was changed"_s.arg(backup, problems.constFirst()));
}

// A catalogue that fails the check of a backup is still the owner's: it is kept as it is.
QString keepUnchecked(const QString &catalogue)
{
    const QFileInfo info(catalogue);
    const QString folder = CatalogueBackups::folderBeside(catalogue);
    const QString kept = QDir(folder).filePath(u"%1 %2 unchecked.%3"_s.arg(
        info.completeBaseName(), QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH-mm-ss"_s), info.suffix()));
    QDir().mkpath(folder);
    QFile::remove(kept);
    if (!QFile::copy(catalogue, kept))
        return {};
    if (!FileReplacement::flushToDisk(kept).isEmpty()) {
        QFile::remove(kept);
        return {};
    }
    return kept;
}

Restored keepReplaced(const QString &catalogue)
{
    if (!QFileInfo::exists(catalogue))
        return {};
    const CatalogueBackups::Made made = CatalogueBackups::keep(catalogue);
    if (made.ok())
        return {made.path, false};
    if (CatalogueCheck::problemsIn(catalogue).isEmpty())
        throw CatalogueFileError(u"%1 cannot be kept as a backup in %2 first (%3); nothing was changed"_s.arg(
            catalogue, QDir::toNativeSeparators(made.folder), made.problem));
    const QString kept = keepUnchecked(catalogue);
    if (kept.isEmpty())
        throw CatalogueFileError(u"%1 cannot be kept in %2 first; nothing was changed"_s.arg(
            catalogue, QDir::toNativeSeparators(made.folder)));
    return {kept, true};
}

} // namespace

Restored run(const QString &backup, const QString &catalogue)
{
    checkBackup(backup, catalogue);
    const CatalogueLock alone(catalogue, CatalogueLock::Mode::Exclusive);
    if (alone.inUse())
        throw CatalogueFileError(u"%1 is open in Shelvane: close it there first; nothing was changed"_s.arg(catalogue));
    const Restored restored = keepReplaced(catalogue);
    if (const QString problem = CatalogueBackups::copyChecked(backup, catalogue); !problem.isEmpty())
        throw CatalogueFileError(u"cannot write %1: %2; the catalogue is as it was"_s.arg(catalogue, problem));
    return restored;
}

} // namespace CatalogueRestore
