#pragma once

#include <QSqlDatabase>

// Adds `count` topics to a catalogue, enough for many pages of a record set: descriptions
// repeat (so ties must keep their order), every third has no notes, and three more differ
// only in letter case or accents.
void AddManyTopics(const QSqlDatabase &db, int count);
