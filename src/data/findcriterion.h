#pragma once

#include "data/textcollation.h"

#include <QString>
#include <QVariant>

// The criterion of a record set's Find: "Column = value", where value is a number, a
// 'quoted text' or a #date#, and the operator one of = <> < > <= >= LIKE.
struct FindCriterion
{
    enum class Op { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual, Like };

    QString field;
    Op op = Op::Equal;
    QVariant value;
    // For LIKE: the pattern, read once rather than for every row compared.
    TextCollation::LikePattern likePattern;
    // Texts are equal when the same but for case, and otherwise in the lists' order.
    TextCollation::DictionaryOrder textOrder;

    // Throws ProviderError when the text is not such a criterion.
    static FindCriterion parse(const QString &text);
    bool matches(const QVariant &fieldValue) const;
};
