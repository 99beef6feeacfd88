#pragma once

#include <QString>

// A file layer put under SQLite in a test's child process, which counts what SQLite does to
// one catalogue file and its journal on the way to a commit, and can kill the process with
// SIGKILL just before the chosen step: the program stopped dead in the middle of a write.
namespace KillingVfs {

// The steps of a commit with the rollback journal, in order.
enum class Step {
    JournalWrite,   // the pages about to change are copied to the journal
    JournalSync,    // the journal reaches the disk
    CatalogueWrite, // a changed page is written to the catalogue
    CatalogueSync,  // the catalogue reaches the disk
    JournalDelete,  // the journal is deleted: the commit itself
};

// Puts the layer under every connection opened from now on, watching `catalogue`.
void install(const QString &catalogue);

// Counts afresh from now on; with `killAt` > 0, the process is killed just before the
// `killAt`th time `step` is taken.
void watch(Step step = Step::JournalWrite, int killAt = 0);

// How often each step was taken since watch(): "journal-write=3 journal-sync=2 ...".
QString counts();

// The name each step goes by in counts() and on a command line.
QString nameOf(Step step);
// The step of that name; false when there is none.
bool stepNamed(const QString &name, Step *step);

} // namespace KillingVfs
