#pragma once

#include <QString>

class MainFrame;

// File › Compact Catalogue: with every task window closed and every connection to the
// catalogue closed, the catalogue file is compacted through the backup and reconnected.
void CompactDatabase(MainFrame &frame);

// Where the compaction keeps its backup: the fixed path on Windows, the user's application
// data folder elsewhere.
QString CompactionBackupPath();
