#include "forms/figures/frmprices.h"

#include "app/formregistry.h"
#include "app/helptopics.h"
#include "catalogue/session.h"
#include "data/fieldformat.h"
#include "data/recordset.h"
#include "data/sqlnumber.h"
#include "data/transactionguard.h"
#include "forms/figures/figuretext.h"
#include "recordform/keyfilters.h"
#include "recordform/mandatoryleavecheck.h"
#include "recordform/msgbox.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmprices.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString ValueSource = u"select sum(BookPrice) as TotalValue from tblBook"_s;
const QString UpdatePrices = u"Update tblBook set bookPrice = bookprice * "_s;

constexpr double LargestFall = -15;
constexpr double LargestRise = 15;

QString asMoney(const QVariant &value)
{
    return FieldFormats::display(value, FieldFormat::Money);
}

// Whether the percentage may be previewed or applied. Text that is no number raises the
// run-time error.
bool increaseInRange(const QString &text)
{
    if (text.isEmpty())
        return false;
    const double increase = NumberOfText(text);
    return increase >= LargestFall && increase <= LargestRise;
}

} // namespace

FrmPrices::FrmPrices(FormRegistry &forms, Session &session, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::frmPrices>())
    , m_forms(forms)
    , m_session(session)
    , m_increaseCheck(new MandatoryLeaveCheck(this, [this](QWidget *) { return checkIncrease(); }))
{
    ui->setupUi(this);
    InstallKeyFilter(ui->txtIncrease, KeyFilter::Percentage);
    m_increaseCheck->watch(ui->txtIncrease);
    // The user can always leave, or ask for help, whatever the box holds.
    m_increaseCheck->exempt(ui->cmdExit);
    m_increaseCheck->exempt(ui->cmdHelp);
    ui->txtIncrease->setFocus();
    RunHandler([this] { showCurrentValue(); });
}

FrmPrices::~FrmPrices() = default;

// A catalogue without books is worth nothing: its null sum shows as zero, which previews and
// applies like any other value.
void FrmPrices::showCurrentValue()
{
    const auto total = Recordset::open(m_session.sharedConnection(), ValueSource);
    const QVariant value = total->value(u"TotalValue"_s);
    ui->txtCurrValue->setText(asMoney(value.isNull() ? QVariant(0.0) : value));
}

// A percentage that does not read as a number keeps the user in the box after its run-time
// error, so that the click that tried to leave does not report it a second time.
bool FrmPrices::checkIncrease()
{
    std::optional<bool> inRange;
    RunHandler([&] { inRange = increaseInRange(ui->txtIncrease->text()); });
    if (inRange == false)
        MsgBox(u"Please enter an increase % between -15 and +15 % or press 'Exit'"_s,
               Vb::OKOnly, u"Maintain Collection value"_s);
    return inRange.value_or(false);
}

void FrmPrices::on_cmdTest_clicked()
{
    RunHandler([this] {
        const double current = NumberOfText(ui->txtCurrValue->text());
        const double increase = NumberOfText(ui->txtIncrease->text());
        const double newValue = current + (increase * current) / 100;
        ui->txtTestValue->setText(asMoney(newValue));
        ui->txtIncrease->setFocus();
    });
}

void FrmPrices::on_cmdUpdate_clicked()
{
    RunHandler([this] { applyIncrease(); });
}

// One statement multiplies every price; applying twice multiplies twice. The factor is
// written in SQL's form, as a decimal comma would break the statement.
void FrmPrices::applyIncrease()
{
    const double increase = NumberOfText(ui->txtIncrease->text());
    const double factor = (increase + 100) / 100;
    Connection &catalogue = m_session.sharedConnection();
    TransactionGuard transaction(catalogue);
    catalogue.execute(UpdatePrices + SqlNumber(factor), CommandType::Text);
    transaction.commit();
    carryCurrentValueForward(increase);
    ui->txtTestValue->clear();
    ui->txtIncrease->clear();
    ui->txtIncrease->setFocus();
}

// The value is not read again from the catalogue. A preview is taken as it stands, even when
// the percentage changed after it; without one the new value shows as a plain number.
void FrmPrices::carryCurrentValueForward(double increase)
{
    if (!ui->txtTestValue->text().isEmpty()) {
        ui->txtCurrValue->setText(ui->txtTestValue->text());
        return;
    }
    const double current = NumberOfText(ui->txtCurrValue->text());
    ui->txtCurrValue->setText(TextOfNumber(current * (increase + 100) / 100));
}

void FrmPrices::on_cmdExit_clicked()
{
    m_forms.unload(this);
}

// The help of this form, as F1 pressed on it would open.
void FrmPrices::on_cmdHelp_clicked()
{
    SendHelpKey(this);
}
