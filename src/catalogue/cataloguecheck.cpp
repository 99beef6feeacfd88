#include "catalogue/cataloguecheck.h"

#include "catalogue/cataloguefile.h"
#include "catalogue/schemashape.h"
#include "catalogue/scopeddatabase.h"

#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace CatalogueCheck {
namespace {

// The forms navigate bound record sets that must not be empty.
const QString tablesNeedingRows[] = {u"tblBook"_s, u"tblAuthor"_s, u"tblTopic"_s, u"tblPublisher"_s};
const QString ownerTable = u"tblCatalogueControl"_s;

bool sameName(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

class Checker
{
public:
    Checker(const QSqlDatabase &file, const SchemaShape &expected, const SchemaShape &actual)
        : m_file(file), m_expected(expected), m_actual(actual) {}

    QStringList run()
    {
        // Objects the file has beyond the schema are left alone: they do not hinder the program.
        for (const ObjectShape &object : m_expected)
            compareObject(object, findObject(m_actual, object.name));
        checkRequiredContent();
        checkIntegrity();
        checkReferences();
        return m_problems;
    }

private:
    void compareObject(const ObjectShape &expected, const ObjectShape *actual)
    {
        if (!actual) {
            m_problems << u"%1: the %2 is missing"_s.arg(expected.name, expected.kind);
        } else if (actual->kind != expected.kind) {
            m_problems << u"%1: is a %2, expected a %3"_s.arg(expected.name, actual->kind, expected.kind);
        } else if (!actual->error.isEmpty()) {
            m_problems << u"%1: cannot be read: %2"_s.arg(expected.name, actual->error);
        } else {
            compareColumns(expected, *actual);
            compareSets(expected.name, expected.keys, actual->keys);
            compareSets(expected.name, expected.foreignKeys, actual->foreignKeys);
        }
    }

    void compareColumns(const ObjectShape &expected, const ObjectShape &actual)
    {
        const QStringList &want = expected.columnNames;
        const QStringList &have = actual.columnNames;
        for (qsizetype i = 0; i < std::max(want.size(), have.size()); ++i) {
            const QString where = u"%1: column %2"_s.arg(expected.name).arg(i + 1);
            if (i >= have.size())
                m_problems << u"%1, %2, is missing"_s.arg(where, want[i]);
            else if (i >= want.size())
                m_problems << u"%1, %2, is not expected"_s.arg(where, have[i]);
            else if (!sameName(have[i], want[i]))
                m_problems << u"%1 is %2, expected %3"_s.arg(where, have[i], want[i]);
            else if (expected.kind == u"table"_s
                     && !sameName(actual.columnDeclarations[i], expected.columnDeclarations[i]))
                m_problems << u"%1, %2, is declared %3, expected %4"_s.arg(
                    where, want[i], actual.columnDeclarations[i], expected.columnDeclarations[i]);
        }
    }

    void compareSets(const QString &object, const QStringList &want, const QStringList &have)
    {
        for (const QString &item : want) {
            if (!have.contains(item))
                m_problems << u"%1: %2 is missing"_s.arg(object, item);
        }
        for (const QString &item : have) {
            if (!want.contains(item))
                m_problems << u"%1: unexpected %2"_s.arg(object, item);
        }
    }

    // The table exists in the file and could be read, so its content can be looked at.
    bool readable(const QString &table) const
    {
        const ObjectShape *object = findObject(m_actual, table);
        return object && object->kind == u"table"_s && object->error.isEmpty();
    }

    // The first column of the first row, or the problem of running it.
    QVariant scalar(const QString &table, const QString &statement)
    {
        QSqlQuery query(m_file);
        if (!query.exec(statement) || !query.next()) {
            m_problems << u"%1: cannot be read: %2"_s.arg(table, query.lastError().databaseText());
            return {};
        }
        return query.value(0);
    }

    void checkRequiredContent()
    {
        for (const QString &table : tablesNeedingRows) {
            if (readable(table) && scalar(table, u"SELECT count(*) FROM "_s + table) == 0)
                m_problems << u"%1: holds no rows, at least one is required"_s.arg(table);
        }
        if (readable(u"tblPublisher"_s)
            && scalar(u"tblPublisher"_s, u"SELECT count(*) FROM tblPublisher WHERE PublisherName = 'UnKnown'"_s) == 0)
            m_problems << u"tblPublisher: no publisher named UnKnown"_s;
        if (readable(ownerTable))
            checkOwnerRow();
    }

    void checkOwnerRow()
    {
        const QVariant rows = scalar(ownerTable, u"SELECT count(*) FROM "_s + ownerTable);
        if (rows.isValid() && rows != 1)
            m_problems << u"%1: holds %2 rows, expected exactly one"_s.arg(ownerTable, rows.toString());
        const ObjectShape *actual = findObject(m_actual, ownerTable);
        for (const QString &column : findObject(m_expected, ownerTable)->columnNames) {
            if (actual->columnNames.contains(column, Qt::CaseInsensitive)
                && scalar(ownerTable, u"SELECT count(*) FROM %1 WHERE \"%2\" IS NULL"_s.arg(ownerTable, column)) != 0)
                m_problems << u"%1: %2 is NULL"_s.arg(ownerTable, column);
        }
    }

    void checkIntegrity()
    {
        QSqlQuery query(m_file);
        if (!query.exec(u"PRAGMA integrity_check"_s))
            m_problems << u"integrity check: cannot run: %1"_s.arg(query.lastError().databaseText());
        while (query.next()) {
            if (query.value(0).toString() != u"ok"_s)
                m_problems << u"integrity check: "_s + query.value(0).toString();
        }
    }

    void checkReferences()
    {
        QSqlQuery query(m_file);
        if (!query.exec(u"PRAGMA foreign_key_check"_s))
            m_problems << u"foreign key check: cannot run: %1"_s.arg(query.lastError().databaseText());
        while (query.next()) {
            m_problems << u"%1: row %2 refers to a %3 row that does not exist"_s.arg(
                query.value(0).toString(), query.value(1).toString(), query.value(2).toString());
        }
    }

    QSqlDatabase m_file;
    const SchemaShape &m_expected;
    const SchemaShape &m_actual;
    QStringList m_problems;
};

// A program stopped in the middle of a write leaves its journal beside the file, and the
// first connection that may write puts the file back as it was last committed; one that may
// only read finds it unreadable instead. So such a file is first opened for writing.
void finishAnInterruptedWrite(const QString &path)
{
    if (!QFileInfo::exists(path + u"-journal"_s))
        return;
    ScopedDatabase file(path);
    QSqlQuery(file.db()).exec(u"SELECT count(*) FROM sqlite_master"_s);
}

SchemaShape expectedShape()
{
    ScopedDatabase reference(u":memory:"_s);
    QSqlDatabase db = reference.db();
    CatalogueFile::applySchema(db);
    return readSchemaShape(db);
}

} // namespace

QStringList problemsIn(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw CatalogueFileError(u"%1 does not exist"_s.arg(path));
    if (info.isDir())
        throw CatalogueFileError(u"%1 is a folder"_s.arg(path));

    const SchemaShape expected = expectedShape();
    try {
        finishAnInterruptedWrite(path);
        ScopedDatabase file(path, ScopedDatabase::Mode::ReadOnly);
        const SchemaShape actual = readSchemaShape(file.db());
        return Checker(file.db(), expected, actual).run();
    } catch (const CatalogueFileError &e) {
        return {u"cannot be read as an SQLite database: "_s + e.message()};
    }
}

} // namespace CatalogueCheck
