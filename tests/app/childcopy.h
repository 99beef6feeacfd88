#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

// A copy of the program in a child process (sessionchild), driven one line at a time. It is
// killed, if it still runs, with the object.
class ChildCopy
{
public:
    explicit ChildCopy(const QString &catalogue, const QStringList &options = {});
    ~ChildCopy();
    ChildCopy(const ChildCopy &) = delete;
    ChildCopy &operator=(const ChildCopy &) = delete;

    // What it said next; empty once it is dead.
    QString said();
    // Gives it a command and answers what it said to it.
    QString tell(const QString &command);
    // Whether it died of a signal, its own SIGKILL among them.
    bool diedOfASignal();
    // Kills it (SIGKILL), as a program stopped dead.
    void kill();

private:
    QProcess m_process;
};
