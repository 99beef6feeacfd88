// Reading and writing CSV as RFC 4180 has it, and telling the delimiter of a file.
#include "transfer/csvreader.h"
#include "transfer/csvwriter.h"

#include <QTest>

using namespace Qt::StringLiterals;

using Records = QList<QStringList>;

class TestCsvReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsRecords_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("delimiter");
        QTest::addColumn<Records>("records");
        QTest::addColumn<QList<int>>("lines");
        QTest::newRow("plain") << u"a,b\r\nc,d\r\n"_s << u","_s << Records{{u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}} << QList<int>{1, 2};
        QTest::newRow("no line end at the end") << u"a,b\nc,d"_s << u","_s << Records{{u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}} << QList<int>{1, 2};
        QTest::newRow("empty fields") << u",x,\n"_s << u","_s << Records{{u""_s, u"x"_s, u""_s}} << QList<int>{1};
        QTest::newRow("quoted delimiter") << u"\"Austen, Jane\",b\n"_s << u","_s << Records{{u"Austen, Jane"_s, u"b"_s}} << QList<int>{1};
        QTest::newRow("doubled quotes") << u"\"He said \"\"rare\"\"\",x\n"_s << u","_s << Records{{u"He said \"rare\""_s, u"x"_s}} << QList<int>{1};
        QTest::newRow("line breaks kept as written")
            << u"\"one\r\ntwo\nthree\",x\r\nnext,y\r\n"_s << u","_s
            << Records{{u"one\r\ntwo\nthree"_s, u"x"_s}, {u"next"_s, u"y"_s}} << QList<int>{1, 4};
        QTest::newRow("empty lines hold no record") << u"a\n\n\r\nb\n"_s << u","_s << Records{{u"a"_s}, {u"b"_s}} << QList<int>{1, 4};
        QTest::newRow("semicolons") << u"a;\"b;c\",d\n"_s << u";"_s << Records{{u"a"_s, u"b;c,d"_s}} << QList<int>{1};
        QTest::newRow("tabs") << u"a\tb c\n"_s << u"\t"_s << Records{{u"a"_s, u"b c"_s}} << QList<int>{1};
        QTest::newRow("carriage returns alone") << u"a\rb\r"_s << u","_s << Records{{u"a"_s}, {u"b"_s}} << QList<int>{1, 2};
    }

    void readsRecords()
    {
        QFETCH(QString, text);
        QFETCH(QString, delimiter);
        QFETCH(Records, records);
        QFETCH(QList<int>, lines);
        CsvReader reader(text, delimiter.front());
        Records read;
        QList<int> readLines;
        while (!reader.atEnd()) {
            const CsvRecord record = reader.next();
            QVERIFY(!record.unterminated);
            read << record.fields;
            readLines << record.line;
        }
        QCOMPARE(read, records);
        QCOMPARE(readLines, lines);
        QCOMPARE(reader.fractionRead(), 1.0);
    }

    void aQuoteNeverClosedIsTold()
    {
        CsvReader reader(u"a,b\n\"open,c\nd\n"_s, u',');
        QVERIFY(!reader.next().unterminated);
        const CsvRecord broken = reader.next();
        QVERIFY(broken.unterminated);
        QCOMPARE(broken.line, 2);
        QVERIFY(reader.atEnd());
    }

    void detectsTheDelimiter_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("delimiter");
        QTest::newRow("commas") << u"Title,Author,Price\n"_s << u","_s;
        QTest::newRow("semicolons") << u"Title;Author;Price\n1,5;x;y\n"_s << u";"_s;
        QTest::newRow("tabs") << u"Title\tAuthor, Name\tPrice\n"_s << u"\t"_s;
        QTest::newRow("quoted ones do not count") << u"\"a,b,c\";d;e\n"_s << u";"_s;
        QTest::newRow("only the first record counts") << u"Title\na;b;c\n"_s << u","_s;
        QTest::newRow("none: a comma") << u"Title\n"_s << u","_s;
    }

    void detectsTheDelimiter()
    {
        QFETCH(QString, text);
        QFETCH(QString, delimiter);
        QCOMPARE(CsvReader::detectDelimiter(text), delimiter.front());
    }

    void writesFields_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("written");
        QTest::newRow("plain") << u"Emma"_s << u"Emma"_s;
        QTest::newRow("empty") << u""_s << u""_s;
        QTest::newRow("comma") << u"Austen, Jane"_s << u"\"Austen, Jane\""_s;
        QTest::newRow("quote") << u"a \"b\""_s << u"\"a \"\"b\"\"\""_s;
        QTest::newRow("line break") << u"a\nb"_s << u"\"a\nb\""_s;
        QTest::newRow("carriage return") << u"a\rb"_s << u"\"a\rb\""_s;
        QTest::newRow("leading space") << u" a"_s << u"\" a\""_s;
        QTest::newRow("apostrophe and semicolon") << u"d'Urbervilles; x"_s << u"d'Urbervilles; x"_s;
    }

    void writesFields()
    {
        QFETCH(QString, value);
        QFETCH(QString, written);
        QCOMPARE(CsvWriter::field(value), written);
    }

    void whatIsWrittenReadsBackTheSame()
    {
        const QStringList fields{u"a,b"_s, u"\"q\""_s, u"line\r\nbreak"_s, u""_s, u" x "_s, u"Éloïse"_s};
        const QString text = CsvWriter::record(fields) + CsvWriter::record({u"end"_s});
        QVERIFY(text.endsWith(u"\r\n"_s));
        CsvReader reader(text, u',');
        QCOMPARE(reader.next().fields, fields);
        QCOMPARE(reader.next().fields, QStringList{u"end"_s});
        QVERIFY(reader.atEnd());
    }
};

QTEST_GUILESS_MAIN(TestCsvReader)
#include "tst_csvreader.moc"
