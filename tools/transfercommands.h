#pragma once

#include "commandline.h"

#include <QList>

// The export and import-csv commands of shelvane-catalog: books out to a CSV file, and in
// from one.
QList<Command> transferCommands();
