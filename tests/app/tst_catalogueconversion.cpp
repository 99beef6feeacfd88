// Opening a catalogue of the older Jet format through frmOpen: the question, the conversion
// with the old file kept beside the new one, and what the user is told on each outcome.

#include "app/conversionprogress.h"
#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/catalogueformat.h"
#include "forms/books/bookforms.h"
#include "jetimport/jetfile.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testmain.h"
#include "tools/jetfixtures.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

const QString CatalogueName = u"QuireshelfCatalog01.mdb"_s;
const QString KeptName = u"QuireshelfCatalog01 (older format).mdb"_s;
// Beside a catalogue while a copy of the program has it open.
const QString LockName = u"QuireshelfCatalog01.mdb.lock"_s;

ModalExpectation convertQuestion(const QString &keptName, const QString &press)
{
    return ModalResponder::message(
        u"Shelvane"_s,
        u"This catalogue is in the older format and cannot be opened as it is.\r\n"
        "Convert it now? The old file will be kept as '"_s + keptName + u"'."_s,
        QMessageBox::Question, {u"Yes"_s, u"No"_s}, press);
}

ModalExpectation openedMessage()
{
    return ModalResponder::message(u"Shelvane"_s, u"Quireshelf Sucessfully opened"_s,
                                   QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList filesIn(const QTemporaryDir &dir)
{
    return QDir(dir.path()).entryList(QDir::Files | QDir::Hidden);
}

// The first book of the Jet file in the book form's order (by title, letter case ignored
// for A to Z only, as the catalogue compares), read from the Jet file itself.
JetRow firstBookByTitle(const QString &jetPath)
{
    const auto key = [](const JetRow &book) {
        QByteArray title = std::get<QString>(book[1]).toUtf8();
        for (char &c : title)
            c = (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c;
        return title;
    };
    JetRow first;
    JetFile(jetPath).readRows(u"tblBook"_s, [&](const JetRow &book) {
        if (first.isEmpty() || key(book) < key(first))
            first = book;
    });
    return first;
}

} // namespace

class TestCatalogueConversion : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<MainFrame> m_frame;
    ModalResponder *m_responder = nullptr;

    // "Open" on frmOpen with `path` picked through "...", answering what comes up.
    QString open(const QString &path, const QList<ModalExpectation> &expected)
    {
        return PressOpenFor(*m_frame, path, *m_responder, expected, 20000);
    }

    void expectNothingOpen()
    {
        QVERIFY(!m_frame->session().isOpen());
        QVERIFY(FindForm(u"frmOpen"_s));
    }

private Q_SLOTS:
    void init()
    {
        m_frame = std::make_unique<MainFrame>();
        RegisterBookForms(*m_frame);
        m_frame->show();
        m_frame->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_frame.get()));
        m_responder = new ModalResponder;
    }

    void cleanup()
    {
        delete m_responder;
        m_responder = nullptr;
        m_frame.reset();
    }

    void yesConvertsKeepsTheOldFileAndOpensTheNewOne()
    {
        QTemporaryDir folder;
        const QString path = QDir::toNativeSeparators(folder.filePath(CatalogueName));
        QVERIFY(QFile::copy(jetFixture(CatalogueName), path));
        const QByteArray old = contentOf(path);

        ModalExpectation question = convertQuestion(KeptName, u"Yes"_s);
        question.act = [](QWidget *box) { SaveScreenshot(box, u"catalogueconversion-question"_s); };
        ModalExpectation converted = ModalResponder::message(
            u"Shelvane"_s, u"Catalogue converted: 120 books.\r\nThe old file is kept as '"_s + KeptName + u"'."_s,
            QMessageBox::Information, {u"OK"_s}, u"OK"_s);
        converted.act = [](QWidget *box) { SaveScreenshot(box, u"catalogueconversion-converted"_s); };
        const QString problems = open(path, {question, converted, openedMessage()});
        QVERIFY2(problems.isEmpty(), qPrintable(problems));

        QCOMPARE(filesIn(folder), (QStringList{KeptName, CatalogueName, LockName}));
        QCOMPARE(contentOf(folder.filePath(KeptName)), old);
        QCOMPARE(CatalogueFormat::ofFile(path), CatalogueFormat::Kind::Sqlite);
        QVERIFY(m_frame->session().isOpen());
        QVERIFY2(m_frame->windowTitle().contains(u"The Ashworth Library"_s), qPrintable(m_frame->windowTitle()));
        QTRY_VERIFY(!FindForm(u"frmOpen"_s));

        // The book form shows the same first book as the old file holds.
        QTest::mouseClick(m_frame->findChild<QToolButton *>(u"Book"_s), Qt::LeftButton);
        QWidget *books = m_frame->forms().find(u"frmBookMaintenance"_s);
        QVERIFY(books);
        QVERIFY(QTest::qWaitForWindowExposed(books));
        const JetRow first = firstBookByTitle(jetFixture(CatalogueName));
        QCOMPARE(FindControl<QLineEdit>(books, u"txtBookID"_s)->text(), QString::number(std::get<qint64>(first[0])));
        QCOMPARE(FindControl<QLineEdit>(books, u"txtDescription"_s)->text(), std::get<QString>(first[1]));
        const QString price = FindControl<QLineEdit>(books, u"txtPrice"_s)->text();
        QCOMPARE(price, u"£"_s + QLocale(QLocale::English, QLocale::UnitedKingdom)
                                      .toString(double(std::get<JetCurrency>(first[7]).tenThousandths) / 10000.0, 'f', 2));
        SaveScreenshot(m_frame.get(), u"catalogueconversion-first-book"_s);
    }

    void noLeavesTheFileAsItWas()
    {
        QTemporaryDir folder;
        const QString path = QDir::toNativeSeparators(folder.filePath(CatalogueName));
        QVERIFY(QFile::copy(jetFixture(CatalogueName), path));
        const QByteArray old = contentOf(path);

        const QString problems = open(path, {convertQuestion(KeptName, u"No"_s)});
        QVERIFY2(problems.isEmpty(), qPrintable(problems));

        QCOMPARE(filesIn(folder), QStringList{CatalogueName});
        QCOMPARE(contentOf(path), old);
        expectNothingOpen();
    }

    void aFailedConversionChangesNothing()
    {
        QTemporaryDir folder;
        const QString path = QDir::toNativeSeparators(folder.filePath(CatalogueName));
        const QString cut = jetFixtureCopy(folder, CatalogueName, 8192);
        QVERIFY(QFile::rename(cut, path));
        const QByteArray old = contentOf(path);

        const QString problems = open(path, {
            convertQuestion(KeptName, u"Yes"_s),
            ModalResponder::message(u"Database Open Error"_s,
                                    u"The catalogue could not be converted:\r\n"_s + path
                                        + u" cannot be read: its list of tables is damaged.\r\nNothing has been changed."_s,
                                    QMessageBox::Warning, {u"OK"_s}, u"OK"_s),
        });
        QVERIFY2(problems.isEmpty(), qPrintable(problems));

        QCOMPARE(filesIn(folder), QStringList{CatalogueName});
        QCOMPARE(contentOf(path), old);
        expectNothingOpen();
    }

    void theKeptNameIsNumberedWhenTaken()
    {
        QTemporaryDir folder;
        const QString path = QDir::toNativeSeparators(folder.filePath(CatalogueName));
        QVERIFY(QFile::copy(jetFixture(CatalogueName), path));
        QVERIFY(QFile::copy(jetFixture(CatalogueName), folder.filePath(KeptName)));
        const QString secondName = u"QuireshelfCatalog01 (older format 2).mdb"_s;

        const QString problems = open(path, {
            convertQuestion(secondName, u"Yes"_s),
            ModalResponder::message(u"Shelvane"_s,
                                    u"Catalogue converted: 120 books.\r\nThe old file is kept as '"_s + secondName + u"'."_s,
                                    QMessageBox::Information, {u"OK"_s}, u"OK"_s),
            openedMessage(),
        });
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QCOMPARE(filesIn(folder), (QStringList{secondName, KeptName, CatalogueName, LockName}));
    }

    void progressNamesThePartBeingConverted()
    {
        ConversionProgress progress(m_frame.get());
        progress.show();
        QVERIFY(QTest::qWaitForWindowExposed(&progress));
        progress.tableProgress(u"tblPublisher"_s, 12, 12);
        QCOMPARE(progress.value(), 111);
        progress.tableProgress(u"tblBook"_s, 60, 120);

        QCOMPARE(progress.labelText(), u"Converting the catalogue: books (60 of 120)"_s);
        QCOMPARE(progress.value(), 388); // three of nine tables done, and half of the fourth
        QCOMPARE(progress.windowTitle(), u"Shelvane"_s);
        QVERIFY(!progress.findChild<QPushButton *>()); // one transaction: nothing to cancel
        SaveScreenshot(&progress, u"catalogueconversion-progress"_s);
    }
};

SHELVANE_TEST_MAIN(TestCatalogueConversion)
#include "tst_catalogueconversion.moc"
