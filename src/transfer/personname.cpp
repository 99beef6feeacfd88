#include "transfer/personname.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace PersonNames {

PersonName split(QStringView written)
{
    const QStringView name = written.trimmed();
    const qsizetype comma = name.lastIndexOf(u',');
    if (comma >= 0)
        return {name.sliced(comma + 1).trimmed().toString(), name.first(comma).trimmed().toString()};
    const QStringList words = name.toString().split(u' ', Qt::SkipEmptyParts);
    if (words.size() < 2)
        return {{}, name.toString()};
    qsizetype surnameStart = words.size() - 1;
    while (surnameStart > 1 && words[surnameStart - 1].front().isLower())
        --surnameStart;
    return {words.first(surnameStart).join(u' '), words.sliced(surnameStart).join(u' ')};
}

QString written(const PersonName &name)
{
    if (!name.firstName.isEmpty())
        return name.surname + u", "_s + name.firstName;
    return name.surname.contains(u' ') ? name.surname + u',' : name.surname;
}

} // namespace PersonNames
