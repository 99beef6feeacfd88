#include "data/connectionstring.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace ConnectionString {

QString forCatalogue(const QString &cataloguePath)
{
    return u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + cataloguePath
        + u";Persist Security Info=False"_s;
}

QString dataSource(const QString &connectionString)
{
    // Attributes are "name=value" pairs separated by ";"; names ignore letter case.
    const QStringList parts = connectionString.split(u';');
    for (const QString &part : parts) {
        const qsizetype eq = part.indexOf(u'=');
        if (eq < 0)
            continue;
        if (part.left(eq).trimmed().compare(u"Data Source", Qt::CaseInsensitive) == 0)
            return part.mid(eq + 1).trimmed();
    }
    return {};
}

} // namespace ConnectionString
