#include "catalogue/reorganisation.h"

#include "catalogue/cataloguelock.h"
#include "catalogue/compaction.h"
#include "catalogue/filereplacement.h"
#include "data/providererror.h"

#include <QFile>

#include <memory>

using namespace Qt::StringLiterals;

namespace Reorganisation {

namespace {

Result failed(Outcome outcome, const QString &reason,
              const std::optional<CatalogueBackups::Made> &kept = std::nullopt)
{
    return Result{outcome, reason, kept};
}

// The compacted copy, made from the backup and flushed to the disk, takes the catalogue's
// place. A copy that got no further is removed; the catalogue keeps its old file.
Result replaceFromBackup(ExclusiveCatalogue &held, const QString &catalogue,
                         const QString &backup, const StepWatcher &watch)
{
    const QString newFile = newFileBeside(catalogue);
    QFile::remove(newFile); // left by a re-organisation that was cut short
    try {
        compactCatalogue(backup, newFile);
    } catch (const ProviderError &error) {
        QFile::remove(newFile);
        return failed(Outcome::ReplaceFailed, error.description);
    }
    watch(Step::NewFileWritten);
    QString reason = FileReplacement::flushToDisk(newFile);
    if (reason.isEmpty()) {
        watch(Step::NewFileFlushed);
        // The file must be closed before it can be replaced on every system.
        held.release();
        reason = FileReplacement::renameOver(newFile, catalogue);
    }
    if (!reason.isEmpty()) {
        QFile::remove(newFile);
        return failed(Outcome::ReplaceFailed, reason);
    }
    watch(Step::Renamed);
    return {};
}

} // namespace

QString newFileBeside(const QString &catalogue)
{
    return catalogue + u".compacting"_s;
}

Result reorganiseCatalogue(const QString &catalogue, const QString &backup,
                           const StepWatcher &watchOrNone)
{
    const StepWatcher watch = watchOrNone ? watchOrNone : [](Step) {};
    const CatalogueLock alone(catalogue, CatalogueLock::Mode::Exclusive);
    if (alone.inUse())
        return failed(Outcome::InUse, u"the catalogue is open in another copy of Shelvane"_s);
    std::unique_ptr<ExclusiveCatalogue> held;
    try {
        held = std::make_unique<ExclusiveCatalogue>(catalogue);
    } catch (const ProviderError &error) {
        if (error.number != ProviderErrorNumber::FileLocked)
            throw;
        return failed(Outcome::InUse, error.description);
    }
    watch(Step::CatalogueHeld);
    // A damaged file would be copied with its damage, or lose rows on the way.
    if (const QStringList problems = held->integrityProblems(); !problems.isEmpty())
        return failed(Outcome::Damaged, problems.constFirst());
    const CatalogueBackups::Made kept = CatalogueBackups::keepThrough(held->database(), catalogue);
    watch(Step::DatedCopyKept);

    // An earlier backup goes only now, once this catalogue is known to be sound.
    QFile::remove(backup);
    try {
        held->compactInto(backup);
    } catch (const ProviderError &error) {
        QFile::remove(backup);
        return failed(Outcome::BackupFailed, error.description, kept);
    }
    watch(Step::BackupWritten);

    Result replaced = replaceFromBackup(*held, catalogue, backup, watch);
    replaced.kept = kept;
    if (replaced.outcome != Outcome::Done)
        return replaced;
    QFile::remove(backup);
    watch(Step::BackupDeleted);
    return replaced;
}

} // namespace Reorganisation
