#include "forms/printing/frmcataloguecontrol.h"

#include "app/formregistry.h"
#include "app/helptopics.h"
#include "app/mainframe.h"
#include "data/connection.h"
#include "data/recordset.h"
#include "data/runtimeerror.h"
#include "recordform/msgbox.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmcataloguecontrol.h"


using namespace Qt::StringLiterals;

namespace {

const QString OwnerTable = u"tblCatalogueControl"_s;

// The columns of tblCatalogueControl, in their order; the statement names them so.
const QStringList &ownerColumns()
{
    static const QStringList columns{
        u"CatalogueName"_s, u"Firstname"_s, u"Surname"_s, u"Addr1"_s,  u"Addr2"_s,
        u"Addr3"_s,         u"Addr4"_s,     u"Addr5"_s,   u"PostCode"_s, u"TelNo1"_s,
        u"TelNo2"_s,        u"FaxNo"_s,     u"Email"_s,
    };
    return columns;
}

// The catalogue's name is read without a test for null.
QString catalogueNameOf(const QVariant &value)
{
    if (value.isNull())
        throw RuntimeError{94, u"Invalid use of Null"_s};
    return value.toString();
}

} // namespace

FrmCatalogueControl::FrmCatalogueControl(MainFrame &frame, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::frmCatalogueControl>())
    , m_frame(frame)
{
    ui->setupUi(this);
    RunHandler([this] { loadOwnerDetails(); });
}

FrmCatalogueControl::~FrmCatalogueControl() = default;

QList<QLineEdit *> FrmCatalogueControl::fieldBoxes() const
{
    return {ui->txtCatalogueName, ui->txtFirstName, ui->txtSurname, ui->txtAddr1,
            ui->txtAddr2,         ui->txtAddr3,     ui->txtAddr4,   ui->txtAddr5,
            ui->txtPostCode,      ui->txtTelNo1,    ui->txtTelNo2,  ui->txtFaxNo,
            ui->txtEmail};
}

// A catalogue without an owner row reports it here and leaves every box empty.
void FrmCatalogueControl::loadOwnerDetails()
{
    Connection connection;
    connection.open(m_frame.session().connectionString());
    const auto owner = connection.execute(OwnerTable, CommandType::Table);
    const QList<QLineEdit *> boxes = fieldBoxes();
    boxes.first()->setText(catalogueNameOf(owner->value(0)));
    // A missing detail shows as one blank, and is written back as that blank.
    for (int field = 1; field < boxes.size(); ++field) {
        const QVariant value = owner->value(field);
        boxes.at(field)->setText(value.isNull() ? u" "_s : value.toString());
    }
}

void FrmCatalogueControl::on_cmdUpdate_clicked()
{
    if (ui->txtCatalogueName->text().isEmpty())
        ui->txtCatalogueName->setText(u"No name given"_s);
    RunHandler([this] { writeOwnerDetails(); });
}

// Every row of the table is rewritten. The texts go into the statement as typed: an
// apostrophe breaks it, and then neither the caption nor the message follows.
void FrmCatalogueControl::writeOwnerDetails()
{
    Connection connection;
    connection.open(m_frame.session().connectionString());
    connection.execute(updateStatement(), CommandType::Text);
    m_frame.showCatalogueName(ui->txtCatalogueName->text());
    MsgBox(u"Catalogue Control details Sucessfully updated"_s, Vb::OKOnly,
           u"Catalogue Control"_s);
}

// "Set CatalogueName = '…', Firstname = '…',Surname = '…',…": only the second column has a
// blank before it.
QString FrmCatalogueControl::updateStatement() const
{
    const QList<QLineEdit *> boxes = fieldBoxes();
    QString statement = u"Update tblCatalogueControl Set "_s;
    for (qsizetype field = 0; field < boxes.size(); ++field) {
        if (field > 0)
            statement += field == 1 ? u"', "_s : u"',"_s;
        statement += ownerColumns().at(field) + u" = '"_s + boxes.at(field)->text();
    }
    return statement + u"'"_s;
}

void FrmCatalogueControl::on_cmdExit_clicked()
{
    m_frame.forms().unload(this);
}

// The help of this form, as F1 pressed on it would open.
void FrmCatalogueControl::on_cmdHelp_clicked()
{
    SendHelpKey(this);
}
