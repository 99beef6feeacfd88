#pragma once

#include <QString>

#include <chrono>

// The lock the copies of the program share over one catalogue: every copy that has the
// catalogue open holds it shared, and whatever replaces the whole file (compaction, restore,
// a conversion or a new catalogue made onto its name) must hold it alone. A copy that holds
// it shared can still be working on the file while it sits idle, when SQLite holds no lock
// at all, and a file renamed over it would take its later edits into a file without a name.
//
// It is kept on a small file beside the catalogue ("<catalogue>.lock"), never on the
// catalogue itself: SQLite locks the catalogue with POSIX record locks, and a process that
// closes any descriptor of a file loses all of those at once. The last copy to let go
// removes the lock file, so a closed catalogue is one file again. The system drops the lock
// of a copy that dies.
class CatalogueLock
{
public:
    enum class Mode { Shared, Exclusive };

    // Takes the lock, waiting up to `patience` for copies that hold it the other way. Where
    // no lock file can be made (a folder no one may write to), no other copy can hold one
    // either, and the lock is taken as granted.
    CatalogueLock(const QString &catalogue, Mode mode,
                  std::chrono::milliseconds patience = std::chrono::milliseconds(0));
    ~CatalogueLock();
    CatalogueLock(const CatalogueLock &) = delete;
    CatalogueLock &operator=(const CatalogueLock &) = delete;

    // Whether another copy held the lock the other way for all of the patience.
    bool inUse() const { return m_inUse; }
    void release();

    static QString lockFilePath(const QString &catalogue);

private:
    QString m_lockFile;
    qintptr m_handle = -1;
    bool m_inUse = false;
};
