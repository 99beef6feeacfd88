// `shelvane PATH`: the catalogue named on the command line is opened as the open form opens
// the path in its box: the same checks, messages and offer to convert an older catalogue.

#include "app/frmopen.h"
#include "app/mainframe.h"
#include "data/catalogueformat.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/testcatalogue.h"
#include "support/testmain.h"
#include "taskformdouble.h"
#include "../jetimport/jetfixtures.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString CatalogueName = u"QuireshelfCatalog01.mdb"_s;

ModalExpectation openError(const QString &text)
{
    return ModalResponder::message(u"Database Open Error"_s, text + u"\r\nPlease try again or 'Exit'"_s,
                                   QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s);
}

ModalExpectation openedMessage()
{
    return ModalResponder::message(u"Shelvane"_s, u"Quireshelf Sucessfully opened"_s, QMessageBox::NoIcon,
                                   {u"OK"_s}, u"OK"_s);
}

ModalExpectation convertQuestion(const QString &press)
{
    return ModalResponder::message(
        u"Shelvane"_s,
        u"This catalogue is in the older format and cannot be opened as it is.\r\n"
        "Convert it now? The old file will be kept as 'QuireshelfCatalog01 (older format).mdb'."_s,
        QMessageBox::Question, {u"Yes"_s, u"No"_s}, press);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestOpenGiven : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<MainFrame> m_frame;
    ModalResponder *m_responder = nullptr;

    // Opens `path` as the command line does, answering what comes up.
    QString openGiven(const QString &path, const QList<ModalExpectation> &expected)
    {
        for (const ModalExpectation &expectation : expected)
            m_responder->expect(expectation);
        OpenCatalogueGiven(*m_frame, path);
        return m_responder->finish(20000);
    }

    // A refusal leaves no catalogue and the open form showing the path, for another try.
    void expectRefusedWithFormShowing(const QString &path)
    {
        QVERIFY(!m_frame->session().isOpen());
        QCOMPARE(m_frame->windowTitle(), u"Shelvane"_s);
        QWidget *form = FindForm(u"frmOpen"_s);
        QVERIFY(form);
        QVERIFY(form->isVisible());
        QCOMPARE(FindControl<QLineEdit>(form, u"txtDataBase"_s)->text(), QDir::toNativeSeparators(path));
    }

private Q_SLOTS:
    void init()
    {
        m_frame = std::make_unique<MainFrame>();
        registerDouble(*m_frame, {u"frmBookMaintenance"_s, u"Book Maintenance"_s, u"mnuBooks"_s});
        m_frame->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
        m_responder = new ModalResponder;
    }

    void cleanup()
    {
        const QString problems = m_responder->finish(100);
        delete m_responder;
        m_frame.reset();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
    }

    void aCatalogueOpens()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString problems = openGiven(catalogue.path(), {openedMessage()});
        QVERIFY2(problems.isEmpty(), qPrintable(problems));

        QCOMPARE(m_frame->session().strCataloguePath, QDir::toNativeSeparators(catalogue.path()));
        QVERIFY(m_frame->session().cnnCatalogue);
        QCOMPARE(m_frame->windowTitle(), u"Shelvane - Open Catalogue: "_s
                                             + catalogue.scalar(u"SELECT CatalogueName FROM tblCatalogueControl"_s).toString());
        QTRY_VERIFY(!FindForm(u"frmOpen"_s));
    }

    void aPathInTheWorkingFolderIsMadeFull()
    {
        TestCatalogue catalogue;
        const QString before = QDir::currentPath();
        QDir::setCurrent(catalogue.folder());
        const QString problems = openGiven(CatalogueName, {openedMessage()});
        QDir::setCurrent(before);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QCOMPARE(m_frame->session().strCataloguePath, QDir::toNativeSeparators(catalogue.path()));
    }

    void aWrongNameIsRefused()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"books.mdb"_s);
        QVERIFY(QFile::copy(TestCatalogue().path(), path));
        const QString problems = openGiven(path, {openError(u"Incorrect database name. "_s)});
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        expectRefusedWithFormShowing(path);
    }

    void aMissingFileIsRefused()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(CatalogueName);
        const QString problems = openGiven(path, {openError(u"Database does not exist!"_s)});
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        expectRefusedWithFormShowing(path);
        QVERIFY(!QFile::exists(path));
    }

    void anOlderCatalogueIsConvertedWhenTheOwnerSaysYes()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(CatalogueName);
        QVERIFY(QFile::copy(jetFixture(CatalogueName), path));
        const QString problems = openGiven(path, {
            convertQuestion(u"Yes"_s),
            ModalResponder::message(u"Shelvane"_s,
                                    u"Catalogue converted: 120 books.\r\nThe old file is kept as "
                                    "'QuireshelfCatalog01 (older format).mdb'."_s,
                                    QMessageBox::Information, {u"OK"_s}, u"OK"_s),
            openedMessage(),
        });
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QCOMPARE(CatalogueFormat::ofFile(path), CatalogueFormat::Kind::Sqlite);
        QVERIFY(m_frame->session().isOpen());
        QVERIFY2(m_frame->windowTitle().contains(u"The Ashworth Library"_s), qPrintable(m_frame->windowTitle()));
    }

    void anOlderCatalogueIsLeftAloneWhenTheOwnerSaysNo()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(CatalogueName);
        QVERIFY(QFile::copy(jetFixture(CatalogueName), path));
        const QByteArray old = contentOf(path);
        const QString problems = openGiven(path, {convertQuestion(u"No"_s)});
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        expectRefusedWithFormShowing(path);
        QCOMPARE(contentOf(path), old);
    }
};

SHELVANE_TEST_MAIN(TestOpenGiven)
#include "tst_opengiven.moc"
