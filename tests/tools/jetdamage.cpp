#include "jetdamage.h"

#include "catalogue/splitmix64.h"

#include <QDir>
#include <QFile>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// Jet 4's page.
constexpr qsizetype PageSize = 4096;
constexpr quint64 Seed = 20240501;
constexpr int Changed = 100;
constexpr int Cut = 50;

bool write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

QList<DamagedJet> MakeDamagedJets(const QString &original, const QString &folder)
{
    QFile source(original);
    if (!source.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = source.readAll();
    const QDir dir(folder);
    QList<DamagedJet> made;
    const auto add = [&](const QString &name, const QByteArray &damaged, const QString &damage) {
        made.append({dir.filePath(name + u".mdb"_s), damage});
        return write(made.constLast().path, damaged);
    };

    for (qsizetype page = 0; page * PageSize < bytes.size(); ++page) {
        QByteArray damaged = bytes;
        damaged.replace(page * PageSize, PageSize, QByteArray(PageSize, '\0'));
        if (!add(u"zeroed-%1"_s.arg(qlonglong(page), 3, 10, QChar(u'0')), damaged, u"page %1 zeroed"_s.arg(page)))
            return {};
    }
    SplitMix64 random(Seed);
    for (int file = 0; file < Changed; ++file) {
        QByteArray damaged = bytes;
        QStringList where;
        const int count = random.between(1, 8);
        for (int i = 0; i < count; ++i) {
            const int offset = random.below(int(bytes.size()));
            damaged[offset] = char(random.below(256));
            where << QString::number(offset);
        }
        if (!add(u"changed-%1"_s.arg(file, 3, 10, QChar(u'0')), damaged,
                 u"%1 %2 changed at %3"_s.arg(count).arg(count == 1 ? u"byte"_s : u"bytes"_s, where.join(u", "_s))))
            return {};
    }
    for (int file = 0; file < Cut; ++file) {
        // Half of them at a page's end, where only the missing rows tell.
        const qsizetype size = file % 2 == 0 ? PageSize * random.below(int(bytes.size() / PageSize))
                                             : random.below(int(bytes.size()));
        if (!add(u"cut-%1"_s.arg(file, 3, 10, QChar(u'0')), bytes.left(size), u"cut at %1 bytes"_s.arg(size)))
            return {};
    }
    // A page that holds a table's definition starts with 2; the bytes are the high byte of
    // its column count, its count of indexes and the row of its page map.
    for (qsizetype page = 0; page * PageSize < bytes.size(); ++page) {
        if (bytes[page * PageSize] != 2)
            continue;
        for (const int at : {46, 52, 55}) {
            QByteArray damaged = bytes;
            damaged[page * PageSize + at] = char(damaged[page * PageSize + at] + 0x41);
            if (!add(u"definition-%1-%2"_s.arg(qlonglong(page), 3, 10, QChar(u'0')).arg(at), damaged,
                     u"table definition on page %1 changed at byte %2"_s.arg(page).arg(at)))
                return {};
        }
    }
    return made;
}
