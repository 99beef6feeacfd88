#include "figuretestbooks.h"

#include "forms/figures/figureforms.h"
#include "support/schemaedit.h"

#include <QLocale>
#include <QSqlQuery>

using namespace Qt::StringLiterals;

CatalogueOfBooks::CatalogueOfBooks(const QList<TestBook> &books, Prices prices)
    : m_opener(RegisterFigureForms, TestCatalogue::Content::Empty)
    , m_problems(m_opener.problems())
{
    if (!m_problems.isEmpty())
        return;
    const QSqlDatabase db = catalogue().db();
    if (prices == Prices::MayBeNull)
        m_problems = AllowNulls(db, u"tblBook"_s, u"BookPrice"_s);
    if (m_problems.isEmpty() && !QSqlQuery(db).exec(u"DELETE FROM tblBook"_s))
        m_problems = u"The catalogue's books could not be removed."_s;
    for (const TestBook &book : books) {
        if (m_problems.isEmpty() && !addBook(book))
            m_problems = u"The catalogue refused the book "_s + book.description;
    }
}

bool CatalogueOfBooks::addBook(const TestBook &book) const
{
    QSqlQuery insert(catalogue().db());
    insert.prepare(u"INSERT INTO tblBook (BookDescription, BookPrice, BookWhenPublished) "
                   "VALUES (?, ?, ?)"_s);
    insert.addBindValue(book.description);
    insert.addBindValue(book.price.isValid() ? book.price
                                             : QVariant(QMetaType::fromType<double>()));
    insert.addBindValue(book.yearPublished);
    return insert.exec();
}

QString Pounds(double amount)
{
    return QLocale(QLocale::English, QLocale::UnitedKingdom).toCurrencyString(amount, u"£"_s, 2);
}
