#pragma once

#include <QDateTime>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

// Dated, checked copies of a catalogue. The copy is made with SQLite's online backup, so it
// is a consistent catalogue even while another connection writes to the file, and is checked
// with SQLite's integrity check before it takes its name: a file named as a backup is a whole
// catalogue. The automatic ones are kept in a folder "Backups" beside the catalogue, named
// after it with the date and time ("QuireshelfCatalog01 2024-05-01 14-03-59.mdb"), and only
// the newest are kept there.
namespace CatalogueBackups {

// How many backups the folder beside a catalogue keeps unless the settings say otherwise
// (section "Backups", key "Keep").
inline constexpr int DefaultKept = 10;
int keptCount();

// The folder beside the catalogue that keeps its automatic backups.
QString folderBeside(const QString &catalogue);

struct Made
{
    QString path;    // the backup, when one was made
    QString folder;  // where it was to be made
    QString problem; // why none was made, in SQLite's or the system's words

    bool ok() const { return problem.isEmpty(); }
};

// Makes a backup of the catalogue at `catalogue` in `folder` (made when missing), named for
// `when`. Nothing is left in the folder when it fails.
Made make(const QString &catalogue, const QString &folder,
          const QDateTime &when = QDateTime::currentDateTime());
// The same through a connection already open on the catalogue: one that holds the file
// alone lets no other connection read it.
Made makeThrough(const QSqlDatabase &source, const QString &catalogue, const QString &folder,
                 const QDateTime &when = QDateTime::currentDateTime());
// An automatic backup: made in the folder beside the catalogue, which then keeps only the
// newest keptCount().
Made keep(const QString &catalogue, const QDateTime &when = QDateTime::currentDateTime());
Made keepThrough(const QSqlDatabase &source, const QString &catalogue,
                 const QDateTime &when = QDateTime::currentDateTime());

// The backups of the catalogue in `folder`, oldest first. Only files named as its backups
// count: nothing else in the folder is ever touched.
QStringList listed(const QString &catalogue, const QString &folder);
// Removes the oldest backups of the catalogue in `folder` until `kept` are left.
void prune(const QString &catalogue, const QString &folder, int kept);

// Writes a checked copy of the catalogue at `source` to `destination`, which is replaced in
// one step once the copy is whole and on the disk. Answers the reason when it cannot; then
// `destination` is as it was.
QString copyChecked(const QString &source, const QString &destination);

} // namespace CatalogueBackups
