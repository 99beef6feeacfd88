#include "reports/labeltable.h"

#include "data/connection.h"
#include "data/recordset.h"
#include "data/sqlnumber.h"
#include "data/transactionguard.h"

using namespace Qt::StringLiterals;

namespace {

// Thirteen nulls, each followed by a comma: an empty place in a row of four labels.
const QString emptyLabel = u"NULL,"_s.repeated(13);

enum class Written { Number, YesNo, Text, NullableText, NullableLast };

struct LabelColumn
{
    QString name;
    Written written;
};

const QList<LabelColumn> &labelColumns()
{
    static const QList<LabelColumn> columns{
        {u"BookId"_s, Written::Number},
        {u"BookDescription"_s, Written::Text},
        {u"BookNotes"_s, Written::NullableText},
        {u"BookPrice"_s, Written::Number},
        {u"BookPagesText"_s, Written::Number},
        {u"BookBibliography"_s, Written::YesNo},
        {u"Book1stEd"_s, Written::YesNo},
        {u"TopicDescription"_s, Written::NullableText},
        {u"AuthorFirstName"_s, Written::NullableText},
        {u"AuthorSurName"_s, Written::NullableText},
        {u"PublisherName"_s, Written::NullableText},
        {u"PublisherPlace"_s, Written::NullableText},
        {u"BookWhenPublished"_s, Written::NullableLast},
    };
    return columns;
}

// A number in SQL's form whatever the locale, so that a decimal comma never splits a value in
// two; text stays as it stands.
QString numberText(const QVariant &value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || value.typeId() == QMetaType::QString)
        return value.toString();
    return SqlNumber(number);
}

QString quoted(const QVariant &value)
{
    return u"'"_s + value.toString().replace(u'\'', u"''"_s) + u"'"_s;
}

QString written(const QVariant &value, Written how)
{
    switch (how) {
    case Written::Number:
        return numberText(value) + u',';
    case Written::YesNo:
        return (value.toInt() != 0 ? u"True"_s : u"False"_s) + u',';
    case Written::Text:
        return quoted(value) + u',';
    case Written::NullableText:
        return value.isNull() ? u"NULL,"_s : quoted(value) + u',';
    case Written::NullableLast:
        return value.isNull() ? u"NULL,"_s : numberText(value);
    }
    return {};
}

void insert(Connection &connection, const QString &values)
{
    connection.execute(u"Insert into tblLabelTable "_s + values, CommandType::Text);
}

} // namespace

namespace {

// The label query's columns in the label order; -1 for one it does not have.
QList<int> labelFields(const Recordset &labels)
{
    QList<int> fields;
    for (const LabelColumn &column : labelColumns())
        fields.append(labels.fieldIndex(column.name));
    return fields;
}

QString labelValues(const Recordset &labels, const QList<int> &fields, int row)
{
    QString values;
    for (qsizetype i = 0; i < fields.size(); ++i) {
        const int field = fields.at(i);
        values += written(field < 0 ? QVariant() : labels.valueAt(row, field),
                          labelColumns().at(i).written);
    }
    return values;
}

LabelCopy fillRows(Connection &connection, const LabelCopyProgress &progress)
{
    connection.execute(u"Delete from tblLabelTable"_s, CommandType::Text);
    const std::unique_ptr<Recordset> labels =
        connection.execute(u"qryBookLabel01"_s, CommandType::StoredProcedure);
    const QList<int> fields = labelFields(*labels);
    const int total = labels->recordCount();
    QString buffer = u"Values ("_s;
    int counter = 0;
    for (int row = 0; row < total; ++row) {
        ++counter;
        buffer += labelValues(*labels, fields, row);
        if (counter == 4) {
            insert(connection, buffer + u')');
            counter = 0;
            buffer = u"Values ("_s;
            if (progress && !progress(row + 1, total))
                return LabelCopy::Stopped;
        } else {
            buffer += u',';
        }
    }
    if (counter > 0) {
        for (int position = counter + 1; position <= 4; ++position)
            buffer += emptyLabel;
        buffer.chop(1);
        insert(connection, buffer + u')');
    }
    if (progress)
        progress(total, total);
    return LabelCopy::Complete;
}

} // namespace

QString LabelValues(const Recordset &labels, int row)
{
    return labelValues(labels, labelFields(labels), row);
}

LabelCopy FillLabelTable(Connection &connection, const LabelCopyProgress &progress)
{
    // One transaction for the whole run: without it every row's statement is a commit of its
    // own, seconds for thousands of rows. A failing INSERT, or a stop, still keeps the rows
    // written before it: they are committed before the error goes on.
    TransactionGuard transaction(connection);
    LabelCopy copied = LabelCopy::Complete;
    try {
        copied = fillRows(connection, progress);
    } catch (const ProviderError &) {
        transaction.commit();
        throw;
    }
    transaction.commit();
    return copied;
}
