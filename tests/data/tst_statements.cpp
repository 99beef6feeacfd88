// Every statement the forms send to the catalogue, written as the forms write it and with
// its values spliced in as they splice them, run through a connection on the demo catalogue.
// What each should give is worked out separately, with plain SQLite queries on the file.
#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/recordset.h"
#include "support/testcatalogue.h"

#include <QHash>
#include <QLocale>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

#include <algorithm>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

QString cell(const QVariant &value)
{
    return value.isNull() ? u"<null>"_s : value.toString();
}

QStringList rowAt(const Recordset &rs, int row)
{
    QStringList cells;
    for (int field = 0; field < rs.fieldCount(); ++field)
        cells << cell(rs.valueAt(row, field));
    return cells;
}

QList<QStringList> rowsOf(const Recordset &rs)
{
    QList<QStringList> rows;
    for (int row = 0; row < rs.recordCount(); ++row)
        rows << rowAt(rs, row);
    return rows;
}

QList<QStringList> sorted(QList<QStringList> rows)
{
    std::sort(rows.begin(), rows.end());
    return rows;
}

// The rows of a plain SQLite query whose last column is the key its rows are ordered by,
// and the rank of each row's key in that order (rows with equal keys share a rank).
struct Expected
{
    QList<QStringList> rows;
    QHash<QString, int> rankOf;
};

Expected expectedRows(const TestCatalogue &catalogue, const QString &sql, qint64 book)
{
    QSqlQuery query(catalogue.db());
    Expected expected;
    if (!query.exec(QString(sql).replace(u":book"_s, QString::number(book)))) {
        qWarning("%s", qPrintable(query.lastError().text()));
        return expected;
    }
    const int columns = query.record().count();
    QString previousKey;
    int rank = 0;
    while (query.next()) {
        QStringList row;
        for (int column = 0; column < columns - 1; ++column)
            row << cell(query.value(column));
        const QString key = cell(query.value(columns - 1));
        if (expected.rows.isEmpty() || key != previousKey)
            ++rank;
        previousKey = key;
        expected.rankOf.insert(row.join(u'\x1f'), rank);
        expected.rows << row;
    }
    return expected;
}

QList<qint64> idsOf(const TestCatalogue &catalogue, const QString &sql)
{
    QList<qint64> ids;
    QSqlQuery query(catalogue.db());
    query.exec(sql);
    while (query.next())
        ids << query.value(0).toLongLong();
    std::sort(ids.begin(), ids.end());
    return ids;
}

QList<qint64> idsOf(const Recordset &rs)
{
    QList<qint64> ids;
    for (int row = 0; row < rs.recordCount(); ++row)
        ids << rs.valueAt(row, 0).toLongLong();
    std::sort(ids.begin(), ids.end());
    return ids;
}

// The criteria of the search form; a range bound or a text is used exactly as typed.
struct Search
{
    std::optional<QString> title = {};
    std::optional<std::pair<QString, QString>> author = {}; // pick, typed surname
    std::optional<std::pair<QString, QString>> topic = {};
    std::optional<std::pair<QString, QString>> publisher = {};
    std::optional<std::pair<QString, QString>> price = {}; // from, to
    std::optional<std::pair<QString, QString>> published = {};
};

// "like 'war%'" for war*, "= 'war'" for war.
QString pattern(const QString &typed)
{
    return (typed.contains(u'*') ? u"like '"_s : u"= '"_s) + QString(typed).replace(u'*', u'%')
        + u'\'';
}

void addTextCriterion(QString &where, const std::pair<QString, QString> &criterion,
                      const QString &pickPrefix, const QString &typedPrefix)
{
    if (!criterion.first.isEmpty())
        where += pickPrefix + criterion.first + u'\'';
    if (!criterion.second.isEmpty())
        where += typedPrefix + pattern(criterion.second);
}

// The statement as the search form puts it together.
QString searchStatement(const Search &search)
{
    QString statement = u"Select distinct tblBook.BookID from tblBook "_s;
    QString where;
    if (search.author) {
        statement += u",tblBookAuthor,tblauthor"_s;
        where += u" and tblBook.BookID = tblBookAuthor.BookID and tblBookAuthor.AuthorID = tblAuthor.AuthorID"_s;
    }
    if (search.topic) {
        statement += u",tblBookTopic ,tblTopic"_s;
        where += u" and tblBook.BookID = tblBookTopic.BookID and tblBookTopic.TopicID = tblTopic.TopicID"_s;
    }
    if (search.publisher) {
        statement += u" ,tblPublisher "_s;
        where += u" and tblBook.BookPublisherID = tblPublisher.PublisherID"_s;
    }
    if (search.title)
        where += u" and tblBook.BookDescription  "_s + pattern(*search.title);
    if (search.author)
        addTextCriterion(where, *search.author, u" and tblAuthor.AuthorSurname = '"_s,
                         u" and tblAuthor.AuthorSurname "_s);
    if (search.topic)
        addTextCriterion(where, *search.topic, u" and tblTopic.TopicDescription = '"_s,
                         u" and tblTopic.TopicDescription  "_s);
    if (search.publisher)
        addTextCriterion(where, *search.publisher, u" and tblPublisher.PublisherName = '"_s,
                         u" and tblPublisher.PublisherName  "_s);
    if (search.price)
        where += u" and tblBook.BookPrice between "_s + search.price->first + u" and "_s
            + search.price->second;
    if (search.published)
        where += u" and tblBook.BookWhenPublished between "_s + search.published->first
            + u" and "_s + search.published->second;
    if (where.startsWith(u" and "_s))
        where.replace(0, 5, u" where "_s);
    return statement + where;
}

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

QString ownerUpdate(const QStringList &boxes)
{
    return u"Update tblCatalogueControl Set CatalogueName = '"_s + boxes[0] + u"', Firstname = '"_s
        + boxes[1] + u"',Surname = '"_s + boxes[2] + u"',Addr1 = '"_s + boxes[3]
        + u"',Addr2 = '"_s + boxes[4] + u"',Addr3 = '"_s + boxes[5] + u"',Addr4 = '"_s + boxes[6]
        + u"',Addr5 = '"_s + boxes[7] + u"',PostCode = '"_s + boxes[8] + u"',TelNo1 = '"_s
        + boxes[9] + u"',TelNo2 = '"_s + boxes[10] + u"',FaxNo = '"_s + boxes[11]
        + u"',Email = '"_s + boxes[12] + u"'"_s;
}

const QStringList ownerColumns = {
    u"CatalogueName"_s, u"Firstname"_s, u"Surname"_s, u"Addr1"_s, u"Addr2"_s, u"Addr3"_s,
    u"Addr4"_s, u"Addr5"_s, u"PostCode"_s, u"TelNo1"_s, u"TelNo2"_s, u"FaxNo"_s, u"Email"_s,
};

QStringList ownerRow(const TestCatalogue &catalogue)
{
    QSqlQuery query(catalogue.db());
    query.exec(u"SELECT "_s + ownerColumns.join(u", "_s) + u" FROM tblCatalogueControl"_s);
    QStringList values;
    while (query.next())
        for (int column = 0; column < ownerColumns.size(); ++column)
            values << cell(query.value(column));
    return values;
}

QStringList prices(const TestCatalogue &catalogue, const QString &column)
{
    QStringList values;
    QSqlQuery query(catalogue.db());
    query.exec(u"SELECT "_s + column + u" FROM tblBook ORDER BY BookID"_s);
    while (query.next())
        values << cell(query.value(0));
    return values;
}

// The factor of a revaluation, as the plain conversion of a double writes it.
QString factorText(double percent)
{
    return QLocale(QLocale::English, QLocale::UnitedKingdom)
        .toString((percent + 100) / 100, 'g', QLocale::FloatingPointShortest);
}

} // namespace

Q_DECLARE_METATYPE(Search)

class TestStatements : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestCatalogue> m_catalogue;
    Connection m_connection;

    const TestCatalogue &catalogue() const { return *m_catalogue; }

    qint64 bookId(const QString &title) const
    {
        QSqlQuery query(catalogue().db());
        query.prepare(u"SELECT BookID FROM tblBook WHERE BookDescription = ?"_s);
        query.addBindValue(title);
        query.exec();
        return query.next() ? query.value(0).toLongLong() : -1;
    }

    qint64 authorId(const QString &surname) const
    {
        QSqlQuery query(catalogue().db());
        query.prepare(u"SELECT AuthorID FROM tblAuthor WHERE AuthorSurname = ?"_s);
        query.addBindValue(surname);
        query.exec();
        return query.next() ? query.value(0).toLongLong() : -1;
    }

    qint64 topicId(const QString &description) const
    {
        QSqlQuery query(catalogue().db());
        query.prepare(u"SELECT TopicID FROM tblTopic WHERE TopicDescription = ?"_s);
        query.addBindValue(description);
        query.exec();
        return query.next() ? query.value(0).toLongLong() : -1;
    }

    int count(const QString &sql) const { return catalogue().scalar(sql).toInt(); }

    std::unique_ptr<Recordset> open(const QString &statement)
    {
        return m_connection.execute(statement, CommandType::Text);
    }

    int run(const QString &statement)
    {
        int affected = -1;
        const auto rs = m_connection.execute(statement, CommandType::Text, &affected);
        return rs ? -1 : affected;
    }

private Q_SLOTS:
    void init()
    {
        m_catalogue = std::make_unique<TestCatalogue>(TestCatalogue::Content::Sample);
        m_connection.open(ConnectionString::forCatalogue(m_catalogue->path()));
    }

    void cleanup()
    {
        m_connection.close();
        m_catalogue.reset();
    }

    // Selects that yield rows: the forms' record sources and lookups, the tree browsers'
    // statements, and the selects the listings are shaped from. A row with a book splices
    // that book's number on the end, as the forms do.
    void selects_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("book");
        QTest::addColumn<QString>("expected"); // the same rows, then the ordering key
        QTest::addColumn<QStringList>("fields");

        const QStringList any;
        QTest::newRow("book form: adoBook")
            << u"select * from tblBook order by bookdescription"_s << QString()
            << u"SELECT *, lower(BookDescription) AS SortKey FROM tblBook ORDER BY SortKey"_s
            << any;
        QTest::newRow("book form: adoBookLkup")
            << u"select BookID,bookdescription from tblbook order by bookdescription"_s << QString()
            << u"SELECT BookID, BookDescription, lower(BookDescription) FROM tblBook ORDER BY 3"_s
            << QStringList{u"BookID"_s, u"BookDescription"_s};
        QTest::newRow("book form: adoPublisher")
            << u"select * from tblPublisher order by PublisherName"_s << QString()
            << u"SELECT PublisherID, PublisherName, PublisherPlace, PublisherNotes, lower(PublisherName) FROM tblPublisher ORDER BY 5"_s
            << QStringList{u"PublisherID"_s, u"PublisherName"_s, u"PublisherPlace"_s, u"PublisherNotes"_s};
        QTest::newRow("book form: adoAuthor as declared")
            << u"select tblauthor.authorid, tblauthor.authorfirstname, tblauthor.authorsurname from tblauthor inner join tblbookauthor on tblbookauthor.authorid =  tblauthor.authorid"_s
            << QString()
            << u"SELECT a.AuthorID, a.AuthorFirstName, a.AuthorSurname, 0 FROM tblBookAuthor l, tblAuthor a WHERE a.AuthorID = l.AuthorID"_s
            << QStringList{u"AuthorID"_s, u"AuthorFirstName"_s, u"AuthorSurname"_s};
        QTest::newRow("book form: adoTopic as declared")
            << u"Select tblbooktopic.topicId, tblbooktopic.BookId, tbltopic.topicdescription, tbltopic.topicnotes  from tbltopic inner join tblbooktopic on tblbooktopic.topicid = tbltopic.topicid  "_s
            << QString()
            << u"SELECT l.TopicID, l.BookID, t.TopicDescription, t.TopicNotes, 0 FROM tblBookTopic l, tblTopic t WHERE t.TopicID = l.TopicID"_s
            << QStringList{u"TopicID"_s, u"BookID"_s, u"TopicDescription"_s, u"TopicNotes"_s};
        QTest::newRow("book form: adoAuthorLkup, search: adoAuthorLkup")
            << u"select * from tblauthor order by authorsurname"_s << QString()
            << u"SELECT AuthorID, AuthorFirstName, AuthorSurname, AuthorNationality, AuthorNotes, lower(AuthorSurname) FROM tblAuthor ORDER BY 6"_s
            << QStringList{u"AuthorID"_s, u"AuthorFirstName"_s, u"AuthorSurname"_s, u"AuthorNationality"_s, u"AuthorNotes"_s};
        QTest::newRow("book's topics for the current book")
            << u"Select tblbooktopic.topicid,tblbooktopic.BookId, tbltopic.topicdescription, tbltopic.topicnotes from tbltopic inner join tblbooktopic on tblbooktopic.topicid = tbltopic.topicid where tblbooktopic.bookid = "_s
            << u"Harbours of the North Sea"_s
            << u"SELECT t.TopicID, :book, t.TopicDescription, t.TopicNotes, 0 FROM tblTopic t WHERE t.TopicID IN (SELECT TopicID FROM tblBookTopic WHERE BookID = :book)"_s
            << QStringList{u"topicid"_s, u"BookId"_s, u"topicdescription"_s, u"topicnotes"_s};
        QTest::newRow("book's authors for the current book")
            << u"select tblauthor.authorid, tblauthor.authorfirstname, tblauthor.authorsurname from tblauthor inner join tblbookauthor on tblbookauthor.authorid =  tblauthor.authorid where tblbookauthor.bookid = "_s
            << u"Harbours of the North Sea"_s
            << u"SELECT AuthorID, AuthorFirstName, AuthorSurname, 0 FROM tblAuthor WHERE AuthorID IN (SELECT AuthorID FROM tblBookAuthor WHERE BookID = :book)"_s
            << QStringList{u"authorid"_s, u"authorfirstname"_s, u"authorsurname"_s};
        QTest::newRow("author picker: adoAuthorLkup with surname & first name")
            << u"select authorid,authorsurname & ' ,  ' & authorfirstname from tblauthor order by authorsurname"_s
            << QString()
            << u"SELECT AuthorID, AuthorSurname || ' ,  ' || coalesce(AuthorFirstName, ''), lower(AuthorSurname) FROM tblAuthor ORDER BY 3"_s
            << any;
        QTest::newRow("topic picker, topic form lookup, search: adoTopicLkup")
            << u"select * from tbltopic order by topicdescription"_s << QString()
            << u"SELECT TopicID, TopicDescription, TopicNotes, lower(TopicDescription) FROM tblTopic ORDER BY 4"_s
            << QStringList{u"TopicID"_s, u"TopicDescription"_s, u"TopicNotes"_s};
        QTest::newRow("author form: adoAuthor")
            << u"select * from tblAuthor order by AuthorSurname"_s << QString()
            << u"SELECT AuthorID, AuthorFirstName, AuthorSurname, AuthorNationality, AuthorNotes, lower(AuthorSurname) FROM tblAuthor ORDER BY 6"_s
            << any;
        QTest::newRow("topic form: adoTopic")
            << u"select * from tblTopic order by topicdescription"_s << QString()
            << u"SELECT TopicID, TopicDescription, TopicNotes, lower(TopicDescription) FROM tblTopic ORDER BY 4"_s
            << any;
        QTest::newRow("publisher form: adoPublisher, search: adoPublisherLkup")
            << u"select * from tblpublisher order by publishername"_s << QString()
            << u"SELECT PublisherID, PublisherName, PublisherPlace, PublisherNotes, lower(PublisherName) FROM tblPublisher ORDER BY 5"_s
            << any;
        QTest::newRow("publisher form: adoPublisherLkup")
            << u"select * from tblPublisher order by publishername"_s << QString()
            << u"SELECT PublisherID, PublisherName, PublisherPlace, PublisherNotes, lower(PublisherName) FROM tblPublisher ORDER BY 5"_s
            << any;
        QTest::newRow("listing: BookDetails parent")
            << u"SELECT BookCondition, BookDescription, BookID, BookPrice, BookWhenPublished, BookPublisherId FROM tblBook ORDER BY BookID"_s
            << QString()
            << u"SELECT BookCondition, BookDescription, BookID, BookPrice, BookWhenPublished, BookPublisherId, BookID FROM tblBook ORDER BY 7"_s
            << QStringList{u"BookCondition"_s, u"BookDescription"_s, u"BookID"_s, u"BookPrice"_s, u"BookWhenPublished"_s, u"BookPublisherId"_s};
        QTest::newRow("listing: AuthorDetails chapter")
            << u"SELECT tblAuthor.AuthorFirstName, tblAuthor.AuthorSurname, tblBookAuthor.BookID FROM tblBookAuthor, tblAuthor WHERE tblBookAuthor.AuthorID = tblAuthor.AuthorID"_s
            << QString()
            << u"SELECT a.AuthorFirstName, a.AuthorSurname, l.BookID, 0 FROM tblAuthor a JOIN tblBookAuthor l USING (AuthorID)"_s
            << QStringList{u"AuthorFirstName"_s, u"AuthorSurname"_s, u"BookID"_s};
        QTest::newRow("listing: TopicDetails chapter")
            << u"SELECT tblTopic.TopicDescription, tblBookTopic.BookID FROM tblTopic, tblBookTopic WHERE tblTopic.TopicID = tblBookTopic.TopicID"_s
            << QString()
            << u"SELECT t.TopicDescription, l.BookID, 0 FROM tblTopic t JOIN tblBookTopic l USING (TopicID)"_s
            << QStringList{u"TopicDescription"_s, u"BookID"_s};
        QTest::newRow("listing: PublisherDetails chapter")
            << u"SELECT PublisherName, PublisherID FROM tblPublisher"_s << QString()
            << u"SELECT PublisherName, PublisherID, 0 FROM tblPublisher"_s
            << QStringList{u"PublisherName"_s, u"PublisherID"_s};
        QTest::newRow("topic browser: load")
            << u"select tblTopic.TopicID, tblTopic.TopicDescription,  tblBook.BookID, tblBook.BookDescription from tblTopic, tblBook, tblBookTopic where tblBook.BookID = tblBookTopic.BookID and tblBookTopic.TopicID = tblTopic.TopicID order by tblTopic.TopicDescription, tblBook.BookDescription "_s
            << QString()
            << u"SELECT t.TopicID, t.TopicDescription, b.BookID, b.BookDescription, lower(t.TopicDescription) || char(1) || lower(b.BookDescription) FROM tblBookTopic l JOIN tblTopic t ON t.TopicID = l.TopicID JOIN tblBook b ON b.BookID = l.BookID ORDER BY 5"_s
            << QStringList{u"TopicID"_s, u"TopicDescription"_s, u"BookID"_s, u"BookDescription"_s};
        QTest::newRow("topic browser: book clicked")
            << u"Select tblTopic.TopicDescription, tblBook.BookID, tblBook.BookDescription, tblpublisher.publishername from tblTopic, tblBook, tblBookTopic,tblPublisher where tblBook.BookID = tblBookTopic.BookID and tblBookTopic.TopicID = tblTopic.TopicID and tblBook.BookPublisherID = tblPublisher.PublisherID and tblBook.BookID = "_s
            << u"Harbours of the North Sea"_s
            << u"SELECT t.TopicDescription, b.BookID, b.BookDescription, p.PublisherName, 0 FROM tblBook b JOIN tblPublisher p ON p.PublisherID = b.BookPublisherId JOIN tblBookTopic l ON l.BookID = b.BookID JOIN tblTopic t ON t.TopicID = l.TopicID WHERE b.BookID = :book"_s
            << QStringList{u"TopicDescription"_s, u"BookID"_s, u"BookDescription"_s, u"PublisherName"_s};
        QTest::newRow("topic browser: book clicked, its authors")
            << u"Select tblauthor.authorfirstname,tblauthor.authorsurname from tblBookAuthor, tblAuthor where tblBookAuthor.AuthorID = tblAuthor.AuthorID and tblBookAuthor.BookID = "_s
            << u"Harbours of the North Sea"_s
            << u"SELECT AuthorFirstName, AuthorSurname, 0 FROM tblAuthor WHERE AuthorID IN (SELECT AuthorID FROM tblBookAuthor WHERE BookID = :book)"_s
            << QStringList{u"AuthorFirstName"_s, u"AuthorSurName"_s};
        QTest::newRow("author browser: load")
            << u"select tblAuthor.AuthorID, tblAuthor.AuthorFirstName & ' ' & tblAuthor.AuthorSurName as AuthorName,  tblBook.BookID, tblBook.BookDescription from tblAuthor, tblBook, tblBookAuthor where tblBook.BookID = tblBookAuthor.BookID and tblBookAuthor.AuthorID = tblAuthor.AuthorID order by 2, tblBook.BookDescription "_s
            << QString()
            << u"SELECT a.AuthorID, coalesce(a.AuthorFirstName, '') || ' ' || a.AuthorSurname, b.BookID, b.BookDescription, lower(coalesce(a.AuthorFirstName, '') || ' ' || a.AuthorSurname) || char(1) || lower(b.BookDescription) FROM tblBookAuthor l JOIN tblAuthor a ON a.AuthorID = l.AuthorID JOIN tblBook b ON b.BookID = l.BookID ORDER BY 5"_s
            << QStringList{u"AuthorID"_s, u"AuthorName"_s, u"BookID"_s, u"BookDescription"_s};
        QTest::newRow("author browser: book clicked")
            << u"Select tblBook.BookID, tblBook.BookDescription, tblpublisher.publishername, tblauthor.authorfirstname,tblauthor.authorsurname from tblAuthor, tblBook, tblBookAuthor,tblPublisher where tblBook.BookID = tblBookAuthor.BookID and tblBookAuthor.AuthorID = tblAuthor.AuthorID and tblBook.BookPublisherID = tblPublisher.PublisherID and tblBook.BookID = "_s
            << u"Harbours of the North Sea"_s
            << u"SELECT b.BookID, b.BookDescription, p.PublisherName, a.AuthorFirstName, a.AuthorSurname, 0 FROM tblBook b JOIN tblPublisher p ON p.PublisherID = b.BookPublisherId JOIN tblBookAuthor l ON l.BookID = b.BookID JOIN tblAuthor a ON a.AuthorID = l.AuthorID WHERE b.BookID = :book"_s
            << QStringList{u"BookID"_s, u"BookDescription"_s, u"PublisherName"_s, u"AuthorFirstName"_s, u"AuthorSurName"_s};
        QTest::newRow("author browser: book clicked, its topics")
            << u"Select tblTopic.TopicDescription from tblBookTopic, tblTopic where tblBookTopic.TopicID = tblTopic.TopicID and tblBookTopic.BookID = "_s
            << u"Harbours of the North Sea"_s
            << u"SELECT TopicDescription, 0 FROM tblTopic WHERE TopicID IN (SELECT TopicID FROM tblBookTopic WHERE BookID = :book)"_s
            << QStringList{u"TopicDescription"_s};
        QTest::newRow("single label: rscmdOneLabel")
            << u"select * from `qryBookLabel01` where BookId = "_s << u"Kidnapped"_s
            << u"SELECT b.BookID, b.BookDescription, b.BookNotes, a.AuthorFirstName, a.AuthorSurname, p.PublisherName, p.PublisherPlace, b.BookWhenPublished, b.Book1stEd, b.BookBibliography, b.BookPagesText, b.BookPrice, t.TopicDescription, 0 FROM tblBook b JOIN tblPublisher p ON p.PublisherID = b.BookPublisherId LEFT JOIN tblBookAuthor ba ON ba.BookID = b.BookID LEFT JOIN tblAuthor a ON a.AuthorID = ba.AuthorID LEFT JOIN tblBookTopic bt ON bt.BookID = b.BookID LEFT JOIN tblTopic t ON t.TopicID = bt.TopicID WHERE b.BookID = :book"_s
            << QStringList{u"BookID"_s, u"BookDescription"_s, u"BookNotes"_s, u"AuthorFirstName"_s, u"AuthorSurname"_s, u"PublisherName"_s, u"PublisherPlace"_s, u"BookWhenPublished"_s, u"Book1stEd"_s, u"BookBibliography"_s, u"BookPagesText"_s, u"BookPrice"_s, u"TopicDescription"_s};
        QTest::newRow("topic listing: cmdReport3")
            << u"SELECT * FROM `qryTopicDescForRep3`"_s << QString()
            << u"SELECT t.TopicDescription, l.BookID, 0 FROM tblTopic t JOIN tblBookTopic l USING (TopicID)"_s
            << QStringList{u"TopicDescription"_s, u"BookID"_s};
    }

    void selects()
    {
        QFETCH(QString, statement);
        QFETCH(QString, book);
        QFETCH(QString, expected);
        QFETCH(QStringList, fields);

        const qint64 id = book.isEmpty() ? -1 : bookId(book);
        if (!book.isEmpty())
            statement += QString::number(id);
        const auto rs = open(statement);
        QVERIFY(rs);
        const Expected want = expectedRows(catalogue(), expected, id);
        QVERIFY(!want.rows.isEmpty());
        const QList<QStringList> got = rowsOf(*rs);
        QCOMPARE(sorted(got), sorted(want.rows));

        int previousRank = 0;
        for (const QStringList &row : got) {
            const int rank = want.rankOf.value(row.join(u'\x1f'));
            QVERIFY2(rank >= previousRank, qPrintable(u"out of order at "_s + row.join(u", "_s)));
            previousRank = rank;
        }
        for (const QString &field : fields)
            QVERIFY2(rs->fieldIndex(field) >= 0, qPrintable(field));
        if (!fields.isEmpty())
            QCOMPARE(rs->fieldCount(), int(fields.size()));
    }

    void aNullFirstNameConcatenatesAsEmpty()
    {
        const auto rs = open(
            u"select tblAuthor.AuthorID, tblAuthor.AuthorFirstName & ' ' & tblAuthor.AuthorSurName as AuthorName,  tblBook.BookID, tblBook.BookDescription from tblAuthor, tblBook, tblBookAuthor where tblBook.BookID = tblBookAuthor.BookID and tblBookAuthor.AuthorID = tblAuthor.AuthorID order by 2, tblBook.BookDescription "_s);
        QVERIFY(catalogue().scalar(u"SELECT AuthorFirstName FROM tblAuthor WHERE AuthorSurname = 'Homer'"_s).isNull());
        QCOMPARE(rs->value(u"AuthorName"_s).toString(), u" Homer"_s);
        QCOMPARE(rs->value(u"BookDescription"_s).toString(), u"The Iliad"_s);

        const auto picker = open(
            u"select authorid,authorsurname & ' ,  ' & authorfirstname from tblauthor order by authorsurname"_s);
        QVERIFY(picker->find(u"authorid = "_s + QString::number(authorId(u"Homer"_s))));
        QCOMPARE(picker->value(1).toString(), u"Homer ,  "_s);
    }

    void spellingsOfOneColumnAddressIt_data()
    {
        QTest::addColumn<QString>("spelling");
        QTest::newRow("AuthorSurname") << u"AuthorSurname"_s;
        QTest::newRow("AuthorSurName") << u"AuthorSurName"_s;
        QTest::newRow("authorsurname") << u"authorsurname"_s;
    }

    void spellingsOfOneColumnAddressIt()
    {
        QFETCH(QString, spelling);
        const QStringList surnames = [this] {
            QStringList values;
            QSqlQuery query(catalogue().db());
            query.exec(u"SELECT AuthorSurname FROM tblAuthor ORDER BY AuthorID"_s);
            while (query.next())
                values << query.value(0).toString();
            return values;
        }();
        const auto rs = open(u"select tblAuthor."_s + spelling + u" from tblAuthor order by AuthorID"_s);
        QStringList got;
        for (int row = 0; row < rs->recordCount(); ++row)
            got << rs->valueAt(row, 0).toString();
        QCOMPARE(got, surnames);
        const auto all = open(u"select * from tblauthor order by authorsurname"_s);
        QCOMPARE(all->value(spelling).toString(), all->value(u"AuthorSurname"_s).toString());
    }

    void statistics()
    {
        QList<double> all;
        QList<int> years;
        QSqlQuery query(catalogue().db());
        query.exec(u"SELECT BookPrice, BookWhenPublished FROM tblBook"_s);
        while (query.next()) {
            all << query.value(0).toDouble();
            years << query.value(1).toInt();
        }
        double total = 0;
        for (double price : all)
            total += price;
        const auto rs = open(
            u"select count(*) as TotalNoBooks, sum(BookPrice) as TotalValue, avg(BookPrice) as AverageCost, max(BookPrice) as Expensive, min(BookPrice) as Cheapest, min(BookWhenPublished) as Oldest from tblBook"_s);
        QCOMPARE(rs->recordCount(), 1);
        QCOMPARE(rs->value(u"TotalNoBooks"_s).toInt(), all.size());
        QVERIFY(qFuzzyCompare(rs->value(u"TotalValue"_s).toDouble(), total));
        QVERIFY(qFuzzyCompare(rs->value(u"AverageCost"_s).toDouble(), total / all.size()));
        QCOMPARE(rs->value(u"Expensive"_s).toDouble(), *std::max_element(all.begin(), all.end()));
        QCOMPARE(rs->value(u"Cheapest"_s).toDouble(), *std::min_element(all.begin(), all.end()));
        QCOMPARE(rs->value(u"Oldest"_s).toInt(), *std::min_element(years.begin(), years.end()));
        QCOMPARE(rs->value(u"Oldest"_s).toInt(), 0); // books with no known date hold 0

        years.removeAll(0);
        const auto oldest = open(
            u"select   min(BookWhenPublished) as Oldest from tblBook where BookWhenPublished <> 0"_s);
        QCOMPARE(oldest->value(u"Oldest"_s).toInt(), *std::min_element(years.begin(), years.end()));
    }

    void collectionValue()
    {
        double total = 0;
        for (const QString &price : prices(catalogue(), u"BookPrice"_s))
            total += price.toDouble();
        const auto rs = open(u"select sum(BookPrice) as TotalValue from tblBook"_s);
        QVERIFY(qFuzzyCompare(rs->value(u"TotalValue"_s).toDouble(), total));
    }

    void revaluation_data()
    {
        QTest::addColumn<double>("percent");
        QTest::addColumn<QString>("factor");
        QTest::newRow("revaluation by 5%") << 5.0 << u"1.05"_s;
        QTest::newRow("revaluation by -2.5%") << -2.5 << u"0.975"_s;
        QTest::newRow("revaluation by 15%") << 15.0 << u"1.15"_s;
    }

    void revaluation()
    {
        QFETCH(double, percent);
        QFETCH(QString, factor);
        QCOMPARE(factorText(percent), factor);
        const QStringList before = prices(catalogue(), u"BookPrice"_s);
        const QStringList sellBefore = prices(catalogue(), u"BookSellPrice"_s);

        QCOMPARE(run(u"Update tblBook set bookPrice = bookprice * "_s + factorText(percent)), before.size());

        const QStringList after = prices(catalogue(), u"BookPrice"_s);
        for (qsizetype i = 0; i < before.size(); ++i) {
            const double wanted = before[i].toDouble() * factor.toDouble();
            QVERIFY2(qAbs(after[i].toDouble() - wanted) <= 0.00005 + 1e-9,
                     qPrintable(before[i] + u" became "_s + after[i]));
        }
        QCOMPARE(prices(catalogue(), u"BookSellPrice"_s), sellBefore);
    }

    void search_data()
    {
        QTest::addColumn<Search>("search");
        QTest::addColumn<QString>("expected"); // the books' keys

        QTest::newRow("search with no criterion") << Search{} << u"SELECT BookID FROM tblBook"_s;
        QTest::newRow("search by exact title")
            << Search{.title = u"Emma"_s}
            << u"SELECT BookID FROM tblBook WHERE lower(BookDescription) = 'emma'"_s;
        QTest::newRow("search by title start")
            << Search{.title = u"war*"_s}
            << u"SELECT BookID FROM tblBook WHERE lower(substr(BookDescription, 1, 3)) = 'war'"_s;
        QTest::newRow("search by title part")
            << Search{.title = u"*war*"_s}
            << u"SELECT BookID FROM tblBook WHERE instr(lower(BookDescription), 'war') > 0"_s;
        QTest::newRow("search by empty title")
            << Search{.title = QString()} << u"SELECT BookID FROM tblBook WHERE length(BookDescription) = 0"_s;
        QTest::newRow("search by author pick")
            << Search{.author = {{u"Dickens"_s, QString()}}}
            << u"SELECT BookID FROM tblBookAuthor WHERE AuthorID IN (SELECT AuthorID FROM tblAuthor WHERE AuthorSurname = 'Dickens')"_s;
        QTest::newRow("search by author surname")
            << Search{.author = {{QString(), u"bront*"_s}}}
            << u"SELECT BookID FROM tblBookAuthor WHERE AuthorID IN (SELECT AuthorID FROM tblAuthor WHERE lower(substr(AuthorSurname, 1, 5)) = 'bront')"_s;
        QTest::newRow("search by author pick and surname")
            << Search{.author = {{u"Austen"_s, u"Aus*"_s}}}
            << u"SELECT BookID FROM tblBookAuthor WHERE AuthorID IN (SELECT AuthorID FROM tblAuthor WHERE AuthorSurname = 'Austen')"_s;
        QTest::newRow("search by author pick and another surname")
            << Search{.author = {{u"Austen"_s, u"Dick*"_s}}} << u"SELECT 0 WHERE 0"_s;
        QTest::newRow("search by any author")
            << Search{.author = {{QString(), u"*"_s}}} << u"SELECT DISTINCT BookID FROM tblBookAuthor"_s;
        QTest::newRow("search by topic pick")
            << Search{.topic = {{u"Naval History"_s, QString()}}}
            << u"SELECT BookID FROM tblBookTopic WHERE TopicID IN (SELECT TopicID FROM tblTopic WHERE TopicDescription = 'Naval History')"_s;
        QTest::newRow("search by topic description")
            << Search{.topic = {{QString(), u"*History"_s}}}
            << u"SELECT DISTINCT BookID FROM tblBookTopic WHERE TopicID IN (SELECT TopicID FROM tblTopic WHERE substr(TopicDescription, -7) = 'History')"_s;
        QTest::newRow("search by publisher pick")
            << Search{.publisher = {{u"Ashdown & Pryce"_s, QString()}}}
            << u"SELECT BookID FROM tblBook WHERE BookPublisherId IN (SELECT PublisherID FROM tblPublisher WHERE PublisherName = 'Ashdown ' || char(38) || ' Pryce')"_s;
        QTest::newRow("search by publisher name")
            << Search{.publisher = {{QString(), u"Kestrel*"_s}}}
            << u"SELECT BookID FROM tblBook WHERE BookPublisherId IN (SELECT PublisherID FROM tblPublisher WHERE instr(PublisherName, 'Kestrel') = 1)"_s;
        QTest::newRow("search by price")
            << Search{.price = {{u"10"_s, u"20"_s}}}
            << u"SELECT BookID FROM tblBook WHERE BookPrice >= 10 AND BookPrice <= 20"_s;
        QTest::newRow("search by publication date")
            << Search{.published = {{u"1900"_s, u"1950"_s}}}
            << u"SELECT BookID FROM tblBook WHERE BookWhenPublished >= 1900 AND BookWhenPublished <= 1950"_s;
        QTest::newRow("search by every criterion")
            << Search{.title = u"*the*"_s, .author = {{QString(), u"*"_s}},
                      .topic = {{u"Fiction"_s, QString()}}, .publisher = {{QString(), u"*"_s}},
                      .price = {{u"0"_s, u"100"_s}}, .published = {{u"1800"_s, u"2000"_s}}}
            << u"SELECT BookID FROM tblBook b WHERE instr(lower(BookDescription), 'the') > 0 AND BookPrice BETWEEN 0 AND 100 AND BookWhenPublished BETWEEN 1800 AND 2000 AND EXISTS (SELECT 1 FROM tblBookAuthor a WHERE a.BookID = b.BookID) AND b.BookID IN (SELECT BookID FROM tblBookTopic JOIN tblTopic USING (TopicID) WHERE TopicDescription = 'Fiction')"_s;
    }

    // The search's statement finds the books; copied into the hits, it filters the book form.
    void search()
    {
        QFETCH(Search, search);
        QFETCH(QString, expected);
        const QString statement = searchStatement(search);
        const QList<qint64> wanted = idsOf(catalogue(), expected);

        const auto found = open(statement);
        QCOMPARE(idsOf(*found), wanted);
        if (wanted.isEmpty())
            return;

        run(u"Insert into tblcriteriahits (BookID) values (1)"_s);
        QVERIFY(run(u"Delete from tblcriteriahits"_s) >= 1);
        QCOMPARE(run(u"Insert into tblcriteriahits (BookID) "_s + statement), wanted.size());
        QCOMPARE(idsOf(catalogue(), u"SELECT BookID FROM tblCriteriaHits"_s), wanted);

        const auto filtered = open(
            u"Select tblBook.* from tblBook,tblCriteriaHits where tblcriteriahits.BookID = tblBook.BookID order by tblBook.BookDescription"_s);
        QCOMPARE(idsOf(*filtered), wanted);
        QCOMPARE(filtered->fieldNames(), open(u"select * from tblBook"_s)->fieldNames());
        const auto lookup = open(
            u"select tblbook.BookID, tblbook.bookdescription from tblbook, tblCriteriaHits where tblcriteriahits.BookID = tblBook.BookID order by tblBook.bookdescription"_s);
        QCOMPARE(idsOf(*lookup), wanted);
        for (int row = 1; row < lookup->recordCount(); ++row)
            QVERIFY(lookup->valueAt(row - 1, 1).toString().compare(lookup->valueAt(row, 1).toString(),
                                                                   Qt::CaseInsensitive) <= 0);
    }

    void searchThatFails_data()
    {
        QTest::addColumn<Search>("search");
        QTest::newRow("search by author pick with an apostrophe")
            << Search{.author = {{u"O'Brien"_s, QString()}}};
        QTest::newRow("search by topic pick with an apostrophe")
            << Search{.topic = {{u"Children's Books"_s, QString()}}};
        QTest::newRow("search by publisher pick with an apostrophe")
            << Search{.publisher = {{u"St Aldate's Press"_s, QString()}}};
        QTest::newRow("search by price without an upper bound") << Search{.price = {{u"10"_s, QString()}}};
        QTest::newRow("search by date without a lower bound")
            << Search{.published = {{QString(), u"1950"_s}}};
    }

    // The statement is refused before anything is written: the hits keep what they held.
    void searchThatFails()
    {
        QFETCH(Search, search);
        QCOMPARE(run(u"Insert into tblcriteriahits (BookID) values (7)"_s), 1);
        QVERIFY_THROWS_EXCEPTION(ProviderError, open(searchStatement(search)));
        QVERIFY(!m_connection.errors().isEmpty());
        QCOMPARE(idsOf(catalogue(), u"SELECT BookID FROM tblCriteriaHits"_s), QList<qint64>{7});
    }

    void oneBookHit_data()
    {
        QTest::addColumn<QString>("book");
        QTest::newRow("listing: row ticked") << u"Moby-Dick"_s;
        QTest::newRow("topic browser: Edit") << u"Heidi"_s;
        QTest::newRow("author browser: Edit") << u"Germinal"_s;
    }

    void oneBookHit()
    {
        QFETCH(QString, book);
        run(u"Insert into tblcriteriahits (BookID) values (3)"_s);
        run(u"Delete from tblcriteriahits"_s);
        QCOMPARE(count(u"SELECT count(*) FROM tblCriteriaHits"_s), 0);
        QCOMPARE(run(u"Insert into tblcriteriahits (BookID) values ("_s + QString::number(bookId(book)) + u")"_s), 1);
        QCOMPARE(idsOf(catalogue(), u"SELECT BookID FROM tblCriteriaHits"_s), QList<qint64>{bookId(book)});
        const auto filtered = open(
            u"Select tblBook.* from tblBook,tblCriteriaHits where tblcriteriahits.BookID = tblBook.BookID order by tblBook.BookDescription"_s);
        QCOMPARE(filtered->recordCount(), 1);
        QCOMPARE(filtered->value(u"BookDescription"_s).toString(), book);
    }

    void links_data()
    {
        QTest::addColumn<QString>("insert");
        QTest::addColumn<QString>("remove");
        QTest::addColumn<QString>("removeKey");
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("column");
        QTest::addColumn<qint64>("key");
        QTest::newRow("author picker OK, Delete Author")
            << u"Insert into tblBookAuthor (BookID,authorID) values ("_s
            << u"Delete from tblBookauthor where BookID = "_s << u" and authorID = "_s
            << u"tblBookAuthor"_s << u"AuthorID"_s << qint64(0);
        QTest::newRow("topic picker OK, Delete Topic")
            << u"Insert into tblBookTopic (BookID,TopicID) values ("_s
            << u"Delete from tblBookTopic where BookID = "_s << u" and TopicID = "_s
            << u"tblBookTopic"_s << u"TopicID"_s << qint64(1);
    }

    // A link is made once; the second time the duplicate key refuses it with state 3022.
    void links()
    {
        QFETCH(QString, insert);
        QFETCH(QString, remove);
        QFETCH(QString, removeKey);
        QFETCH(QString, table);
        QFETCH(QString, column);
        QFETCH(qint64, key);
        const qint64 book = bookId(u"Emma"_s);
        const qint64 other = key == 0 ? authorId(u"Dickens"_s) : topicId(u"Travel"_s);
        const QString pair = u"SELECT count(*) FROM "_s + table + u" WHERE BookID = "_s
            + QString::number(book) + u" AND "_s + column + u" = "_s + QString::number(other);
        const QString all = u"SELECT count(*) FROM "_s + table;
        const int links = count(all);
        QCOMPARE(count(pair), 0);

        const QString statement = insert + QString::number(book) + u","_s + QString::number(other) + u")"_s;
        QCOMPARE(run(statement), 1);
        QCOMPARE(count(pair), 1);
        QVERIFY_THROWS_EXCEPTION(ProviderError, run(statement));
        QCOMPARE(m_connection.errors().value(0).sqlState, u"3022"_s);
        QCOMPARE(count(pair), 1);
        QCOMPARE(count(all), links + 1);

        QCOMPARE(run(remove + QString::number(book) + removeKey + QString::number(other)), 1);
        QCOMPARE(count(pair), 0);
        QCOMPARE(count(all), links);
    }

    void ownerDetails()
    {
        const QStringList boxes = {
            u"The Whitcombe Library & Archive"_s, u"Eleanor"_s, u"Whitcombe-Hale"_s, u"Rosemary Cottage"_s,
            u"12 Church Lane"_s, u"Little Hadham"_s, u" "_s, u"Hertfordshire"_s, u"SG11 2DX"_s,
            u"01632 960418"_s, u" "_s, u"01632 960419"_s, u"eleanor@example.com"_s,
        };
        QCOMPARE(run(ownerUpdate(boxes)), 1);
        QCOMPARE(ownerRow(catalogue()), boxes);

        const auto owner = m_connection.execute(u"tblCatalogueControl"_s, CommandType::Table);
        QCOMPARE(owner->fieldNames(), ownerColumns);
        QCOMPARE(owner->value(0).toString(), boxes[0]);
    }

    void ownerDetailsWithAnApostropheFail()
    {
        const QStringList before = ownerRow(catalogue());
        QStringList boxes = before;
        boxes[2] = u"O'Brien"_s;
        boxes[0] = u"Changed"_s;
        QVERIFY_THROWS_EXCEPTION(ProviderError, run(ownerUpdate(boxes)));
        QCOMPARE(ownerRow(catalogue()), before);
    }

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

    void reportCommands_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("rows"); // one entry per book, or per book and author
        QTest::addColumn<QStringList>("more"); // columns after the five every listing reads
        QTest::newRow("title listing: cmdReport1") << u"qryReport01"_s
                                                   << u"SELECT count(*) FROM tblBook"_s << QStringList();
        QTest::newRow("author listing: cmdReport2")
            << u"qryReport02"_s
            << u"SELECT count(*) FROM tblBook b LEFT JOIN tblBookAuthor a ON a.BookID = b.BookID"_s
            << QStringList{u"ListedAuthor"_s};
    }

    void reportCommands()
    {
        QFETCH(QString, query);
        QFETCH(QString, rows);
        QFETCH(QStringList, more);
        const auto rs = m_connection.execute(query, CommandType::StoredProcedure);
        QCOMPARE(rs->fieldNames(), (QStringList{u"BookDets1"_s, u"BookDets2"_s, u"BookDets3"_s,
                                                u"BookPrice"_s, u"Expr1"_s} + more));
        QCOMPARE(rs->recordCount(), count(rows));
    }

    void topicListingDetail()
    {
        const auto rs = open(u"SELECT * FROM `qryReport03`"_s);
        QCOMPARE(rs->fieldNames(), (QStringList{u"BookID"_s, u"BookDets1"_s, u"BookDets2"_s,
                                                u"BookDets3"_s, u"BookPrice"_s, u"Expr1"_s}));
        QCOMPARE(rs->recordCount(), count(u"SELECT count(*) FROM tblBook"_s));
        QVERIFY(rs->find(u"BookID = "_s + QString::number(bookId(u"Emma"_s))));
        QCOMPARE(rs->value(u"BookDets1"_s).toString(), u"Emma"_s);
        QCOMPARE(rs->value(u"Expr1"_s), rs->value(u"BookID"_s));
    }
};

QTEST_GUILESS_MAIN(TestStatements)
#include "tst_statements.moc"
