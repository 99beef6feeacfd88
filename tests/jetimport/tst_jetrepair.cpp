// The import of an older Jet catalogue whose rows break the new catalogue's rules: rows
// repaired or stopping the import, missing tables and bad files refused, an existing
// catalogue replaced only when asked.
#include "catalogue/cataloguefile.h"
#include "jetfixtures.h"
#include "jetimport/catalogueimport.h"
#include "jetimport/jetfile.h"

#include <QDir>
#include <QHash>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// The fixture's tables with a few rows added or changed, as an older catalogue that broke
// the rules might hold them.
class EditedTables : public JetTables
{
public:
    explicit EditedTables(const JetFile &file) : m_file(file) {}

    void add(const QString &table, const JetRow &row) { m_added[table] << row; }
    void edit(const QString &table, std::function<void(JetRow &)> change) { m_edits[table] = std::move(change); }
    void empty(const QString &table) { m_emptied << table; }
    void leaveOut(const QString &table) { m_left << table; }

    bool hasTable(const QString &name) const override { return !m_left.contains(name) && m_file.hasTable(name); }
    QList<JetColumn> columns(const QString &table) const override { return m_file.columns(table); }
    qint64 rowCount(const QString &table) const override
    {
        return (m_emptied.contains(table) ? 0 : m_file.rowCount(table)) + m_added.value(table).size();
    }
    void readRows(const QString &table, const std::function<void(const JetRow &)> &handle) const override
    {
        if (!m_emptied.contains(table)) {
            m_file.readRows(table, [&](const JetRow &row) {
                JetRow edited = row;
                if (m_edits.contains(table))
                    m_edits[table](edited);
                handle(edited);
            });
        }
        for (const JetRow &row : m_added.value(table))
            handle(row);
    }

private:
    const JetFile &m_file;
    QHash<QString, QList<JetRow>> m_added;
    QHash<QString, std::function<void(JetRow &)>> m_edits;
    QSet<QString> m_emptied;
    QSet<QString> m_left;
};

JetRow firstRow(const JetFile &file, const QString &table)
{
    JetRow first;
    file.readRows(table, [&](const JetRow &row) {
        if (first.isEmpty())
            first = row;
    });
    return first;
}

// A book like the fixture's first, under another number and with another publisher.
JetRow bookWithPublisher(const JetFile &file, qint64 id, const JetValue &publisher)
{
    JetRow book = firstRow(file, u"tblBook"_s);
    book[0] = id;
    book[6] = publisher;
    return book;
}

QStringList filesIn(const QTemporaryDir &dir)
{
    return QDir(dir.path()).entryList(QDir::Files | QDir::Hidden);
}

// The one-line error an import ends with; empty when it went through.
QString errorOf(const std::function<void()> &import)
{
    try {
        import();
    } catch (const CatalogueFileError &e) {
        return e.message();
    }
    return {};
}

QString importError(const QString &jetPath, const QString &path)
{
    return errorOf([&] { CatalogueImport::run(jetPath, path); });
}

} // namespace

class TestJetRepair : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void repairsRowsThatBreakTheRules()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        const JetRow link = firstRow(jet, u"tblBookAuthor"_s);
        const qint64 linkedBook = std::get<qint64>(link[0]);
        const qint64 linkedAuthor = std::get<qint64>(link[1]);
        EditedTables tables(jet);
        tables.add(u"tblBook"_s, bookWithPublisher(jet, 500, qint64(999)));
        tables.add(u"tblBook"_s, bookWithPublisher(jet, 501, JetValue()));
        tables.add(u"tblBookAuthor"_s, {qint64(999), qint64(1)});
        tables.add(u"tblBookAuthor"_s, {qint64(1), qint64(999)});
        tables.add(u"tblBookAuthor"_s, link);
        tables.add(u"tblBookTopic"_s, {qint64(2), JetValue()});
        QStringList reported;
        CatalogueImport::Options options;
        options.problem = [&](const QString &problem) { reported << problem; };

        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);
        const CatalogueImport::Summary summary = CatalogueImport::run(tables, u"old.mdb"_s, path, options);

        const QStringList expected{
            u"tblBook: BookID 500 names publisher 999, which does not exist; it is given publisher UnKnown (PublisherID 1)"_s,
            u"tblBook: BookID 501 names no publisher; it is given publisher UnKnown (PublisherID 1)"_s,
            u"tblBookAuthor: BookID 999, AuthorID 1: there is no such book; the link is left out"_s,
            u"tblBookAuthor: BookID 1, AuthorID 999: there is no such author; the link is left out"_s,
            u"tblBookAuthor: BookID %1, AuthorID %2: linked twice; the link is kept once"_s.arg(linkedBook).arg(linkedAuthor),
            u"tblBookTopic: BookID 2, TopicID NULL: there is no such topic; the link is left out"_s,
        };
        QCOMPARE(reported, expected);
        QCOMPARE(summary.problems, expected);
        QCOMPARE(summary.checkProblems, QStringList());
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblBook"_s).toInt(), 122);
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblBook WHERE BookID IN (500, 501) AND BookPublisherId = 1"_s).toInt(), 2);
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblBookAuthor"_s).toInt(), 213);
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblBookTopic"_s).toInt(), 159);
    }

    void addsTheUnknownPublisherWhenThereIsNone()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        EditedTables tables(jet);
        tables.edit(u"tblPublisher"_s, [](JetRow &row) {
            if (std::get<QString>(row[1]) == u"UnKnown"_s)
                row[1] = QString(u"Not known"_s);
        });
        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);

        const CatalogueImport::Summary summary = CatalogueImport::run(tables, u"old.mdb"_s, path);

        QCOMPARE(summary.problems, QStringList{u"tblPublisher: there is no publisher named UnKnown; one is added"_s});
        QCOMPARE(summary.checkProblems, QStringList());
        QCOMPARE(summary.tables.first().rows, 13);
        QCOMPARE(scalar(path, u"SELECT PublisherID FROM tblPublisher WHERE PublisherName = 'UnKnown'"_s).toInt(), 13);
    }

    void repairsMissingPricesAndOwnerRows()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        EditedTables tables(jet);
        tables.edit(u"tblBook"_s, [](JetRow &book) {
            if (std::get<qint64>(book[0]) == 3)
                book[7] = JetValue();
        });
        tables.add(u"tblCatalogueControl"_s, firstRow(jet, u"tblCatalogueControl"_s));
        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);

        const CatalogueImport::Summary summary = CatalogueImport::run(tables, u"old.mdb"_s, path);

        QCOMPARE(summary.problems,
                 (QStringList{u"tblBook: BookID 3 has no price; it is given 0"_s,
                              u"tblCatalogueControl: row 2 is one more than the single row of the owner's details; it is left out"_s}));
        QCOMPARE(summary.checkProblems, QStringList());
        QCOMPARE(scalar(path, u"SELECT BookPrice FROM tblBook WHERE BookID = 3"_s).toDouble(), 0.0);
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblCatalogueControl"_s).toInt(), 1);
    }

    void writesEmptyOwnerDetailsWhenThereAreNone()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        EditedTables tables(jet);
        tables.empty(u"tblCatalogueControl"_s);
        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);

        const CatalogueImport::Summary summary = CatalogueImport::run(tables, u"old.mdb"_s, path);

        QCOMPARE(summary.problems, QStringList{u"tblCatalogueControl: there are no owner's details; empty ones are written"_s});
        QCOMPARE(summary.checkProblems, QStringList());
        QCOMPARE(scalar(path, u"SELECT CatalogueName || Email FROM tblCatalogueControl"_s).toString(), u""_s);
    }

    void aMissingTableIsNamed()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        EditedTables tables(jet);
        tables.leaveOut(u"tblBookTopic"_s);
        QTemporaryDir dir;

        QCOMPARE(errorOf([&] { CatalogueImport::run(tables, u"old.mdb"_s, dir.filePath(u"new.mdb"_s)); }),
                 u"old.mdb is not a whole catalogue: it has no table tblBookTopic"_s);
        QCOMPARE(filesIn(dir), QStringList());
    }

    void stopsAtTheFirstProblemWhenAsked()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        EditedTables tables(jet);
        tables.add(u"tblBook"_s, bookWithPublisher(jet, 500, qint64(999)));
        tables.add(u"tblBookAuthor"_s, {qint64(999), qint64(1)});
        CatalogueImport::Options options;
        options.onProblem = CatalogueImport::OnProblem::Stop;
        QStringList reported;
        options.problem = [&](const QString &problem) { reported << problem; };
        QTemporaryDir dir;

        QCOMPARE(errorOf([&] { CatalogueImport::run(tables, u"old.mdb"_s, dir.filePath(u"new.mdb"_s), options); }),
                 u"the import stopped at a problem of old.mdb; nothing was written"_s);
        QCOMPARE(reported.size(), 1);
        QVERIFY(reported[0].startsWith(u"tblBook: BookID 500 "_s));
        QCOMPARE(filesIn(dir), QStringList());
    }

    void aRepeatedKeyStopsTheImport()
    {
        const JetFile jet(jetFixture(catalogueFixture));
        EditedTables tables(jet);
        tables.add(u"tblAuthor"_s, firstRow(jet, u"tblAuthor"_s));
        QTemporaryDir dir;

        QCOMPARE(errorOf([&] { CatalogueImport::run(tables, u"old.mdb"_s, dir.filePath(u"new.mdb"_s)); }),
                 u"old.mdb: two rows of tblAuthor have AuthorID 1"_s);
        QCOMPARE(filesIn(dir), QStringList());
    }

    void badFilesEndWithAnErrorAndNoFile_data()
    {
        QTest::addColumn<QString>("fixture");
        QTest::addColumn<qint64>("size");
        QTest::addColumn<QString>("error");
        QTest::newRow("cut short") << catalogueFixture << qint64(70 * 4096)
                                   << u"old.mdb cannot be read: table tblBook holds 77 of its 120 rows: the file is damaged or cut short"_s;
        QTest::newRow("not Jet") << u"README.md"_s << qint64(-1) << u"old.mdb is not a Jet database"_s;
        QTest::newRow("Jet without the catalogue's tables")
            << u"access2000-types.mdb"_s << qint64(-1) << u"old.mdb is not a catalogue: it has none of a catalogue's tables"_s;
    }

    void badFilesEndWithAnErrorAndNoFile()
    {
        QFETCH(QString, fixture);
        QFETCH(qint64, size);
        QFETCH(QString, error);
        QTemporaryDir input;
        const QString old = jetFixtureCopy(input, fixture, size);
        QVERIFY(!old.isEmpty());
        QTemporaryDir output;

        QCOMPARE(importError(old, output.filePath(u"new.mdb"_s)), input.path() + u'/' + error);
        QCOMPARE(filesIn(output), QStringList());
    }

    void anExistingCatalogueIsReplacedOnlyWhenAsked()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"new.mdb"_s);
        CatalogueFile::create(path, false);

        QCOMPARE(importError(jetFixture(catalogueFixture), path), path + u" exists already (use --force to replace it)"_s);
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblAuthor"_s).toInt(), 1);

        CatalogueImport::Options options;
        options.overwrite = true;
        CatalogueImport::run(jetFixture(catalogueFixture), path, options);
        QCOMPARE(scalar(path, u"SELECT count(*) FROM tblAuthor"_s).toInt(), 40);
        QCOMPARE(filesIn(dir), QStringList{u"new.mdb"_s});
    }
};

QTEST_GUILESS_MAIN(TestJetRepair)
#include "tst_jetrepair.moc"
