#include "app/programfolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace {

const QString EmptyCatalogueTemplate = u"EmptyCatalogue.mdb"_s;

// Permissions say too little (root passes them, a read-only mount or an immutable folder
// does not show in them): only making a file tells.
bool canWriteIn(const QString &folder)
{
    QTemporaryFile probe(QDir(folder).filePath(u".shelvane-probe-XXXXXX"_s));
    return probe.open();
}

QString executableFolder()
{
    return QCoreApplication::applicationDirPath();
}

QString documentsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

} // namespace

QString ProgramFolderFor(const QString &executableFolder, const QString &documentsFolder)
{
    if (canWriteIn(executableFolder))
        return QDir(executableFolder).absolutePath();
    return QDir(documentsFolder).filePath(u"Shelvane"_s);
}

QString ProgramFolder()
{
    return ProgramFolderFor(executableFolder(), documentsFolder());
}

QString ProgramFile(const QString &name)
{
    const QDir programDir(executableFolder());
    if (QFileInfo::exists(programDir.filePath(name)))
        return programDir.filePath(name);
    return QDir::cleanPath(programDir.filePath(QStringLiteral(SHELVANE_DATA_FROM_PROGRAM) + u'/' + name));
}

void ProvideFirstCatalogue(const QString &folder, const QString &templatePath)
{
    const QString catalogue = QDir(folder).filePath(CatalogueFileName);
    if (QFileInfo::exists(catalogue) || !QFileInfo::exists(templatePath) || !QDir().mkpath(folder))
        return;
    // The template is installed read-only; the user's copy must be writable.
    if (QFile::copy(templatePath, catalogue))
        QFile::setPermissions(catalogue, QFile::permissions(catalogue) | QFile::WriteOwner);
}

void PrepareProgramFolder()
{
    const QString folder = ProgramFolder();
    if (folder != QDir(executableFolder()).absolutePath())
        ProvideFirstCatalogue(folder, ProgramFile(EmptyCatalogueTemplate));
}
