// The book form's publisher list follows the publishers' form: a publisher added there can be
// chosen for a book once the publishers' form is closed.

#include "app/mainframe.h"
#include "forms/books/bookforms.h"
#include "recordform/datacombo.h"
#include "referencecases.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/testenvironment.h"
#include "support/testmain.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void registerAllForms(MainFrame &frame)
{
    RegisterReferenceForms(frame);
    RegisterBookForms(frame);
}

} // namespace

class TestPublisherList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TestEnvironment::clearSettings(); }
    void closingPublishersRefreshesTheBookForm();
};

void TestPublisherList::closingPublishersRefreshesTheBookForm()
{
    CatalogueOpener opener(registerAllForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QWidget *bookForm = FindForm(u"frmBookMaintenance"_s);
    QVERIFY2(bookForm, "the book form is loaded when the catalogue opens");
    auto *cboPublisher = FindControl<DataCombo>(bookForm, u"cboPublisher"_s);
    QVERIFY(cboPublisher);
    const int before = cboPublisher->count();

    const FormCase &c = formCase(u"frmPublisher"_s);
    storePrompt(c, u"AddNewPrompt"_s, u"N"_s);
    QWidget *form = openForm(c);
    QVERIFY(form);
    click(form, u"cmdAdd"_s);
    typeInto(form, u"txtPublisherName"_s, u"Aldine Reprints"_s);
    ModalResponder responder;
    responder.expect(plainMessage(c.addedTitle, c.added));
    click(form, u"cmdConfirmAdd"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(cboPublisher->count(), before);

    click(form, u"cmdExit"_s);
    QTRY_VERIFY(!FindForm(c.form));
    QCOMPARE(cboPublisher->count(), before + 1);
    QVERIFY(cboPublisher->findText(u"Aldine Reprints"_s) >= 0);
}

SHELVANE_TEST_MAIN(TestPublisherList)
#include "tst_publisherlist.moc"
