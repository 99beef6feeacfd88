// Reading Jet files: every basic column type, compressed Unicode text, and files that are
// damaged, cut short or not Jet at all.
#include "catalogue/cataloguefile.h"
#include "jetfixtures.h"
#include "jetimport/jetfile.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QList<JetRow> allRows(const JetFile &file, const QString &table)
{
    QList<JetRow> rows;
    file.readRows(table, [&](const JetRow &row) { rows << row; });
    return rows;
}

QString errorOpeningAndReading(const QString &path)
{
    try {
        const JetFile file(path);
        file.readRows(u"tblBook"_s, [](const JetRow &) {});
    } catch (const CatalogueFileError &e) {
        return e.message();
    }
    return {};
}

} // namespace

class TestJetFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEveryBasicType_data()
    {
        QTest::addColumn<QString>("fixture");
        QTest::newRow("Jet 4 written by the 2000 version") << u"access2000-types.mdb"_s;
        QTest::newRow("Jet 4 written by the 2003 version") << u"access2003-types.mdb"_s;
    }

    void readsEveryBasicType()
    {
        QFETCH(QString, fixture);
        const JetFile file(jetFixture(fixture));
        using T = JetColumn::Type;
        QList<T> types;
        QStringList names;
        for (const JetColumn &column : file.columns(u"Table1"_s)) {
            names << column.name;
            types << column.type;
        }
        QCOMPARE(names, (QStringList{u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"F"_s, u"G"_s, u"H"_s, u"I"_s}));
        QCOMPARE(types, (QList<T>{T::Text, T::Text, T::Byte, T::Integer, T::LongInteger, T::Double, T::DateTime,
                                  T::Currency, T::Boolean}));

        const QList<JetRow> rows = allRows(file, u"Table1"_s);
        QCOMPARE(rows.size(), 2);
        QCOMPARE(file.rowCount(u"Table1"_s), 2);
        const JetRow first{QString(u"abcdefg"_s), QString(u"hijklmnop"_s), qint64(2), qint64(222), qint64(333333333),
                           444.555, QDateTime(QDate(1974, 9, 21), QTime(0, 0)), JetCurrency{35000}, true};
        const JetRow second{QString(u"a"_s), QString(u"b"_s), qint64(0), qint64(0), qint64(0),
                            0.0, QDateTime(QDate(1981, 12, 12), QTime(0, 0)), JetCurrency{0}, false};
        QVERIFY(rows[0] == first);
        QVERIFY(rows[1] == second);
        QCOMPARE(std::get<JetCurrency>(rows[0][7]).toString(), u"3.5000"_s);
    }

    void compressedUnicodeKeepsItsLetters()
    {
        const JetFile file(jetFixture(u"access2003-unicode.mdb"_s));
        QStringList texts;
        for (const JetRow &row : allRows(file, u"Table"_s)) {
            QCOMPARE(std::get<qint64>(row[0]), texts.size() + 1);
            texts << std::get<QString>(row[1]);
        }
        QCOMPARE(texts.size(), 8);
        QCOMPARE(texts.mid(0, 7), (QStringList{u"only ascii chars"_s, u"ääkkösiä"_s, u"Мир"_s,
                                               // oxia accents, not their tonos look-alikes
                                               u"\u03F0\u03B1\u1F76 \u03C4\u1F79\u03C4' \u1F10\u03B3\u1F7C \u039A\u1F7B\u03F0\u03BB\u03C9\u03C0\u03B1"_s, u"漢字仮名交じり文"_s,
                                               u"3L9\u001D52\u0002_AB(\u00A5\u0005!!V"_s, u"ümlaut"_s}));
        // Every character of Latin-1 but the NUL, control characters included.
        QString latin1;
        for (char16_t c = 0x01; c <= 0xff; ++c)
            latin1 += QChar(c);
        QCOMPARE(texts[7], latin1);
    }

    void negativeCurrencyIsWrittenExactly()
    {
        QCOMPARE(JetCurrency{-123456789}.toString(), u"-12345.6789"_s);
        QCOMPARE(JetCurrency{5}.toString(), u"0.0005"_s);
        QCOMPARE(JetCurrency{std::numeric_limits<qint64>::min()}.toString(), u"-922337203685477.5808"_s);
    }

    void listsItsOwnTablesOnly()
    {
        const JetFile file(jetFixture(u"QuireshelfCatalog01.mdb"_s));
        QCOMPARE(file.tableNames(), (QStringList{u"tblBook"_s, u"tblAuthor"_s, u"tblTopic"_s, u"tblPublisher"_s,
                                                 u"tblBookAuthor"_s, u"tblBookTopic"_s, u"tblCriteriaHits"_s,
                                                 u"tblCatalogueControl"_s, u"tblLabelTable"_s}));
        QVERIFY(file.hasTable(u"TBLBOOK"_s));
        QVERIFY(!file.hasTable(u"MSysObjects"_s));
    }

    void badFilesGiveOneLineErrors_data()
    {
        QTest::addColumn<qint64>("size");
        QTest::addColumn<QString>("error");
        QTest::newRow("cut inside a page") << qint64(100000) << u"old.mdb cannot be read: the file is cut short"_s;
        QTest::newRow("cut before the list of tables") << qint64(8192)
                                                        << u"old.mdb cannot be read: its list of tables is damaged"_s;
        QTest::newRow("cut inside the books")
            << qint64(70 * 4096)
            << u"old.mdb cannot be read: table tblBook holds 77 of its 120 rows: the file is damaged or cut short"_s;
    }

    void badFilesGiveOneLineErrors()
    {
        QFETCH(qint64, size);
        QFETCH(QString, error);
        QTemporaryDir dir;
        const QString path = jetFixtureCopy(dir, u"QuireshelfCatalog01.mdb"_s, size);
        QVERIFY(!path.isEmpty());
        QCOMPARE(errorOpeningAndReading(path), dir.path() + u'/' + error);
    }

    // libmdb trusts a table's definition, and read through null pointers where a damaged
    // one gave no columns or no page map; such a table is refused in one line instead.
    void damagedTableDefinitionsGiveOneLineErrors_data()
    {
        QTest::addColumn<int>("page");
        QTest::addColumn<int>("byte");
        QTest::addColumn<QString>("error");
        const QString books = u"old.mdb cannot be read: table tblBook is damaged"_s;
        QTest::newRow("books: column count") << 24 << 46 << books;
        QTest::newRow("books: index count") << 24 << 52 << books;
        QTest::newRow("books: page map") << 24 << 55 << books;
        QTest::newRow("list of tables: page map") << 2 << 55 << u"old.mdb cannot be read: its list of tables is damaged"_s;
    }

    void damagedTableDefinitionsGiveOneLineErrors()
    {
        QFETCH(int, page);
        QFETCH(int, byte);
        QFETCH(QString, error);
        QTemporaryDir dir;
        const QString path = jetFixtureCopy(dir, u"QuireshelfCatalog01.mdb"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        const qint64 at = qint64(page) * 4096 + byte;
        QVERIFY(file.seek(at));
        const char was = file.read(1).at(0);
        QVERIFY(file.seek(at) && file.putChar(char(was + 0x41)));
        file.close();
        QCOMPARE(errorOpeningAndReading(path), dir.path() + u'/' + error);
    }

    void otherFilesAreRefused()
    {
        QTemporaryDir dir;
        const QString text = dir.filePath(u"notes.mdb"_s);
        QFile file(text);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("not a database\n");
        file.close();
        QCOMPARE(errorOpeningAndReading(text), text + u" is not a Jet database"_s);
        QCOMPARE(errorOpeningAndReading(dir.filePath(u"none.mdb"_s)), dir.filePath(u"none.mdb"_s) + u" does not exist"_s);
        QCOMPARE(errorOpeningAndReading(dir.path()), dir.path() + u" is a folder"_s);
    }
};

QTEST_GUILESS_MAIN(TestJetFile)
#include "tst_jetfile.moc"
