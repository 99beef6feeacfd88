#include "data/findcriterion.h"

#include "data/providererror.h"

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

// Jet's LIKE: * any run, ? any one character, case ignored.
QRegularExpression likeExpression(const QString &pattern)
{
    QString expression;
    for (const QChar c : pattern) {
        if (c == u'*')
            expression += u".*"_s;
        else if (c == u'?')
            expression += u'.';
        else
            expression += QRegularExpression::escape(QString(c));
    }
    return QRegularExpression(QRegularExpression::anchoredPattern(expression),
                              QRegularExpression::CaseInsensitiveOption
                                  | QRegularExpression::DotMatchesEverythingOption);
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
        criterion.likePattern = likeExpression(criterion.value.toString());
    return criterion;
}

bool FindCriterion::matches(const QVariant &fieldValue) const
{
    if (fieldValue.isNull())
        return false;
    if (op == Op::Like)
        return likePattern.match(fieldValue.toString()).hasMatch();
    int order = 0;
    if (isNumber(value) && isNumber(fieldValue)) {
        const double a = fieldValue.toDouble();
        const double b = value.toDouble();
        order = a < b ? -1 : (a > b ? 1 : 0);
    } else {
        order = fieldValue.toString().compare(value.toString(), Qt::CaseInsensitive);
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
