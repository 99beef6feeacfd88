#pragma once

#include <QString>

// A folder in which no file can be made, removed or renamed, even by root (the tests run as
// root, which permissions do not stop): the file system's immutable flag. Files already in
// it can still be read and written. The flag is cleared with the object.
class ImmutableFolder
{
public:
    explicit ImmutableFolder(const QString &path);
    ~ImmutableFolder();
    ImmutableFolder(const ImmutableFolder &) = delete;
    ImmutableFolder &operator=(const ImmutableFolder &) = delete;

    // Whether the flag could be set (the file system must offer it, and the process must be
    // allowed to set it); the system's reason when not.
    bool isImmutable() const { return m_problem.isEmpty(); }
    QString problem() const { return m_problem; }

private:
    QString m_path;
    QString m_problem;
};

// Sets or clears the immutable flag of a folder; answers the system's reason when it cannot.
QString setImmutable(const QString &path, bool immutable);
