#include "commandline.h"

using namespace Qt::StringLiterals;

namespace {

const Option *findOption(const QList<Option> &options, const QString &name)
{
    for (const Option &option : options) {
        if (option.name == name)
            return &option;
    }
    return nullptr;
}

} // namespace

qint64 Arguments::number(const QString &option, qint64 low, qint64 high) const
{
    bool ok = false;
    const qint64 value = given.value(option).toLongLong(&ok);
    if (!ok || value < low || value > high) {
        throw UsageError{u"%1 must be a whole number from %2 to %3, not \"%4\""_s
                             .arg(option).arg(low).arg(high).arg(given.value(option))};
    }
    return value;
}

Arguments parseArguments(const QStringList &args, const QList<Option> &options, const QStringList &pathNames)
{
    Arguments parsed;
    if (args.contains(u"--help"_s) || args.contains(u"-h"_s)) {
        parsed.help = true;
        return parsed;
    }
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString &arg = args[i];
        if (!arg.startsWith(u'-')) {
            if (parsed.paths.size() == pathNames.size())
                throw UsageError{u"unexpected argument \"%1\""_s.arg(arg)};
            parsed.paths << arg;
            continue;
        }
        // "--books=30000" and "--books 30000" are the same.
        const QString name = arg.section(u'=', 0, 0);
        const Option *option = findOption(options, name);
        if (!option)
            throw UsageError{u"unknown option %1"_s.arg(name)};
        if (parsed.has(name))
            throw UsageError{u"%1 given twice"_s.arg(name)};
        QString value;
        if (arg.contains(u'=')) {
            if (option->valueName.isEmpty())
                throw UsageError{u"%1 takes no value"_s.arg(name)};
            value = arg.section(u'=', 1);
        } else if (!option->valueName.isEmpty()) {
            if (++i == args.size())
                throw UsageError{u"%1 needs a value"_s.arg(name)};
            value = args[i];
        }
        parsed.given.insert(name, value);
    }
    for (qsizetype i = 0; i < pathNames.size(); ++i) {
        if (i == parsed.paths.size())
            throw UsageError{u"no %1 given"_s.arg(pathNames[i])};
        if (parsed.paths[i].isEmpty())
            throw UsageError{u"the %1 is empty"_s.arg(pathNames[i])};
    }
    parsed.path = parsed.paths.value(0);
    for (const Option &option : options) {
        if (option.required && !parsed.has(option.name))
            throw UsageError{u"%1 %2 is required"_s.arg(option.name, option.valueName)};
    }
    return parsed;
}

QString synopsis(const QList<Option> &options, const QStringList &pathNames)
{
    QString text = pathNames.join(u' ');
    for (const Option &option : options) {
        const QString usage = option.valueName.isEmpty() ? option.name
                                                         : option.name + u' ' + option.valueName;
        text += option.required ? u" %1"_s.arg(usage) : u" [%1]"_s.arg(usage);
    }
    return text;
}
