// shelvane-catalog export and import-csv as a person runs them: the export read back by
// Python's csv module, the round trip through the tool, a dry run, statuses and messages.
#include "support/testcatalogue.h"
#include "support/toolrun.h"
#include "transfertestbooks.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// The file as Python's csv module reads it: a list of rows, each a dict by header.
const QString readBack = uR"(
import csv, json, sys
with open(sys.argv[1], newline='', encoding='utf-8') as f:
    json.dump(list(csv.DictReader(f)), sys.stdout)
)"_s;

// What the export must write for each book, read from the catalogue with plain SQL.
QList<QStringList> expectedRows(TestCatalogue &catalogue)
{
    const QList<QVariantList> books = catalogue.programRows(
        u"SELECT b.BookID, b.BookDescription, ifnull(p.PublisherName, ''), ifnull(p.PublisherPlace, ''), "
        "CASE WHEN b.BookWhenPublished > 0 THEN b.BookWhenPublished ELSE '' END, ifnull(b.BookCondition, ''), "
        "ifnull(b.BookCover, ''), ifnull(b.BookPagesText, ''), ifnull(b.BookPagesInto, ''), "
        "printf('%.4f', b.BookPrice), printf('%.4f', ifnull(b.BookSellPrice, 0)), ifnull(b.BookWhenPurchased, ''), "
        "ifnull(b.BookWhenSold, ''), CASE b.BookIllustrated WHEN 0 THEN 'No' ELSE 'Yes' END, "
        "ifnull(b.BookIllustrations, ''), ifnull(b.BookPlans, ''), ifnull(b.BookMaps, ''), "
        "CASE b.Book1stEd WHEN 0 THEN 'No' ELSE 'Yes' END, CASE b.BookBibliography WHEN 0 THEN 'No' ELSE 'Yes' END, "
        "ifnull(b.BookNotes, '') FROM tblBook b LEFT JOIN tblPublisher p ON p.PublisherID = b.BookPublisherId "
        "ORDER BY b.BookID"_s);
    QList<QStringList> rows;
    for (const QVariantList &book : books) {
        const QString id = book[0].toString();
        // The program's own order of names, as its lists show them.
        QStringList authors;
        for (const QVariantList &author : catalogue.programRows(
                 u"SELECT a.AuthorSurname, a.AuthorFirstName FROM tblAuthor a, tblBookAuthor ba "
                 "WHERE ba.AuthorID = a.AuthorID AND ba.BookID = "_s + id + u" ORDER BY a.AuthorSurname, a.AuthorFirstName"_s)) {
            const QString first = author[1].toString();
            const QString surname = author[0].toString();
            if (!first.isEmpty())
                authors << surname + u", "_s + first;
            else
                authors << surname + (surname.contains(u' ') ? u","_s : QString()); // "Le Carré,"
        }
        QStringList topics;
        for (const QVariantList &topic : catalogue.programRows(
                 u"SELECT t.TopicDescription FROM tblTopic t, tblBookTopic bt WHERE bt.TopicID = t.TopicID "
                 "AND bt.BookID = "_s + id + u" ORDER BY t.TopicDescription"_s))
            topics << topic[0].toString();
        QStringList row;
        for (const QVariant &value : book)
            row << value.toString();
        for (const int money : {9, 10}) { // pence always, ten-thousandths when there are any
            if (row[money].endsWith(u"00"_s))
                row[money].chop(2);
        }
        row.insert(2, authors.join(u"; "_s));
        row.insert(3, topics.join(u"; "_s));
        rows << row;
    }
    return rows;
}

const QStringList header{u"Book Number"_s, u"Title"_s, u"Authors"_s, u"Topics"_s, u"Publisher"_s, u"Place"_s,
                         u"Year Published"_s, u"Condition"_s, u"Cover"_s, u"Pages"_s, u"Introduction Pages"_s,
                         u"Price"_s, u"Selling Price"_s, u"Year Purchased"_s, u"Year Sold"_s, u"Illustrated"_s,
                         u"Illustrations"_s, u"Plans"_s, u"Maps"_s, u"First Edition"_s, u"Bibliography"_s, u"Notes"_s};

} // namespace

class TestTransferCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QFile::exists(qEnvironmentVariable("SHELVANE_TOOL")), "SHELVANE_TOOL names no program");
    }

    void pythonReadsEveryBookAndField()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        addAwkwardBook(catalogue.path());
        QTemporaryDir dir;
        const QString csvPath = dir.filePath(u"books.csv"_s);

        const Run exported = runTool({u"export"_s, catalogue.path(), u"--csv"_s, csvPath});
        QCOMPARE(exported.status, 0);
        QVERIFY2(exported.out.startsWith(csvPath + u": 61 books from "_s + catalogue.path() + u" in "_s), qPrintable(exported.out));
        QCOMPARE(exported.err, QString());
        QVERIFY(!contentOf(csvPath).startsWith("\xEF\xBB\xBF"));

        const Run python = runTool({u"-c"_s, readBack, csvPath}, u"python3"_s);
        QVERIFY2(python.status == 0, qPrintable(python.err));
        const QJsonArray rows = QJsonDocument::fromJson(python.out.toUtf8()).array();
        const QList<QStringList> expected = expectedRows(catalogue);
        QCOMPARE(rows.size(), expected.size());
        for (qsizetype i = 0; i < rows.size(); ++i) {
            const QJsonObject row = rows[i].toObject();
            QCOMPARE(row.keys().size(), header.size());
            for (qsizetype c = 0; c < header.size(); ++c)
                QCOMPARE(row[header[c]].toString(), expected[i][c]);
        }
        // The awkward book by name, as a person would look for it.
        const QJsonObject awkward = rows.last().toObject();
        QCOMPARE(awkward[u"Title"_s].toString(), u"Éloïse's \"Journal\", vol. 1; with letters"_s);
        QCOMPARE(awkward[u"Authors"_s].toString(), u"D'Arcy-Ørsted, Éloïse; Le Carré,"_s);
        QCOMPARE(awkward[u"Notes"_s].toString(), u"First line, \"quoted\"\r\nsecond line; d'après\nthird line"_s);
        QCOMPARE(awkward[u"Price"_s].toString(), u"1234.5678"_s);
        QCOMPARE(awkward[u"Year Published"_s].toString(), QString());
        QCOMPARE(awkward[u"Year Purchased"_s].toString(), u"0"_s);
    }

    void exportedBooksComeBackTheSame()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        addAwkwardBook(catalogue.path());
        QTemporaryDir dir;
        const QString csvPath = dir.filePath(u"books.csv"_s);
        const QString copy = dir.filePath(u"QuireshelfCatalog01.mdb"_s);
        QCOMPARE(runTool({u"export"_s, catalogue.path(), u"--csv"_s, csvPath}).status, 0);

        const Run imported = runTool({u"import-csv"_s, csvPath, copy});

        QCOMPARE(imported.status, 0);
        QCOMPARE(imported.err, QString());
        const QStringList lines = imported.out.split(u'\n');
        QCOMPARE(lines[0], copy + u": new catalogue, books from "_s + csvPath + u" (UTF-8, commas)"_s);
        QVERIFY2(lines[1].contains(QRegularExpression(u"^  books imported +61$"_s)), qPrintable(lines[1]));
        QVERIFY2(lines[2].contains(QRegularExpression(u"^  rows skipped +0$"_s)), qPrintable(lines[2]));
        QVERIFY(imported.out.endsWith(copy + u": catalogue is sound\n"_s));
        QCOMPARE(bookLines(copy), bookLines(catalogue.path()));
    }

    void aDryRunWritesNothing()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QTemporaryDir dir;
        const QString csvPath = dir.filePath(u"books.csv"_s);
        writeFile(csvPath, "Title;Author;Price\nNew book;New Author;3\n;Nobody;2\n");
        const QByteArray before = contentOf(catalogue.path());
        const QString newPath = dir.filePath(u"new.mdb"_s);

        for (const QString &target : {catalogue.path(), newPath}) {
            const Run dry = runTool({u"import-csv"_s, csvPath, target, u"--dry-run"_s});
            QCOMPARE(dry.status, 1); // a row would be skipped
            QVERIFY2(dry.out.startsWith(u"line 3: no title; row skipped\ndry run, nothing written: "_s + target), qPrintable(dry.out));
            QVERIFY2(dry.out.contains(QRegularExpression(u"books would be imported +1\n"_s)), qPrintable(dry.out));
            QVERIFY2(dry.out.contains(QRegularExpression(u"new authors +1\n"_s)), qPrintable(dry.out));
        }
        QCOMPARE(contentOf(catalogue.path()), before);
        QVERIFY(!QFileInfo::exists(newPath));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"books.csv"_s});
    }

    void failuresLeaveNoFile_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("error");
        QTest::newRow("export of no catalogue")
            << QStringList{u"export"_s, u"DIR/missing.mdb"_s, u"--csv"_s, u"DIR/out.csv"_s} << 1
            << u"shelvane-catalog: DIR/missing.mdb: Could not find file 'DIR/missing.mdb'.\n"_s;
        QTest::newRow("export over a file")
            << QStringList{u"export"_s, u"CATALOGUE"_s, u"--csv"_s, u"DIR/taken.csv"_s} << 1
            << u"shelvane-catalog: DIR/taken.csv exists already (use --force to replace it)\n"_s;
        QTest::newRow("import of no file")
            << QStringList{u"import-csv"_s, u"DIR/none.csv"_s, u"DIR/new.mdb"_s} << 2
            << u"shelvane-catalog: cannot read DIR/none.csv: No such file or directory\n"_s;
        QTest::newRow("import without titles")
            << QStringList{u"import-csv"_s, u"DIR/taken.csv"_s, u"DIR/new.mdb"_s} << 2
            << u"shelvane-catalog: no column of titles: the first line must name the columns, one of them \"Title\"\n"_s;
    }

    void failuresLeaveNoFile()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        QFETCH(QString, error);
        TestCatalogue catalogue;
        QTemporaryDir dir;
        writeFile(dir.filePath(u"taken.csv"_s), "Name\nx\n");
        const auto placed = [&](QString text) {
            return text.replace(u"CATALOGUE"_s, catalogue.path()).replace(u"DIR"_s, dir.path());
        };
        QStringList placedArguments;
        for (const QString &argument : arguments)
            placedArguments << placed(argument);

        const Run run = runTool(placedArguments);

        QCOMPARE(run.status, status);
        QCOMPARE(run.err, placed(error));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"taken.csv"_s});
        QCOMPARE(contentOf(dir.filePath(u"taken.csv"_s)), QByteArray("Name\nx\n"));
    }

    void helpExplainsEachCommand_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("usage");
        QTest::newRow("export") << u"export"_s << u"Usage: shelvane-catalog export PATH --csv OUT.csv [--force]\n"_s;
        QTest::newRow("import-csv") << u"import-csv"_s << u"Usage: shelvane-catalog import-csv CSV CATALOGUE [--dry-run]\n"_s;
    }

    void helpExplainsEachCommand()
    {
        QFETCH(QString, command);
        QFETCH(QString, usage);
        const Run help = runTool({command, u"--help"_s});
        QCOMPARE(help.status, 0);
        QVERIFY2(help.out.startsWith(usage), qPrintable(help.out));
        const Run overview = runTool({u"--help"_s});
        QVERIFY2(overview.out.contains(u"\n  "_s + command + u' '), qPrintable(overview.out));
    }
};

QTEST_GUILESS_MAIN(TestTransferCommands)
#include "tst_transfercommands.moc"
