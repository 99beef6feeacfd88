#pragma once

#include <QProcess>
#include <QString>

// A catalogue held by another process for the lifetime of the object, or until it lets go.
class HeldCatalogue
{
public:
    enum class Lock {
        Write,     // SQLite's write transaction: others may read
        Exclusive, // SQLite's exclusive transaction: no one else may read
        Open,      // as an idle copy of Shelvane that has the catalogue open
        Replacing, // as a copy of Shelvane that is replacing the whole file
    };

    HeldCatalogue(const QString &path, Lock lock);
    ~HeldCatalogue();
    HeldCatalogue(const HeldCatalogue &) = delete;
    HeldCatalogue &operator=(const HeldCatalogue &) = delete;

    // Whether the other process holds the lock now; what it said when it does not.
    bool isHeld() const { return m_problem.isEmpty(); }
    QString problem() const { return m_problem; }
    // Tells the other process to let go, without waiting for it to do so.
    void letGo();
    // Kills the other process, as a program that crashes or is killed.
    void die();

private:
    QProcess m_holder;
    QString m_problem;
};
