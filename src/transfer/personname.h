#pragma once

#include <QString>
#include <QStringView>

// An author's name as the catalogue keeps it: first names and surname apart.
struct PersonName
{
    QString firstName;
    QString surname;
};

namespace PersonNames {

// "Surname, First" (parted at the last comma) or "First Surname" (the last word is the
// surname, with any lower-case particles before it: "Daphne du Maurier" is "du Maurier").
// "Surname," is a surname alone, as a surname of several words is written by written().
PersonName split(QStringView written);

// "Surname, First"; a surname alone as it is, or followed by a comma when it has several
// words, so that split() reads it back the same.
QString written(const PersonName &name);

} // namespace PersonNames
