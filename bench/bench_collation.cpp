// What ordering and matching text as a dictionary does costs on a catalogue of 30,000 books:
// each statement of the program's lists run on the program's connection, beside the same
// statement ordered and matched by SQLite's own NOCASE on a plain connection to the file.
#include "benchcatalogue.h"

#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/jetsql.h"
#include "data/recordset.h"

#include <QCoreApplication>
#include <QLocale>
#include <QSqlDatabase>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

struct Ordering
{
    const char *what;
    QString jet;
};

// The stored queries are read as their forms read them, by name.
const QList<Ordering> orderings = {
    {"book form's rows", u"select * from tblBook order by bookdescription"_s},
    {"book form's title lookup", u"select BookID,bookdescription from tblbook order by bookdescription"_s},
    {"author list", u"select * from tblAuthor order by AuthorSurname"_s},
    {"publisher list", u"select * from tblpublisher order by publishername"_s},
    {"report by title (qryReport01)", u"select * from qryReport01"_s},
    {"report by author (qryReport02)", u"select * from qryReport02"_s},
    {"labels (qryBookLabel01)", u"select * from qryBookLabel01"_s},
    {"title search 'the*'", u"Select distinct tblBook.BookID from tblBook  where tblBook.BookDescription  like 'the%'"_s},
    {"title search '*e*'", u"Select distinct tblBook.BookID from tblBook  where tblBook.BookDescription  like '%e%'"_s},
    {"author lookup equality", u"Select distinct tblBook.BookID from tblBook ,tblBookAuthor,tblauthor where "
                               "tblBook.BookID = tblBookAuthor.BookID and tblBookAuthor.AuthorID = tblAuthor.AuthorID "
                               "and tblAuthor.AuthorSurname = 'Smith'"_s},
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    const int books = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 30000;
    std::printf("Generating a catalogue of %d books...\n", books);
    BenchCatalogue catalogue(books);

    Connection connection;
    connection.open(ConnectionString::forCatalogue(catalogue.path()));
    QSqlDatabase plain = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"plain"_s);
    plain.setDatabaseName(catalogue.path());
    plain.open();

    std::printf("Figures: the locale's order (raw: SQLite's NOCASE), best of 5 runs\n");
    for (const Ordering &ordering : orderings) {
        const QString collated = JetSql::toCollatedSqlite(ordering.jet);
        const QString nocase = JetSql::toSqlite(ordering.jet);
        const double ms = bestMilliseconds(5, [&] { readAll(connection.database(), collated); });
        const double rawMs = bestMilliseconds(5, [&] { readAll(plain, nocase); });
        reportFigure(ordering.what, ms, rawMs, "ms");
    }
    const double openMs = bestMilliseconds(
        5, [&] { connection.execute(u"select * from tblBook order by bookdescription"_s); });
    std::printf("%-44s %10.3f ms\n", "open the book form's record set", openMs);
    plain.close();
    return 0;
}
