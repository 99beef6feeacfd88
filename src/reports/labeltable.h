#pragma once

#include <QString>

#include <functional>

class Connection;
class Recordset;

// The working table of the label sheet: every label of qryBookLabel01 copied into
// tblLabelTable, four labels to a row, by INSERT statements that name no columns.

// One label's thirteen values as they stand in the INSERT statement, in the label order:
// texts quoted with their apostrophes doubled (NULL when null, except the description),
// numbers in SQL's form whatever the locale, yes/no values as their words, the publication
// date last with no comma after it (a null one is "NULL," and so breaks the statement, as it
// always has).
QString LabelValues(const Recordset &labels, int row);

// Told after each row written: the labels copied so far and the labels there are.
// Answering false stops the copying there.
using LabelCopyProgress = std::function<bool(int copied, int total)>;

enum class LabelCopy { Complete, Stopped };

// Empties tblLabelTable and fills it afresh. Throws ProviderError when a statement fails,
// leaving the rows written before it; stopped, it leaves the rows written so far the same way.
LabelCopy FillLabelTable(Connection &connection, const LabelCopyProgress &progress = {});
