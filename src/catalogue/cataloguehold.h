#pragma once

#include "catalogue/cataloguelock.h"
#include "data/privateconnection.h"

#include <QString>

// What a copy of the program holds on the catalogue it has open: the shared lock, so that no
// other copy replaces the file under it, and a watch that tells whether anything has been
// written to the file since: by any connection of this copy or of another program.
class CatalogueHold
{
public:
    // Longer than compacting or restoring the largest catalogue takes.
    static constexpr std::chrono::milliseconds WaitForReplacement{10000};

    // Waits up to `patience` for another copy that is replacing the file. Throws
    // ProviderError 3356 when it does not finish in that time.
    explicit CatalogueHold(const QString &catalogue,
                           std::chrono::milliseconds patience = WaitForReplacement);
    ~CatalogueHold();
    CatalogueHold(const CatalogueHold &) = delete;
    CatalogueHold &operator=(const CatalogueHold &) = delete;

    // Whether a change has been committed to the file since the hold was taken. When the
    // file cannot be asked, the answer is yes: a backup too many costs nothing.
    bool changedSinceTaken() const;

private:
    qint64 dataVersion() const;

    CatalogueLock m_lock;
    PrivateConnection m_watch;
    qint64 m_takenAt = -1;
};
