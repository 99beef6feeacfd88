#include "transfer/catalogueexport.h"

#include "catalogue/cataloguefile.h"
#include "catalogue/filereplacement.h"
#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/textcollation.h"
#include "transfer/bookcolumns.h"
#include "transfer/csvwriter.h"
#include "transfer/fieldtext.h"
#include "transfer/personname.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace CatalogueExport {
namespace {

constexpr int ProgressEvery = 1000;

// A query read forward once, its failure a one-line message.
QSqlQuery forwardQuery(const QSqlDatabase &db, const QString &statement)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    if (!query.exec(statement))
        throw CatalogueFileError(query.lastError().databaseText());
    return query;
}

// Each book's names of one kind, in the program's dictionary order, joined with "; ".
QHash<qint64, QString> namesByBook(const QSqlDatabase &db, const QString &statement,
                                   const std::function<QString(const QSqlQuery &)> &nameOf)
{
    QHash<qint64, QString> names;
    QSqlQuery query = forwardQuery(db, statement);
    while (query.next()) {
        QString &list = names[query.value(0).toLongLong()];
        list += (list.isEmpty() ? QString() : u"; "_s) + nameOf(query);
    }
    return names;
}

QString text(const QVariant &value)
{
    return value.isNull() ? QString() : value.toString();
}

// NULL and, for the publication year, 0 are "not known": an empty field.
QString number(const QVariant &value, bool zeroIsUnknown = false)
{
    if (value.isNull() || (zeroIsUnknown && value.toLongLong() == 0))
        return {};
    return QString::number(value.toLongLong());
}

// The book query's columns, in the order of the header row.
const QString booksStatement = u"SELECT b.BookID, b.BookDescription, p.PublisherName, p.PublisherPlace, "
                               "b.BookWhenPublished, b.BookCondition, b.BookCover, b.BookPagesText, "
                               "b.BookPagesInto, b.BookPrice, b.BookSellPrice, b.BookWhenPurchased, "
                               "b.BookWhenSold, b.BookIllustrated, b.BookIllustrations, b.BookPlans, "
                               "b.BookMaps, b.Book1stEd, b.BookBibliography, b.BookNotes "
                               "FROM tblBook b LEFT JOIN tblPublisher p ON p.PublisherID = b.BookPublisherId "
                               "ORDER BY b.BookID"_s;

QString authorsStatement()
{
    return u"SELECT ba.BookID, a.AuthorSurname, a.AuthorFirstName FROM tblBookAuthor ba "
           "JOIN tblAuthor a ON a.AuthorID = ba.AuthorID "
           "ORDER BY ba.BookID, a.AuthorSurname COLLATE %1, a.AuthorFirstName COLLATE %1"_s
        .arg(QLatin1StringView(TextCollation::orderName));
}

QString topicsStatement()
{
    return u"SELECT bt.BookID, t.TopicDescription FROM tblBookTopic bt "
           "JOIN tblTopic t ON t.TopicID = bt.TopicID "
           "ORDER BY bt.BookID, t.TopicDescription COLLATE %1"_s
        .arg(QLatin1StringView(TextCollation::orderName));
}

QStringList bookFields(const QSqlQuery &book, const QString &authors, const QString &topics)
{
    const auto v = [&book](int column) { return book.value(column); };
    return {number(v(0)), text(v(1)), authors, topics, text(v(2)), text(v(3)), number(v(4), true),
            text(v(5)), text(v(6)), number(v(7)), text(v(8)), FieldText::money(v(9).toDouble()),
            FieldText::money(v(10).toDouble()), number(v(11)), number(v(12)),
            FieldText::yesNo(v(13).toInt() != 0), number(v(14)), number(v(15)), number(v(16)),
            FieldText::yesNo(v(17).toInt() != 0), FieldText::yesNo(v(18).toInt() != 0), text(v(19))};
}

int bookCount(const QSqlDatabase &db)
{
    QSqlQuery count = forwardQuery(db, u"SELECT count(*) FROM tblBook"_s);
    return count.next() ? count.value(0).toInt() : 0;
}

// The export under its temporary name, removed unless it was renamed into place.
class TemporaryFile
{
public:
    explicit TemporaryFile(const QString &target)
        : m_file(QFileInfo(target).absoluteDir().filePath(
              u".%1.%2.tmp"_s.arg(QFileInfo(target).fileName(), QUuid::createUuid().toString(QUuid::Id128))))
    {
    }
    ~TemporaryFile()
    {
        if (!m_kept)
            m_file.remove();
    }
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;

    QFile &file() { return m_file; }
    void keep() { m_kept = true; }

private:
    QFile m_file;
    bool m_kept = false;
};

void writeBooks(const QSqlDatabase &db, QFile &out, const Options &options, Summary &summary)
{
    const QHash<qint64, QString> authors = namesByBook(db, authorsStatement(), [](const QSqlQuery &row) {
        return PersonNames::written({row.value(2).toString(), row.value(1).toString()});
    });
    const QHash<qint64, QString> topics =
        namesByBook(db, topicsStatement(), [](const QSqlQuery &row) { return row.value(1).toString(); });
    const int total = bookCount(db);

    QStringList header;
    for (const auto &[column, name] : BookColumns::exported())
        header << name;
    QByteArray chunk = CsvWriter::record(header).toUtf8();
    QSqlQuery book = forwardQuery(db, booksStatement);
    while (book.next()) {
        const qint64 id = book.value(0).toLongLong();
        chunk += CsvWriter::record(bookFields(book, authors.value(id), topics.value(id))).toUtf8();
        if (++summary.books % ProgressEvery == 0) {
            if (out.write(chunk) != chunk.size())
                throw CatalogueFileError(out.errorString());
            chunk.clear();
            if (options.progress)
                options.progress(summary.books, total);
        }
    }
    if (out.write(chunk) != chunk.size() || !out.flush())
        throw CatalogueFileError(out.errorString());
    if (options.progress)
        options.progress(summary.books, total);
}

} // namespace

Summary write(const QString &cataloguePath, const QString &csvPath, const Options &options)
{
    QElapsedTimer timer;
    timer.start();
    const QFileInfo target(csvPath);
    if (target.isDir())
        throw CatalogueFileError(u"%1 is a folder"_s.arg(csvPath));
    if (target.exists() && !options.overwrite)
        throw CatalogueFileError(u"%1 exists already (use --force to replace it)"_s.arg(csvPath));
    if (!target.absoluteDir().exists())
        throw CatalogueFileError(u"the folder %1 does not exist"_s.arg(QDir::toNativeSeparators(target.absolutePath())));

    Connection connection;
    try {
        connection.open(ConnectionString::forCatalogue(cataloguePath));
    } catch (const ProviderError &error) {
        throw CatalogueFileError(u"%1: %2"_s.arg(cataloguePath, error.description));
    }
    Summary summary;
    TemporaryFile temporary(csvPath);
    if (!temporary.file().open(QIODevice::WriteOnly))
        throw CatalogueFileError(u"cannot write %1: %2"_s.arg(csvPath, temporary.file().errorString()));
    try {
        writeBooks(connection.database(), temporary.file(), options, summary);
    } catch (const CatalogueFileError &e) {
        throw CatalogueFileError(u"cannot write %1: %2"_s.arg(csvPath, e.message()));
    }
    temporary.file().close();
    const QString reason = FileReplacement::replace(temporary.file().fileName(), csvPath);
    if (!reason.isEmpty())
        throw CatalogueFileError(u"cannot write %1: %2"_s.arg(csvPath, reason));
    temporary.keep();
    summary.milliseconds = timer.elapsed();
    return summary;
}

} // namespace CatalogueExport
