// The label run's inserts into its staging table, four labels to a row, as the label sheet
// reads them back.
#include "statementfixture.h"

#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// One label's thirteen values as the label run writes them into its INSERT.
QString labelValues(const Recordset &rs, int row)
{
    auto value = [&](const QString &name) { return rs.valueAt(row, rs.fieldIndex(name)); };
    auto quoted = [](const QVariant &v) -> QString { return u'\'' + v.toString().replace(u'\'', u"''"_s) + u"',"_s; };
    auto quotedOrNull = [&](const QString &name) -> QString {
        return value(name).isNull() ? u"NULL,"_s : quoted(value(name));
    };
    const QVariant published = value(u"BookWhenPublished"_s);
    return value(u"BookId"_s).toString() + u','
        + quoted(value(u"BookDescription"_s)) + quotedOrNull(u"BookNotes"_s)
        + value(u"BookPrice"_s).toString() + u',' + value(u"BookPagesText"_s).toString() + u','
        + value(u"BookBibliography"_s).toString() + u',' + value(u"Book1stEd"_s).toString() + u','
        + quotedOrNull(u"TopicDescription"_s) + quotedOrNull(u"AuthorFirstName"_s)
        + quotedOrNull(u"AuthorSurName"_s) + quotedOrNull(u"PublisherName"_s)
        + quotedOrNull(u"PublisherPlace"_s) + (published.isNull() ? u"NULL,"_s : published.toString());
}

// The INSERT statements of a label run, four labels to a statement, the last padded.
QStringList labelInserts(const Recordset &labels)
{
    static const QString padding = u"NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,"_s;
    QStringList inserts;
    QString buffer = u"Values ("_s;
    int counter = 0;
    for (int row = 0; row < labels.recordCount(); ++row) {
        ++counter;
        buffer += labelValues(labels, row);
        if (counter == 4) {
            inserts << u"Insert into tblLabelTable "_s + buffer + u')';
            counter = 0;
            buffer = u"Values ("_s;
        } else {
            buffer += u',';
        }
    }
    if (counter > 0) {
        for (int position = counter + 1; position <= 4; ++position)
            buffer += padding;
        buffer.chop(1);
        inserts << u"Insert into tblLabelTable "_s + buffer + u')';
    }
    return inserts;
}

} // namespace

class TestLabelStatements : public StatementTest
{
    Q_OBJECT

private Q_SLOTS:
    // The label run: every label of the stored query goes into the staging table, four to
    // a row, the last row padded with NULLs.
    void labelStaging()
    {
        run(u"Insert into tblLabelTable (BookId1) values (1)"_s);
        QVERIFY(run(u"Delete from tblLabelTable"_s) >= 1);
        QCOMPARE(count(u"SELECT count(*) FROM tblLabelTable"_s), 0);

        const auto labels = m_connection.execute(u"qryBookLabel01"_s, CommandType::StoredProcedure);
        const int labelCount = count(
            u"SELECT count(*) FROM tblBook b LEFT JOIN tblBookAuthor a ON a.BookID = b.BookID LEFT JOIN tblBookTopic t ON t.BookID = b.BookID"_s);
        QCOMPARE(labels->recordCount(), labelCount);
        for (const QString &statement : labelInserts(*labels))
            QCOMPARE(run(statement), 1);

        QCOMPARE(count(u"SELECT count(*) FROM tblLabelTable"_s), (labelCount + 3) / 4);
        QCOMPARE(count(u"SELECT count(*) FROM tblLabelTable WHERE BookId1 IS NOT NULL"_s)
                     + count(u"SELECT count(*) FROM tblLabelTable WHERE BookId2 IS NOT NULL"_s)
                     + count(u"SELECT count(*) FROM tblLabelTable WHERE BookId3 IS NOT NULL"_s)
                     + count(u"SELECT count(*) FROM tblLabelTable WHERE BookId4 IS NOT NULL"_s),
                 labelCount);
        QVERIFY(count(u"SELECT count(*) FROM tblLabelTable WHERE AuthorSurname1 = 'O''Brien' OR AuthorSurname2 = 'O''Brien' OR AuthorSurname3 = 'O''Brien' OR AuthorSurname4 = 'O''Brien'"_s) > 0);

        // The first row holds the first four labels, field for field.
        QSqlQuery row(catalogue().db());
        row.exec(u"SELECT * FROM tblLabelTable WHERE rowid = (SELECT min(rowid) FROM tblLabelTable)"_s);
        QVERIFY(row.next());
        static const QStringList order = {
            u"BookID"_s, u"BookDescription"_s, u"BookNotes"_s, u"BookPrice"_s, u"BookPagesText"_s,
            u"BookBibliography"_s, u"Book1stEd"_s, u"TopicDescription"_s, u"AuthorFirstName"_s,
            u"AuthorSurname"_s, u"PublisherName"_s, u"PublisherPlace"_s, u"BookWhenPublished"_s,
        };
        for (int label = 0; label < 4; ++label)
            for (int field = 0; field < order.size(); ++field)
                QCOMPARE(cell(row.value(label * 13 + field)),
                         cell(labels->valueAt(label, labels->fieldIndex(order[field]))));

        // The sheet report reads them back by label field and position.
        const auto sheet = m_connection.execute(u"qryBookLabels"_s, CommandType::StoredProcedure);
        QCOMPARE(sheet->recordCount(), (labelCount + 3) / 4);
        for (int label = 0; label < 4; ++label)
            for (int field = 0; field < order.size(); ++field) {
                const QString name = (field == 0 ? u"BookId"_s : order[field]) + QString::number(label + 1);
                QCOMPARE(sheet->fieldIndex(name), label * 13 + field);
            }
    }

    void labelStagingWithYesNoWords()
    {
        QCOMPARE(run(u"Insert into tblLabelTable Values (1,'A',NULL,12.5,300,True,False,NULL,NULL,NULL,NULL,NULL,1900,"
                     "NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,"
                     "NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,"
                     "NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL)"_s),
                 1);
        QCOMPARE(count(u"SELECT BookBibliography1 FROM tblLabelTable"_s), 1);
        QCOMPARE(count(u"SELECT Book1stEd1 FROM tblLabelTable"_s), 0);
    }

    void labelWithoutPublicationDateFails()
    {
        QSqlQuery(catalogue().db()).exec(u"UPDATE tblBook SET BookWhenPublished = NULL WHERE BookID = 1"_s);
        run(u"Delete from tblLabelTable"_s);
        const auto labels = m_connection.execute(u"qryBookLabel01"_s, CommandType::StoredProcedure);
        const QString first = labelInserts(*labels).constFirst();
        QVERIFY(first.contains(u"NULL,,"_s));
        QVERIFY_THROWS_EXCEPTION(ProviderError, run(first));
        QCOMPARE(count(u"SELECT count(*) FROM tblLabelTable"_s), 0);
    }
};

QTEST_GUILESS_MAIN(TestLabelStatements)
#include "tst_labelstatements.moc"
