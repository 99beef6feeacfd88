#include "forms/figures/frmbookstats.h"

#include "app/formregistry.h"
#include "app/helptopics.h"
#include "catalogue/session.h"
#include "data/fieldformat.h"
#include "data/recordset.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmbookstats.h"


using namespace Qt::StringLiterals;

namespace {

const QString FiguresSource =
    u"select count(*) as TotalNoBooks, sum(BookPrice) as TotalValue, avg(BookPrice) as "
    "AverageCost, max(BookPrice) as Expensive, min(BookPrice) as Cheapest, "
    "min(BookWhenPublished) as Oldest from tblBook"_s;
// Books without a publication date hold 0 there; they are no candidates for the oldest.
const QString OldestSource =
    u"select   min(BookWhenPublished) as Oldest from tblBook where BookWhenPublished <> 0"_s;

} // namespace

FrmBookStats::FrmBookStats(FormRegistry &forms, Session &session, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::frmBookStats>())
    , m_forms(forms)
    , m_session(session)
{
    ui->setupUi(this);
    RunHandler([this] {
        showFigures();
        showOldest();
    });
}

FrmBookStats::~FrmBookStats() = default;

void FrmBookStats::showFigures()
{
    const auto figures = Recordset::open(m_session.sharedConnection(), FiguresSource);
    ui->txtTotalNoBooks->setText(figures->value(u"TotalNoBooks"_s).toString());
    // Null sums of an empty catalogue show as empty boxes.
    const QList<std::pair<QLineEdit *, QString>> money{
        {ui->txtTotalValue, u"TotalValue"_s},
        {ui->txtAverageCost, u"AverageCost"_s},
        {ui->txtExpensive, u"Expensive"_s},
        {ui->txtCheapest, u"Cheapest"_s},
    };
    for (const auto &[box, field] : money)
        box->setText(FieldFormats::display(figures->value(field), FieldFormat::Money));
}

void FrmBookStats::showOldest()
{
    const auto oldest = Recordset::open(m_session.sharedConnection(), OldestSource);
    const QVariant year = oldest->value(u"Oldest"_s);
    if (!year.isNull())
        ui->txtOldest->setText(year.toString());
}

void FrmBookStats::on_cmdExit_clicked()
{
    m_forms.unload(this);
}

// The help of this form, as F1 pressed on it would open.
void FrmBookStats::on_cmdHelp_clicked()
{
    SendHelpKey(this);
}
