// The owner details: the one row of tblCatalogueControl, read on load and rewritten on Update.

#include "app/mainframe.h"
#include "forms/printing/printingforms.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/formdriver.h"
#include "support/modalresponder.h"
#include "support/schemaedit.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString FormName = u"frmCatalogueControl"_s;
const QString MenuEntry = u"mnuCatalogueControl"_s;
const QString Updated = u"Catalogue Control details Sucessfully updated"_s;

// The boxes in the order of the table's columns.
const QStringList Boxes{u"txtCatalogueName"_s, u"txtFirstName"_s, u"txtSurname"_s,
                        u"txtAddr1"_s,         u"txtAddr2"_s,     u"txtAddr3"_s,
                        u"txtAddr4"_s,         u"txtAddr5"_s,     u"txtPostCode"_s,
                        u"txtTelNo1"_s,        u"txtTelNo2"_s,    u"txtFaxNo"_s,
                        u"txtEmail"_s};

// An owner as a person would type one in, in column order.
const QStringList Owner{u"Rookwood Library"_s, u"Harriet"_s,      u"Vane"_s,
                        u"The Old Rectory"_s,  u"Church Lane"_s,  u"Little Bidford"_s,
                        u"Oxford"_s,           u"Oxfordshire"_s,  u"OX7 3PL"_s,
                        u"01608 811234"_s,     u"07700 900461"_s, u"01608 811235"_s,
                        u"hvane@example.org"_s};

QWidget *openOwnerDetails()
{
    return OpenThroughMenu(MenuEntry, FormName);
}

QStringList shownTexts(const QWidget *form)
{
    QStringList texts;
    for (const QString &name : Boxes)
        texts << BoxText(form, name);
    return texts;
}

void typeOwner(const QWidget *form, const QStringList &values)
{
    for (qsizetype i = 0; i < Boxes.size(); ++i)
        Retype(FindControl<QLineEdit>(form, Boxes.at(i)), values.at(i));
}

// Every row of tblCatalogueControl, each as its thirteen texts (NULL as "(null)").
QList<QStringList> ownerRows(const TestCatalogue &catalogue)
{
    QList<QStringList> rows;
    QSqlQuery query(catalogue.db());
    query.exec(u"SELECT * FROM tblCatalogueControl"_s);
    while (query.next()) {
        QStringList row;
        for (int field = 0; field < query.record().count(); ++field)
            row << (query.isNull(field) ? u"(null)"_s : query.value(field).toString());
        rows << row;
    }
    return rows;
}

bool storeOwner(const TestCatalogue &catalogue, const QStringList &values)
{
    QSqlQuery update(catalogue.db());
    update.prepare(u"UPDATE tblCatalogueControl SET CatalogueName = ?, Firstname = ?, "
                   "Surname = ?, Addr1 = ?, Addr2 = ?, Addr3 = ?, Addr4 = ?, Addr5 = ?, "
                   "PostCode = ?, TelNo1 = ?, TelNo2 = ?, FaxNo = ?, Email = ?"_s);
    for (const QString &value : values)
        update.addBindValue(value);
    return update.exec();
}

ModalExpectation updatedMessage()
{
    return ModalResponder::message(u"Catalogue Control"_s, Updated, QMessageBox::NoIcon,
                                   {u"OK"_s}, u"OK"_s);
}

ModalExpectation runtimeError(const QString &text)
{
    return ModalResponder::message(u"prjQuireshelf"_s, text, QMessageBox::Critical, {u"OK"_s},
                                   u"OK"_s);
}

} // namespace

class TestCatalogueControl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formShowsItsCaptionsLabelsAndTips();
    void menuEntryDisabledWhileOpen();
    void loadShowsTheOwnerRow();
    void nullFieldsShowAsOneBlankAndAreWrittenBackSo();
    void updateRewritesTheRowAndTheCaption();
    void emptyNameIsSavedAsNoNameGiven();
    void apostropheMakesTheUpdateFail();
    void everyRowOfTheTableIsRewritten();
    void missingOwnerRowIsReported();
    void helpOpensTheFormsTopic();
};

void TestCatalogueControl::formShowsItsCaptionsLabelsAndTips()
{
    CatalogueOpener opener(RegisterPrintingForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QWidget *form = openOwnerDetails();
    QVERIFY(form);
    QCOMPARE(form->windowTitle(), u"Catalogue Control "_s);
    const auto *heading = FindControl<QLabel>(form, u"Label1"_s);
    QCOMPARE(heading->text(), u"Catalogue Control Maintenance"_s);
    QCOMPARE(heading->font().family(), u"Times New Roman"_s);

    const QList<std::pair<QString, QString>> labels{
        {u"lblCatalogueName"_s, u"Catalogue Name"_s}, {u"lblName"_s, u"First name Surname "_s},
        {u"lblAddr1"_s, u"Address line 1"_s},         {u"lblAddr2"_s, u"line 2"_s},
        {u"lblAddr3"_s, u"line 3"_s},                 {u"lblAddr4"_s, u"line 4"_s},
        {u"lblAddr5"_s, u"line 5"_s},                 {u"lblPostCode"_s, u"Post Code"_s},
        {u"lblTelNo1"_s, u"Telephone - 1"_s},         {u"lblEmail"_s, u"e-mail"_s},
    };
    for (const auto &[name, text] : labels)
        QCOMPARE(FindControl<QLabel>(form, name)->text(), text);

    const QString reports = u" - will appear on first page of reports"_s;
    const QString plain = u"Will appear on first page of reports"_s;
    const QStringList tips{u"Catalogue Name"_s + reports,
                           u"Catalogue owner first name"_s + reports,
                           u"Catalogue owner surname"_s + reports,
                           u"First line of address"_s + reports,
                           u"2nd line of address"_s + reports,
                           u"3rd line of address"_s + reports,
                           u"4th line of address"_s + reports,
                           u"5th line of address"_s + reports,
                           plain,
                           plain,
                           QString(),
                           plain,
                           plain};
    for (qsizetype i = 0; i < Boxes.size(); ++i)
        QCOMPARE(FindControl<QLineEdit>(form, Boxes.at(i))->toolTip(), tips.at(i));
    QCOMPARE(FindControl<QPushButton>(form, u"cmdUpdate"_s)->text(), u"&Update"_s);
    QCOMPARE(FindControl<QPushButton>(form, u"cmdExit"_s)->text(), u"E&xit"_s);
    QCOMPARE(FindControl<QPushButton>(form, u"cmdHelp"_s)->text(), u"Help"_s);
}

void TestCatalogueControl::menuEntryDisabledWhileOpen()
{
    CatalogueOpener opener(RegisterPrintingForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QCOMPARE(MenuEntryFollowsForm(MenuEntry, FormName), QString());
}

void TestCatalogueControl::loadShowsTheOwnerRow()
{
    CatalogueOpener opener(RegisterPrintingForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QVERIFY(storeOwner(opener.catalogue(), Owner));
    QWidget *form = openOwnerDetails();
    QVERIFY(form);
    QCOMPARE(shownTexts(form), Owner);
    QVERIFY(!SaveScreenshot(form->parentWidget(), u"frmCatalogueControl"_s).isEmpty());
}

void TestCatalogueControl::nullFieldsShowAsOneBlankAndAreWrittenBackSo()
{
    CatalogueOpener opener(RegisterPrintingForms, TestCatalogue::Content::Empty);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    const QSqlDatabase db = opener.catalogue().db();
    for (const QString &column : {u"Addr5"_s, u"FaxNo"_s})
        QCOMPARE(AllowNulls(db, u"tblCatalogueControl"_s, column), QString());
    QVERIFY(QSqlQuery(db).exec(u"UPDATE tblCatalogueControl SET Addr5 = NULL, FaxNo = NULL, "
                               "Addr1 = '1 High Street'"_s));
    QWidget *form = openOwnerDetails();
    QVERIFY(form);
    QCOMPARE(BoxText(form, u"txtAddr5"_s), u" "_s);
    QCOMPARE(BoxText(form, u"txtFaxNo"_s), u" "_s);
    QCOMPARE(BoxText(form, u"txtAddr1"_s), u"1 High Street"_s);
    // An empty column is no null: it shows empty.
    QCOMPARE(BoxText(form, u"txtAddr2"_s), QString());

    ModalResponder responder;
    responder.expect(updatedMessage());
    ClickButton(form, u"cmdUpdate"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(opener.catalogue().scalar(u"select '[' || Addr5 || '|' || FaxNo || ']' "
                                       "from tblCatalogueControl"_s),
             QVariant(u"[ | ]"_s));
}

void TestCatalogueControl::updateRewritesTheRowAndTheCaption()
{
    CatalogueOpener opener(RegisterPrintingForms, TestCatalogue::Content::Empty);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QCOMPARE(opener.frame().windowTitle(), u"Shelvane - Open Catalogue: My Book Catalogue"_s);
    QWidget *form = openOwnerDetails();
    QVERIFY(form);
    // Blanks around a text are kept as typed.
    QStringList typed = Owner;
    typed[4] = u" Church Lane "_s;
    typeOwner(form, typed);
    ModalResponder responder;
    responder.expect(updatedMessage());
    ClickButton(form, u"cmdUpdate"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(ownerRows(opener.catalogue()), QList<QStringList>{typed});
    QCOMPARE(opener.frame().windowTitle(), u"Shelvane - Open Catalogue: Rookwood Library"_s);
    // The form stays open with the values as typed.
    QCOMPARE(FindForm(FormName), form);
    QCOMPARE(shownTexts(form), typed);
}

void TestCatalogueControl::emptyNameIsSavedAsNoNameGiven()
{
    CatalogueOpener opener(RegisterPrintingForms, TestCatalogue::Content::Empty);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QWidget *form = openOwnerDetails();
    QVERIFY(form);
    Retype(FindControl<QLineEdit>(form, u"txtCatalogueName"_s), QString());
    ModalResponder responder;
    responder.expect(updatedMessage());
    ClickButton(form, u"cmdUpdate"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(BoxText(form, u"txtCatalogueName"_s), u"No name given"_s);
    QCOMPARE(opener.catalogue().scalar(u"select CatalogueName from tblCatalogueControl"_s),
             QVariant(u"No name given"_s));
    QCOMPARE(opener.frame().windowTitle(), u"Shelvane - Open Catalogue: No name given"_s);
}

void TestCatalogueControl::apostropheMakesTheUpdateFail()
{
    CatalogueOpener opener(RegisterPrintingForms, TestCatalogue::Content::Empty);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    const QList<QStringList> before = ownerRows(opener.catalogue());
    const QString caption = opener.frame().windowTitle();
    QWidget *form = openOwnerDetails();
    QVERIFY(form);
    Retype(FindControl<QLineEdit>(form, u"txtCatalogueName"_s), u"Brendan's books"_s);
    Retype(FindControl<QLineEdit>(form, u"txtSurname"_s), u"O'Brien"_s);
    ModalResponder responder;
    // The report is the only window: no success message follows it.
    responder.expect(runtimeError(u"Run-time error '3075':\r\n\r\nnear \"s\": syntax error"_s));
    ClickButton(form, u"cmdUpdate"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(responder.finish(200), QString());
    QCOMPARE(ownerRows(opener.catalogue()), before);
    QCOMPARE(opener.frame().windowTitle(), caption);
    QCOMPARE(BoxText(form, u"txtSurname"_s), u"O'Brien"_s);
}

void TestCatalogueControl::everyRowOfTheTableIsRewritten()
{
    CatalogueOpener opener(RegisterPrintingForms, TestCatalogue::Content::Empty);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QVERIFY(QSqlQuery(opener.catalogue().db())
                .exec(u"INSERT INTO tblCatalogueControl (CatalogueName) VALUES ('Second')"_s));
    QWidget *form = openOwnerDetails();
    QVERIFY(form);
    // The form reads the first row.
    QCOMPARE(BoxText(form, u"txtCatalogueName"_s), u"My Book Catalogue"_s);
    typeOwner(form, Owner);
    ModalResponder responder;
    responder.expect(updatedMessage());
    ClickButton(form, u"cmdUpdate"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(ownerRows(opener.catalogue()), (QList<QStringList>{Owner, Owner}));
}

void TestCatalogueControl::missingOwnerRowIsReported()
{
    CatalogueOpener opener(RegisterPrintingForms, TestCatalogue::Content::Empty);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QVERIFY(QSqlQuery(opener.catalogue().db()).exec(u"DELETE FROM tblCatalogueControl"_s));
    ModalResponder responder;
    responder.expect(runtimeError(
        u"Run-time error '3021':\r\n\r\nEither BOF or EOF is True, or the current record has "
        "been deleted. Requested operation requires a current record."_s));
    QWidget *form = openOwnerDetails();
    QCOMPARE(responder.finish(), QString());
    QVERIFY(form);
    QCOMPARE(shownTexts(form), QStringList(Boxes.size(), QString()));
}

void TestCatalogueControl::helpOpensTheFormsTopic()
{
    CatalogueOpener opener(RegisterPrintingForms);
    QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
    QWidget *form = openOwnerDetails();
    QVERIFY(form);
    ClickButton(form, u"cmdHelp"_s);
    QTRY_COMPARE(ShownHelpTopic(), u"Catalogue owner details"_s);
    FindForm(u"HelpWindow"_s)->close();
}

SHELVANE_TEST_MAIN(TestCatalogueControl)
#include "tst_cataloguecontrol.moc"
