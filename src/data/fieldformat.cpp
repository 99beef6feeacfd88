#include "data/fieldformat.h"

#include "data/moneyreader.h"

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
        // Trimmed: where the locale has no currency, Qt leaves the space beside its symbol.
        const QLocale locale;
        return locale.toCurrencyString(value.toDouble(), locale.currencySymbol(), 2).trimmed();
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
    if (format == FieldFormat::WholeNumber) {
        bool ok = false;
        const qlonglong whole = QLocale().toLongLong(trimmed, &ok);
        return ok ? QVariant(whole) : QVariant();
    }
    const std::optional<double> amount = MoneyReader()(trimmed);
    return amount ? QVariant(*amount) : QVariant();
}

} // namespace FieldFormats
