#include "data/catalogueformat.h"

#include <QFile>
#include <QFileInfo>

namespace CatalogueFormat {

Kind ofFile(const QString &path)
{
    QFileInfo info(path);
    if (!info.exists() || !info.isFile())
        return Kind::Missing;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Kind::Other;
    const QByteArray head = file.read(32);
    if (head.startsWith(QByteArrayView("SQLite format 3\0", 16)))
        return Kind::Sqlite;
    // Jet 3 and Jet 4 files, and their successor, name their engine at byte 4.
    if (head.mid(4).startsWith("Standard Jet DB") || head.mid(4).startsWith("Standard ACE DB"))
        return Kind::Jet;
    return Kind::Other;
}

} // namespace CatalogueFormat
