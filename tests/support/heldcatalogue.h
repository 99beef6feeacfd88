#pragma once

#include <QProcess>
#include <QString>

// A catalogue held by another process for the lifetime of the object.
class HeldCatalogue
{
public:
    enum class Lock { Write, Exclusive };

    HeldCatalogue(const QString &path, Lock lock);
    ~HeldCatalogue();
    HeldCatalogue(const HeldCatalogue &) = delete;
    HeldCatalogue &operator=(const HeldCatalogue &) = delete;

    // Whether the other process holds the lock now; what it said when it does not.
    bool isHeld() const { return m_problem.isEmpty(); }
    QString problem() const { return m_problem; }

private:
    QProcess m_holder;
    QString m_problem;
};
