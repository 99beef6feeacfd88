#include "figuretestbooks.h"

#include <QLocale>
#include <QSqlQuery>

using namespace Qt::StringLiterals;

bool RemoveAllBooks(const QSqlDatabase &db)
{
    return QSqlQuery(db).exec(u"DELETE FROM tblBook"_s);
}

bool AddBook(const QSqlDatabase &db, const QString &description, const QVariant &price,
             int yearPublished)
{
    QSqlQuery insert(db);
    insert.prepare(u"INSERT INTO tblBook (BookDescription, BookPrice, BookWhenPublished) "
                   "VALUES (?, ?, ?)"_s);
    insert.addBindValue(description);
    insert.addBindValue(price);
    insert.addBindValue(yearPublished);
    return insert.exec();
}

QString Pounds(double amount)
{
    return QLocale(QLocale::English, QLocale::UnitedKingdom).toCurrencyString(amount, u"£"_s, 2);
}
