// The program's own folder: beside the program when it can write there, otherwise in the
// user's documents, where a first start finds an empty catalogue; and the files that come
// with the program, found beside it or in the installed data folder.
#include "app/programfolder.h"
#include "support/immutablefolder.h"
#include "support/testmain.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestProgramFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void writableFolderIsTheProgramFolder();
    void readOnlyFolderGivesTheDocumentsFolder();
    void firstStartCopiesTheTemplate();
    void existingCatalogueIsKept();
    void missingTemplateMakesNothing();
    void helpFileBesideTheProgram();
    void installedFileInTheDataFolder();

private:
    std::unique_ptr<QTemporaryDir> m_temporary;
    QString m_program;
    QString m_documents;
    QString m_template;
};

void TestProgramFolder::init()
{
    m_temporary = std::make_unique<QTemporaryDir>();
    QVERIFY(m_temporary->isValid());
    const QDir root(m_temporary->path());
    QVERIFY(root.mkpath(u"bin"_s));
    QVERIFY(root.mkpath(u"Documents"_s));
    m_program = root.filePath(u"bin"_s);
    m_documents = root.filePath(u"Documents"_s);
    m_template = root.filePath(u"EmptyCatalogue.mdb"_s);
    writeFile(m_template, "empty catalogue");
}

void TestProgramFolder::writableFolderIsTheProgramFolder()
{
    QCOMPARE(ProgramFolderFor(m_program, m_documents), m_program);
    QVERIFY2(QDir(m_program).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             "the check for a writable folder leaves nothing behind");
}

void TestProgramFolder::readOnlyFolderGivesTheDocumentsFolder()
{
    const ImmutableFolder locked(m_program);
    if (!locked.isImmutable())
        QSKIP(qPrintable(u"the program folder cannot be made unwritable: "_s + locked.problem()));
    QCOMPARE(ProgramFolderFor(m_program, m_documents), m_documents + u"/Shelvane"_s);
}

void TestProgramFolder::firstStartCopiesTheTemplate()
{
    const QString folder = m_documents + u"/Shelvane"_s;
    ProvideFirstCatalogue(folder, m_template);
    const QString catalogue = folder + u"/QuireshelfCatalog01.mdb"_s;
    QCOMPARE(contentOf(catalogue), QByteArray("empty catalogue"));
    QVERIFY(QFile::permissions(catalogue) & QFile::WriteOwner);
}

void TestProgramFolder::existingCatalogueIsKept()
{
    const QString folder = m_documents + u"/Shelvane"_s;
    QVERIFY(QDir().mkpath(folder));
    const QString catalogue = folder + u"/QuireshelfCatalog01.mdb"_s;
    writeFile(catalogue, "my own books");
    ProvideFirstCatalogue(folder, m_template);
    QCOMPARE(contentOf(catalogue), QByteArray("my own books"));
}

void TestProgramFolder::missingTemplateMakesNothing()
{
    const QString folder = m_documents + u"/Shelvane"_s;
    ProvideFirstCatalogue(folder, m_temporary->filePath(u"none.mdb"_s));
    QVERIFY(!QFile::exists(folder + u"/QuireshelfCatalog01.mdb"_s));
}

// The build puts the help beside the program, as a portable copy has it.
void TestProgramFolder::helpFileBesideTheProgram()
{
    QCOMPARE(ProgramFile(u"Shelvane.qhc"_s),
             QCoreApplication::applicationDirPath() + u"/Shelvane.qhc"_s);
}

void TestProgramFolder::installedFileInTheDataFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    QCOMPARE(ProgramFile(u"EmptyCatalogue.mdb"_s),
             QDir::cleanPath(program.filePath(u"../share/shelvane/EmptyCatalogue.mdb"_s)));
}

SHELVANE_TEST_MAIN(TestProgramFolder)
#include "tst_programfolder.moc"
