#include "transfertestbooks.h"

#include "catalogue/scopeddatabase.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace {

QStringList column(const QSqlDatabase &db, const QString &statement, qint64 bookId)
{
    QSqlQuery query(db);
    query.prepare(statement);
    query.addBindValue(bookId);
    query.exec();
    QStringList values;
    while (query.next())
        values << query.value(0).toString();
    values.sort(); // the order is the export's business, not the catalogue's
    return values;
}

void run(QSqlDatabase &db, const QString &statement)
{
    QSqlQuery query(db);
    if (!query.exec(statement))
        qFatal("%s: %s", qPrintable(statement), qPrintable(query.lastError().text()));
}

} // namespace

QStringList bookLines(const QString &cataloguePath)
{
    ScopedDatabase file(cataloguePath, ScopedDatabase::Mode::ReadOnly);
    QSqlDatabase db = file.db();
    QSqlQuery books(db);
    books.exec(u"SELECT b.BookID, b.BookDescription, ifnull(b.BookPagesText, ''), ifnull(b.BookPagesInto, ''), "
               "ifnull(b.BookCondition, ''), ifnull(b.BookCover, ''), printf('%.4f', b.BookPrice), "
               "printf('%.4f', ifnull(b.BookSellPrice, 0)), ifnull(b.BookWhenPublished, 0), "
               "ifnull(b.BookWhenPurchased, ''), ifnull(b.BookWhenSold, ''), b.BookIllustrated, "
               "ifnull(b.BookIllustrations, ''), ifnull(b.BookPlans, ''), ifnull(b.BookMaps, ''), b.Book1stEd, "
               "b.BookBibliography, ifnull(b.BookNotes, ''), p.PublisherName, ifnull(p.PublisherPlace, '') "
               "FROM tblBook b JOIN tblPublisher p ON p.PublisherID = b.BookPublisherId ORDER BY b.BookID"_s);
    QStringList lines;
    while (books.next()) {
        QStringList fields;
        for (int i = 0; i < 20; ++i)
            fields << books.value(i).toString();
        const qint64 id = books.value(0).toLongLong();
        fields << column(db, u"SELECT ifnull(a.AuthorSurname, '') || ' / ' || ifnull(a.AuthorFirstName, '') "
                             "FROM tblBookAuthor ba JOIN tblAuthor a ON a.AuthorID = ba.AuthorID WHERE ba.BookID = ?"_s, id)
                      .join(u" + "_s);
        fields << column(db, u"SELECT t.TopicDescription FROM tblBookTopic bt JOIN tblTopic t ON t.TopicID = bt.TopicID "
                             "WHERE bt.BookID = ?"_s, id)
                      .join(u" + "_s);
        lines << fields.join(u" | "_s);
    }
    return lines;
}

void addAwkwardBook(const QString &cataloguePath)
{
    ScopedDatabase file(cataloguePath);
    QSqlDatabase db = file.db();
    run(db, u"INSERT INTO tblPublisher (PublisherName, PublisherPlace) VALUES ('Éditions de l''Aube, \"Nord\"', 'Besançon')"_s);
    run(db, u"INSERT INTO tblAuthor (AuthorFirstName, AuthorSurname) VALUES ('Éloïse', 'D''Arcy-Ørsted')"_s);
    run(db, u"INSERT INTO tblAuthor (AuthorFirstName, AuthorSurname) VALUES ('', 'Le Carré')"_s);
    run(db, u"INSERT INTO tblTopic (TopicDescription) VALUES ('Letters, \"private\"')"_s);
    run(db, u"INSERT INTO tblBook (BookDescription, BookPagesText, BookPagesInto, BookCondition, BookCover, "
            "BookPublisherId, BookPrice, BookSellPrice, BookWhenPublished, BookWhenPurchased, BookWhenSold, "
            "BookIllustrated, BookIllustrations, BookPlans, BookMaps, Book1stEd, BookBibliography, BookNotes) "
            "VALUES ('Éloïse''s \"Journal\", vol. 1; with letters', 0, 'xii', 'Mint', 'Boxed', "
            "(SELECT max(PublisherID) FROM tblPublisher), 1234.5678, 0.5, 0, 0, 2020, 1, 0, 2, 3, 1, 1, "
            "'First line, \"quoted\"' || char(13, 10) || 'second line; d''après' || char(10) || 'third line')"_s);
    run(db, u"INSERT INTO tblBookAuthor (BookID, AuthorID) SELECT max(BookID), (SELECT max(AuthorID) FROM tblAuthor) FROM tblBook"_s);
    run(db, u"INSERT INTO tblBookAuthor (BookID, AuthorID) SELECT max(BookID), (SELECT max(AuthorID) - 1 FROM tblAuthor) FROM tblBook"_s);
    run(db, u"INSERT INTO tblBookTopic (BookID, TopicID) SELECT max(BookID), (SELECT max(TopicID) FROM tblTopic) FROM tblBook"_s);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}
