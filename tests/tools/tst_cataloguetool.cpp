// shelvane-catalog as a person runs it: exit statuses, messages, files left behind.
#include "catalogue/scopeddatabase.h"
#include "jetfixtures.h"
#include "snapshot.h"
#include "support/testcatalogue.h"
#include "support/toolrun.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Read through a connection of its own, opened after the tool ran.
int bookCount(const QString &path)
{
    ScopedDatabase file(path, ScopedDatabase::Mode::ReadOnly);
    QSqlQuery query(file.db());
    if (!query.exec(u"SELECT count(*) FROM tblBook"_s) || !query.next())
        return -1;
    return query.value(0).toInt();
}

QString firstLine(const QString &text)
{
    return text.section(u'\n', 0, 0);
}

} // namespace

class TestCatalogueTool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QFile::exists(qEnvironmentVariable("SHELVANE_TOOL")), "SHELVANE_TOOL names no program");
    }

    void makesEachKindOfCatalogue_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("said");
        QTest::addColumn<int>("books");
        QTest::newRow("create") << QStringList{u"create"_s} << u": empty catalogue made"_s << 1;
        QTest::newRow("sample") << QStringList{u"sample"_s} << u": sample collection made"_s << 60;
        QTest::newRow("generate") << QStringList{u"generate"_s, u"--books"_s, u"200"_s}
                                  << u": 200 books made in "_s << 200;
    }

    void makesEachKindOfCatalogue()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, said);
        QFETCH(int, books);
        QTemporaryDir dir;
        const QString path = dir.filePath(u"QuireshelfCatalog01.mdb"_s);

        const Run made = runTool(arguments << path);
        QCOMPARE(made.status, 0);
        QVERIFY2(made.out.startsWith(path + said), qPrintable(made.out));
        QCOMPARE(made.err, QString()); // no progress shown when stderr is no terminal

        const Run checked = runTool({u"check"_s, path});
        QCOMPARE(checked.status, 0);
        QCOMPARE(checked.out, path + u": catalogue is sound\n"_s);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"QuireshelfCatalog01.mdb"_s});

        QCOMPARE(bookCount(path), books);
    }

    void existingFileIsReplacedOnlyWithForce()
    {
        TestCatalogue catalogue;
        const QByteArray before = fileFingerprint(catalogue.path());

        const Run refused = runTool({u"sample"_s, catalogue.path()});
        QCOMPARE(refused.status, 1);
        QCOMPARE(refused.err, u"shelvane-catalog: %1 exists already (use --force to replace it)\n"_s
                                  .arg(catalogue.path()));
        QCOMPARE(fileFingerprint(catalogue.path()), before);

        const Run replaced = runTool({u"sample"_s, u"--force"_s, catalogue.path()});
        QCOMPARE(replaced.status, 0);
        QCOMPARE(bookCount(catalogue.path()), 60); // the test's own connection still sees the old file
    }

    void missingFolderFailsWithoutAFile()
    {
        QTemporaryDir dir;
        const QString folder = dir.filePath(u"no such folder"_s);
        const QString path = folder + u"/QuireshelfCatalog01.mdb"_s;

        const Run run = runTool({u"create"_s, path});

        QCOMPARE(run.status, 1);
        QCOMPARE(run.err, u"shelvane-catalog: the folder %1 does not exist\n"_s.arg(QDir::toNativeSeparators(folder)));
        QVERIFY(!QFile::exists(path));
    }

    void fullDiskFailsWithoutAFile_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        QTest::newRow("generate") << QStringList{u"generate"_s, u"--books"_s, u"30000"_s} << 1;
        QTest::newRow("import") << QStringList{u"import"_s, jetFixture(u"QuireshelfCatalog01.mdb"_s)} << 2;
    }

    void fullDiskFailsWithoutAFile()
    {
#ifdef Q_OS_UNIX
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        // A file size limit makes every write past 50 kB fail, as a full disk would.
        QTemporaryDir dir;
        const QString path = dir.filePath(u"QuireshelfCatalog01.mdb"_s);
        const Run run = runTool(QStringList{u"-c"_s, u"trap '' XFSZ; ulimit -f 100; exec \"$0\" \"$@\""_s,
                                            qEnvironmentVariable("SHELVANE_TOOL")}
                                    + arguments + QStringList{path},
                                u"/bin/sh"_s);

        QCOMPARE(run.status, status);
        QVERIFY2(run.err.startsWith(u"shelvane-catalog: cannot make %1: "_s.arg(path)), qPrintable(run.err));
        QCOMPARE(run.err.count(u'\n'), 1);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList());
#else
        QSKIP("file size limits are a Unix feature");
#endif
    }

    void checkReportsProblemsWithStatus1()
    {
        TestCatalogue catalogue;
        QSqlQuery(catalogue.db()).exec(u"DROP VIEW qryReport03"_s);

        const Run run = runTool({u"check"_s, catalogue.path()});

        QCOMPARE(run.status, 1);
        QCOMPARE(run.out, u"qryReport03: the view is missing\n"_s);
    }

    void checkOfPlainTextIsAProblemNotACrash()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"notes.txt"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("not a catalogue\n");
        file.close();

        const Run run = runTool({u"check"_s, path});

        QCOMPARE(run.status, 1);
        QCOMPARE(run.out, u"cannot be read as an SQLite database: file is not a database\n"_s);
    }

    void importBringsAnOldCatalogueAcross()
    {
        QTemporaryDir dir;
        const QString old = jetFixture(u"QuireshelfCatalog01.mdb"_s);
        const QString path = dir.filePath(u"QuireshelfCatalog01.mdb"_s);

        const Run run = runTool({u"import"_s, old, path});

        QCOMPARE(run.status, 0);
        QCOMPARE(run.err, QString()); // no progress shown when stderr is no terminal
        const QStringList lines = run.out.split(u'\n');
        QCOMPARE(lines.mid(0, 12), (QStringList{
            path + u": imported from "_s + old,
            u"  tblPublisher                12 rows"_s,
            u"  tblAuthor                   40 rows"_s,
            u"  tblTopic                    15 rows"_s,
            u"  tblBook                    120 rows"_s,
            u"  tblBookAuthor              213 rows"_s,
            u"  tblBookTopic               159 rows"_s,
            u"  tblCatalogueControl          1 row"_s,
            u"  tblCriteriaHits              0 rows"_s,
            u"  tblLabelTable                0 rows"_s,
            u"  problems                     0"_s,
            lines.value(11)}));
        QVERIFY2(QRegularExpression(u"^  time +\\d+\\.\\d\\d s \\(\\d+ rows a second\\)$"_s).match(lines.value(11)).hasMatch(),
                 qPrintable(lines.value(11)));
        QCOMPARE(lines.mid(12), (QStringList{path + u": catalogue is sound"_s, QString()}));
        QCOMPARE(bookCount(path), 120);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"QuireshelfCatalog01.mdb"_s});
    }

    void importFailuresGiveStatus2AndNoFile_data()
    {
        QTest::addColumn<QString>("old");
        QTest::addColumn<QString>("error");
        QTest::newRow("not Jet") << jetFixture(u"README.md"_s) << u"%1 is not a Jet database"_s;
        QTest::newRow("no catalogue") << jetFixture(u"access2003-unicode.mdb"_s)
                                      << u"%1 is not a catalogue: it has none of a catalogue's tables"_s;
        QTest::newRow("missing") << jetFixture(u"none.mdb"_s) << u"%1 does not exist"_s;
    }

    void importFailuresGiveStatus2AndNoFile()
    {
        QFETCH(QString, old);
        QFETCH(QString, error);
        QTemporaryDir dir;

        const Run run = runTool({u"import"_s, old, dir.filePath(u"new.mdb"_s)});

        QCOMPARE(run.status, 2);
        QCOMPARE(run.err, u"shelvane-catalog: "_s + error.arg(old) + u'\n');
        QCOMPARE(run.out, QString());
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList());
    }

    void importReplacesAFileOnlyWithForce()
    {
        TestCatalogue catalogue;
        const QByteArray before = fileFingerprint(catalogue.path());
        const QString old = jetFixture(u"QuireshelfCatalog01.mdb"_s);

        const Run refused = runTool({u"import"_s, old, catalogue.path()});
        QCOMPARE(refused.status, 2);
        QCOMPARE(refused.err, u"shelvane-catalog: %1 exists already (use --force to replace it)\n"_s.arg(catalogue.path()));
        QCOMPARE(fileFingerprint(catalogue.path()), before);

        const Run replaced = runTool({u"import"_s, u"--force"_s, old, catalogue.path()});
        QCOMPARE(replaced.status, 0);
        QCOMPARE(bookCount(catalogue.path()), 120);
    }

    void badCommandLinesGetUsageAndStatus2_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("usage");
        const QString programUsage = u"Usage: shelvane-catalog COMMAND [OPTIONS] PATH"_s;
        const QString generateUsage = u"Usage: shelvane-catalog generate PATH --books N [--seed S] [--force]"_s;
        QTest::newRow("no command") << QStringList() << u"no command given"_s << programUsage;
        QTest::newRow("unknown command") << QStringList{u"frob"_s, u"x.mdb"_s}
                                         << u"unknown command \"frob\""_s << programUsage;
        QTest::newRow("unknown option") << QStringList{u"create"_s, u"--fast"_s, u"x.mdb"_s}
                                        << u"unknown option --fast"_s << u"Usage: shelvane-catalog create PATH [--force]"_s;
        QTest::newRow("no path") << QStringList{u"check"_s} << u"no PATH given"_s << u"Usage: shelvane-catalog check PATH"_s;
        QTest::newRow("two paths") << QStringList{u"check"_s, u"a.mdb"_s, u"b.mdb"_s}
                                   << u"unexpected argument \"b.mdb\""_s << u"Usage: shelvane-catalog check PATH"_s;
        QTest::newRow("no --books") << QStringList{u"generate"_s, u"x.mdb"_s} << u"--books N is required"_s << generateUsage;
        const QString importUsage = u"Usage: shelvane-catalog import OLD NEW [--strict] [--force]"_s;
        QTest::newRow("import without NEW") << QStringList{u"import"_s, u"old.mdb"_s} << u"no NEW given"_s << importUsage;
        QTest::newRow("import of three") << QStringList{u"import"_s, u"a.mdb"_s, u"b.mdb"_s, u"c.mdb"_s}
                                         << u"unexpected argument \"c.mdb\""_s << importUsage;
        QTest::newRow("restore without CATALOGUE")
            << QStringList{u"restore"_s, u"backup.mdb"_s} << u"no CATALOGUE given"_s
            << u"Usage: shelvane-catalog restore BACKUP CATALOGUE"_s;
        QTest::newRow("backup --to without folder")
            << QStringList{u"backup"_s, u"x.mdb"_s, u"--to"_s} << u"--to needs a value"_s
            << u"Usage: shelvane-catalog backup CATALOGUE [--to FOLDER]"_s;
        for (const QString &books : {u"0"_s, u"40000"_s, u"abc"_s}) {
            QTest::addRow("--books %s", qPrintable(books))
                << QStringList{u"generate"_s, u"x.mdb"_s, u"--books"_s, books}
                << u"--books must be a whole number from 1 to 32767, not \"%1\""_s.arg(books) << generateUsage;
        }
        QTest::newRow("--books without number") << QStringList{u"generate"_s, u"x.mdb"_s, u"--books"_s}
                                                << u"--books needs a value"_s << generateUsage;
        QTest::newRow("--seed not a number") << QStringList{u"generate"_s, u"x.mdb"_s, u"--books=5"_s, u"--seed=x"_s}
            << u"--seed must be a whole number from 0 to 9223372036854775807, not \"x\""_s << generateUsage;
    }

    void badCommandLinesGetUsageAndStatus2()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, message);
        QFETCH(QString, usage);
        const Run run = runTool(arguments);

        QCOMPARE(run.status, 2);
        QCOMPARE(firstLine(run.err), u"shelvane-catalog: "_s + message);
        QVERIFY2(run.err.contains(u"\n\n"_s + usage + u'\n'), qPrintable(run.err));
        QCOMPARE(run.out, QString());
    }

    void helpIsThereForEveryCommand_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("usage");
        QTest::newRow("program") << QStringList{u"--help"_s} << u"Usage: shelvane-catalog COMMAND [OPTIONS] PATH"_s;
        QTest::newRow("create") << QStringList{u"create"_s, u"--help"_s} << u"Usage: shelvane-catalog create PATH [--force]"_s;
        QTest::newRow("sample") << QStringList{u"sample"_s, u"--help"_s} << u"Usage: shelvane-catalog sample PATH [--force]"_s;
        QTest::newRow("generate") << QStringList{u"generate"_s, u"--help"_s}
                                  << u"Usage: shelvane-catalog generate PATH --books N [--seed S] [--force]"_s;
        QTest::newRow("check") << QStringList{u"check"_s, u"--help"_s} << u"Usage: shelvane-catalog check PATH"_s;
        QTest::newRow("import") << QStringList{u"import"_s, u"--help"_s}
                                << u"Usage: shelvane-catalog import OLD NEW [--strict] [--force]"_s;
        QTest::newRow("report") << QStringList{u"report"_s, u"--help"_s}
                                << u"Usage: shelvane-catalog report PATH --by REPORT --pdf OUT.pdf"_s;
        QTest::newRow("export") << QStringList{u"export"_s, u"--help"_s}
                                << u"Usage: shelvane-catalog export PATH --csv OUT.csv [--force]"_s;
        QTest::newRow("import-csv") << QStringList{u"import-csv"_s, u"--help"_s}
                                    << u"Usage: shelvane-catalog import-csv CSV CATALOGUE [--dry-run]"_s;
        QTest::newRow("backup") << QStringList{u"backup"_s, u"--help"_s}
                                << u"Usage: shelvane-catalog backup CATALOGUE [--to FOLDER]"_s;
        QTest::newRow("restore") << QStringList{u"restore"_s, u"--help"_s}
                                 << u"Usage: shelvane-catalog restore BACKUP CATALOGUE"_s;
    }

    void helpIsThereForEveryCommand()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, usage);

        const Run run = runTool(arguments);

        QCOMPARE(run.status, 0);
        QCOMPARE(firstLine(run.out), usage);
        QVERIFY(run.out.contains(u"--help"_s));
        // Every line ends, the last one too, and no blank line trails.
        QVERIFY2(run.out.endsWith(u'\n') && !run.out.endsWith(u"\n\n"_s), qPrintable(run.out.right(40)));
        QCOMPARE(run.err, QString());
    }
};

QTEST_GUILESS_MAIN(TestCatalogueTool)
#include "tst_cataloguetool.moc"
