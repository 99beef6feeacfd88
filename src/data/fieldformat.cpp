#include "data/fieldformat.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace FieldFormats {

QString display(const QVariant &value, FieldFormat format)
{
    if (value.isNull())
        return {};
    switch (format) {
    case FieldFormat::WholeNumber:
        return QString::number(qRound64(value.toDouble()));
    case FieldFormat::Money: {
        const QLocale locale;
        return locale.toCurrencyString(value.toDouble(), locale.currencySymbol(), 2);
    }
    case FieldFormat::Plain:
        break;
    }
    return value.toString();
}

QVariant parse(const QString &text, FieldFormat format)
{
    const QString trimmed = text.trimmed();
    if (format == FieldFormat::Plain)
        return text;
    if (trimmed.isEmpty())
        return format == FieldFormat::Money ? QVariant(QMetaType::fromType<double>())
                                            : QVariant(QMetaType::fromType<qlonglong>());
    const QLocale locale;
    bool ok = false;
    if (format == FieldFormat::WholeNumber) {
        const qlonglong whole = locale.toLongLong(trimmed, &ok);
        return ok ? QVariant(whole) : QVariant();
    }
    QString number = trimmed;
    number.remove(locale.currencySymbol());
    const double amount = locale.toDouble(number.trimmed(), &ok);
    return ok ? QVariant(amount) : QVariant();
}

} // namespace FieldFormats
