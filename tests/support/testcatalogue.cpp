#include "support/testcatalogue.h"

#include "catalogue/cataloguefile.h"
#include "catalogue/generator.h"
#include "catalogue/samplecollection.h"
#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/recordset.h"

#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace {

CatalogueFile::Filler fillerOf(TestCatalogue::Content content)
{
    switch (content) {
    case TestCatalogue::Content::Sample:
        return SampleCollection::fill;
    case TestCatalogue::Content::Large:
        return [](QSqlDatabase &db) {
            Generator::Options options;
            options.books = TestCatalogue::GeneratedBooks;
            Generator::fill(db, options);
        };
    case TestCatalogue::Content::Empty:
        break;
    }
    return {};
}

} // namespace

TestCatalogue::TestCatalogue(Content content)
    : m_connectionName(u"test-catalogue-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    CatalogueFile::create(path(), false /* overwrite */, fillerOf(content));
    QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_connectionName);
    db.setDatabaseName(path());
    db.open();
    QSqlQuery(db).exec(u"PRAGMA foreign_keys = ON"_s);
}

TestCatalogue::~TestCatalogue()
{
    {
        QSqlDatabase db = QSqlDatabase::database(m_connectionName, false);
        db.close();
    }
    QSqlDatabase::removeDatabase(m_connectionName);
}

QString TestCatalogue::path() const
{
    return m_dir.filePath(u"QuireshelfCatalog01.mdb"_s);
}

QString TestCatalogue::folder() const
{
    return m_dir.path();
}

QSqlDatabase TestCatalogue::db() const
{
    return QSqlDatabase::database(m_connectionName, false);
}

QVariant TestCatalogue::scalar(const QString &sql) const
{
    QSqlQuery query(db());
    if (!query.exec(sql) || !query.next())
        return {};
    return query.value(0);
}

QVariant TestCatalogue::programScalar(const QString &statement) const
{
    const QList<QVariantList> rows = programRows(statement);
    return rows.isEmpty() ? QVariant() : rows.constFirst().value(0);
}

QList<QVariantList> TestCatalogue::programRows(const QString &statement) const
{
    Connection connection;
    connection.open(ConnectionString::forCatalogue(path()));
    const auto records = connection.execute(statement);
    QList<QVariantList> rows;
    for (int row = 0; row < records->recordCount(); ++row) {
        QVariantList values;
        for (int field = 0; field < records->fieldCount(); ++field)
            values.append(records->valueAt(row, field));
        rows.append(values);
    }
    return rows;
}
