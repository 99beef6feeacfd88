// Damaged older catalogues offered to frmOpen, which converts them: each one is converted
// and opened, or refused with the program's message, and the program goes on running. A
// sample of the damaged files the import's own test runs through, every kind of damage in it.

#include "app/mainframe.h"
#include "catalogue/cataloguefile.h"
#include "data/catalogueformat.h"
#include "data/connection.h"
#include "data/connectionstring.h"
#include "forms/books/bookforms.h"
#include "jetimport/catalogueimport.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/testmain.h"
#include "tools/jetdamage.h"
#include "tools/jetfixtures.h"

#include <QAction>
#include <QDir>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString CatalogueName = u"QuireshelfCatalog01.mdb"_s;
const QString KeptName = u"QuireshelfCatalog01 (older format).mdb"_s;
// One damaged file in so many is offered to the form.
constexpr int SampleEvery = 11;
constexpr qsizetype ProblemsShown = 5;

ModalExpectation message(const QString &title, const QString &text, QMessageBox::Icon icon,
                         const QStringList &buttons = {u"OK"_s}, const QString &press = u"OK"_s)
{
    return ModalResponder::message(title, text, icon, buttons, press);
}

// What the conversion says once it has converted the file, as the import summed it up.
QString convertedText(const CatalogueImport::Summary &summary)
{
    qint64 books = 0;
    for (const CatalogueImport::TableCount &count : summary.tables) {
        if (count.table == u"tblBook"_s)
            books = count.rows;
    }
    QString text = u"Catalogue converted: %1 %2.\r\nThe old file is kept as '%3'."_s.arg(books).arg(
        books == 1 ? u"book"_s : u"books"_s, KeptName);
    const QStringList problems = summary.problems + summary.checkProblems;
    if (problems.isEmpty())
        return text;
    text += problems.size() == 1 ? u"\r\n\r\n1 row had to be put right:"_s
                                 : u"\r\n\r\n%1 rows had to be put right:"_s.arg(problems.size());
    for (const QString &problem : problems.mid(0, ProblemsShown))
        text += u"\r\n"_s + problem;
    return problems.size() > ProblemsShown ? text + u"\r\n..."_s : text;
}

} // namespace

class TestDamagedConversion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void offeredToTheOpenForm_data();
    void offeredToTheOpenForm();

private:
    // What the conversion of the file will show, learnt from importing it beforehand.
    QList<ModalExpectation> expectedFor(const QString &path, bool *converted) const;

    QTemporaryDir m_dir;
    QList<DamagedJet> m_damaged;
    std::unique_ptr<MainFrame> m_frame;
    std::unique_ptr<ModalResponder> m_responder;
};

void TestDamagedConversion::initTestCase()
{
    QVERIFY(QDir().mkpath(m_dir.filePath(u"damaged"_s)));
    m_damaged = MakeDamagedJets(jetFixture(CatalogueName), m_dir.filePath(u"damaged"_s));
    QVERIFY(!m_damaged.isEmpty());
}

void TestDamagedConversion::init()
{
    m_frame = std::make_unique<MainFrame>();
    RegisterBookForms(*m_frame);
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
    m_responder = std::make_unique<ModalResponder>();
}

void TestDamagedConversion::cleanup()
{
    m_responder.reset();
    m_frame.reset();
}

void TestDamagedConversion::offeredToTheOpenForm_data()
{
    QTest::addColumn<QString>("damaged");
    for (qsizetype i = 0; i < m_damaged.size(); i += SampleEvery)
        QTest::newRow(qPrintable(m_damaged[i].damage)) << m_damaged[i].path;
}

QList<ModalExpectation> TestDamagedConversion::expectedFor(const QString &path, bool *converted) const
{
    *converted = false;
    // Damage that leaves no Jet file is opened as any other file, and refused by the
    // connection as its run-time error.
    if (CatalogueFormat::ofFile(path) != CatalogueFormat::Kind::Jet) {
        try {
            Connection connection;
            connection.open(ConnectionString::forCatalogue(path));
        } catch (const ProviderError &error) {
            return {message(u"Shelvane"_s, u"Quireshelf Sucessfully opened"_s, QMessageBox::NoIcon),
                    message(u"prjQuireshelf"_s,
                            u"Run-time error '%1':\r\n\r\n%2"_s.arg(error.number).arg(error.description),
                            QMessageBox::Critical)};
        }
        return {};
    }
    QList<ModalExpectation> expected{
        message(u"Shelvane"_s,
                u"This catalogue is in the older format and cannot be opened as it is.\r\n"
                "Convert it now? The old file will be kept as '"_s + KeptName + u"'."_s,
                QMessageBox::Question, {u"Yes"_s, u"No"_s}, u"Yes"_s)};
    const QTemporaryDir scratch;
    try {
        const CatalogueImport::Summary summary =
            CatalogueImport::run(path, QDir(scratch.path()).filePath(CatalogueName));
        *converted = true;
        expected << message(u"Shelvane"_s, convertedText(summary), QMessageBox::Information)
                 << message(u"Shelvane"_s, u"Quireshelf Sucessfully opened"_s, QMessageBox::NoIcon);
    } catch (const CatalogueFileError &error) {
        expected << message(u"Database Open Error"_s,
                            u"The catalogue could not be converted:\r\n"_s + error.message()
                                + u".\r\nNothing has been changed."_s,
                            QMessageBox::Warning);
    }
    return expected;
}

void TestDamagedConversion::offeredToTheOpenForm()
{
    QFETCH(QString, damaged);
    const QTemporaryDir folder;
    const QString path = QDir::toNativeSeparators(QDir(folder.path()).filePath(CatalogueName));
    QVERIFY(QFile::copy(damaged, path));
    bool converted = false;
    const QList<ModalExpectation> expected = expectedFor(path, &converted);

    const QString problems = PressOpenFor(*m_frame, path, *m_responder, expected, 20000);
    QVERIFY2(problems.isEmpty(), qPrintable(problems));

    // Still running, and in the state each answer leaves it in.
    QCOMPARE(m_frame->session().isOpen(), converted);
    if (!converted) {
        QVERIFY(FindForm(u"frmOpen"_s));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{CatalogueName});
        return;
    }
    QVERIFY2(m_frame->windowTitle().startsWith(u"Shelvane - Open Catalogue: "_s), qPrintable(m_frame->windowTitle()));
    QVERIFY(FindForm(u"frmBookMaintenance"_s));
    m_responder->expect(message(u"Close Catalogue"_s, u"Catalogue "_s + path + u" closed!"_s,
                                QMessageBox::Information));
    FindAction(u"mnuClose"_s)->trigger();
    QCOMPARE(m_responder->finish(), QString());
    QCOMPARE(m_frame->windowTitle(), u"Shelvane"_s);
}

SHELVANE_TEST_MAIN(TestDamagedConversion)
#include "tst_damagedconversion.moc"
