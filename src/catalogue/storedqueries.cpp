#include "catalogue/storedqueries.h"

#include "catalogue/cataloguefile.h"
#include "catalogue/scopeddatabase.h"

#include <QHash>
#include <QRegularExpression>
#include <QSqlQuery>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace StoredQueries {
namespace {

struct View
{
    QString name;
    QString definition; // from CREATE on, as SQLite keeps it in sqlite_master
};

// The schema's views, in the order they are made: a view is made after those it reads.
QList<View> programViews()
{
    static const QRegularExpression createView(u"^CREATE VIEW\\s+(\\w+)"_s,
                                               QRegularExpression::MultilineOption);
    QList<View> views;
    for (const QString &statement : CatalogueFile::schemaStatements()) {
        const QRegularExpressionMatch match = createView.match(statement);
        if (match.hasMatch())
            views.append({match.captured(1), statement.mid(match.capturedStart()).trimmed()});
    }
    return views;
}

QHash<QString, QString> catalogueViews(const QSqlDatabase &db)
{
    QHash<QString, QString> views;
    QSqlQuery query(db);
    query.exec(u"SELECT name, sql FROM main.sqlite_master WHERE type = 'view'"_s);
    while (query.next())
        views.insert(query.value(0).toString().toLower(), query.value(1).toString().trimmed());
    return views;
}

} // namespace

bool Refresh(QSqlDatabase &db)
{
    const QList<View> wanted = programViews();
    const QHash<QString, QString> present = catalogueViews(db);
    const bool current = std::all_of(wanted.cbegin(), wanted.cend(), [&](const View &view) {
        return present.value(view.name.toLower()) == view.definition;
    });
    if (current)
        return true;
    if (!db.transaction())
        return false;
    try {
        // Dropped first and made again in order, as a view may read another.
        for (const View &view : wanted)
            CatalogueFile::exec(db, u"DROP VIEW IF EXISTS main."_s + view.name);
        for (const View &view : wanted)
            CatalogueFile::exec(db, view.definition);
        if (db.commit())
            return true;
    } catch (const CatalogueFileError &) {
    }
    db.rollback();
    return false;
}

bool Refresh(const QString &cataloguePath)
{
    try {
        ScopedDatabase scoped(cataloguePath);
        QSqlDatabase db = scoped.db();
        return Refresh(db);
    } catch (const CatalogueFileError &) {
        return false;
    }
}

} // namespace StoredQueries
