// The selects the forms, the browsers and the listings read rows with, written as the forms
// write them and with a book's number spliced in as they splice it, against the rows and order
// plain SQLite gives on the same file.
#include "statementfixture.h"

#include <QHash>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace

class TestSelectStatements : public StatementTest
{
    Q_OBJECT

private Q_SLOTS:
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

QTEST_GUILESS_MAIN(TestSelectStatements)
#include "tst_selectstatements.moc"
