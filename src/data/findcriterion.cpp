#include "data/findcriterion.h"

#include "data/providererror.h"
#include "data/textcollation.h"

#include <QDate>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void refuse(const QString &text)
{
    throw ProviderError::general(ProviderErrorNumber::InvalidOperation,
                                 u"Arguments are of the wrong type, are out of acceptable range, or "
                                 "are in conflict with one another. (criterion: "_s
                                     + text + u")"_s);
}

QVariant literal(const QString &text, const QString &criterion)
{
    if (text.size() >= 2 && text.startsWith(u'\'') && text.endsWith(u'\''))
        return text.mid(1, text.size() - 2).replace(u"''"_s, u"'"_s);
    if (text.size() >= 2 && text.startsWith(u'#') && text.endsWith(u'#')) {
        const QDate date = QDate::fromString(text.mid(1, text.size() - 2), u"M/d/yyyy"_s);
        if (!date.isValid())
            refuse(criterion);
        return date;
    }
    bool ok = false;
    const qlonglong whole = text.toLongLong(&ok);
    if (ok)
        return whole;
    const double real = text.toDouble(&ok);
    if (ok)
        return real;
    refuse(criterion);
}

bool isNumber(const QVariant &v)
{
    switch (v.typeId()) {
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::Double:
    case QMetaType::Bool:
        return true;
    default:
        return false;
    }
}

// Jet's LIKE: * any run, ? any one character, case ignored. Written as SQL's pattern, in
// which Jet's own % and _ mean themselves.
TextCollation::LikePattern jetLikePattern(const QString &jetPattern)
{
    constexpr QChar escape = u'\\';
    QString pattern;
    for (const QChar c : jetPattern) {
        if (c == u'*') {
            pattern += u'%';
        } else if (c == u'?') {
            pattern += u'_';
        } else {
            if (c == u'%' || c == u'_' || c == escape)
                pattern += escape;
            pattern += c;
        }
    }
    return TextCollation::LikePattern(pattern, escape);
}

} // namespace

FindCriterion FindCriterion::parse(const QString &text)
{
    static const QRegularExpression form(
        uR"(^\s*\[?([A-Za-z_][A-Za-z0-9_]*)\]?\s*(<>|<=|>=|=|<|>|\blike\b)\s*(.*?)\s*$)"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch m = form.match(text);
    if (!m.hasMatch() || m.capturedView(3).isEmpty())
        refuse(text);
    FindCriterion criterion;
    criterion.field = m.captured(1);
    const QString op = m.captured(2).toLower();
    if (op == u"<>"_s)
        criterion.op = Op::NotEqual;
    else if (op == u"<="_s)
        criterion.op = Op::LessOrEqual;
    else if (op == u">="_s)
        criterion.op = Op::GreaterOrEqual;
    else if (op == u"<"_s)
        criterion.op = Op::Less;
    else if (op == u">"_s)
        criterion.op = Op::Greater;
    else if (op == u"like"_s)
        criterion.op = Op::Like;
    criterion.value = literal(m.captured(3), text);
    if (criterion.op == Op::Like)
        criterion.likePattern = jetLikePattern(criterion.value.toString());
    return criterion;
}

bool FindCriterion::matches(const QVariant &fieldValue) const
{
    if (fieldValue.isNull())
        return false;
    if (op == Op::Like)
        return likePattern.matches(fieldValue.toString());
    int order = 0;
    if (isNumber(value) && isNumber(fieldValue)) {
        const double a = fieldValue.toDouble();
        const double b = value.toDouble();
        order = a < b ? -1 : (a > b ? 1 : 0);
    } else {
        const QString a = fieldValue.toString();
        const QString b = value.toString();
        order = a.compare(b, Qt::CaseInsensitive) == 0
            ? 0
            : textOrder.compare(a, b);
    }
    switch (op) {
    case Op::Equal:
        return order == 0;
    case Op::NotEqual:
        return order != 0;
    case Op::Less:
        return order < 0;
    case Op::Greater:
        return order > 0;
    case Op::LessOrEqual:
        return order <= 0;
    case Op::GreaterOrEqual:
        return order >= 0;
    case Op::Like:
        break;
    }
    return false;
}
