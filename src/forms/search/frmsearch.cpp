#include "forms/search/frmsearch.h"

#include "app/formregistry.h"
#include "app/helptopics.h"
#include "app/mainframe.h"
#include "data/connection.h"
#include "data/datacontrol.h"
#include "data/recordset.h"
#include "data/recordsetmodel.h"
#include "data/runtimeerror.h"
#include "forms/search/bookhandover.h"
#include "recordform/datacombo.h"
#include "recordform/keyfilters.h"
#include "recordform/msgbox.h"
#include "recordform/promptdialog.h"
#include "recordform/promptpreference.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmsearch.h"

#include <QCheckBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

const QString FormName = u"frmSearch"_s;

// A locked input takes no typing or picking, and looks it.
void setLocked(QWidget *input, bool locked)
{
    input->setEnabled(!locked);
}

void empty(QWidget *input)
{
    if (auto *box = qobject_cast<QLineEdit *>(input)) {
        box->clear();
    } else if (auto *lookup = qobject_cast<QComboBox *>(input)) {
        lookup->setCurrentIndex(-1);
        lookup->clearEditText();
    }
}

QString textOf(const QLineEdit *box)
{
    return box->text();
}

QString textOf(const QComboBox *lookup)
{
    return lookup->currentText();
}

} // namespace

FrmSearch::FrmSearch(MainFrame &frame, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::frmSearch>())
    , m_frame(frame)
{
    ui->setupUi(this);
    setObjectName(FormName);
    // Bound in this order, as the form always has: authors, publishers, topics.
    addLookup(u"adoAuthorLkup"_s, u"select * from tblauthor order by authorsurname"_s,
              ui->dboAuthorLkup, u"AuthorSurname"_s, u"AuthorID"_s);
    addLookup(u"adoPublisherLkup"_s, u"select * from tblpublisher order by publishername"_s,
              ui->dboPublisherLkup, u"PublisherName"_s, u"PublisherID"_s);
    addLookup(u"adoTopicLkup"_s, u"select * from tbltopic order by topicdescription"_s,
              ui->dboTopicLkup, u"TopicDescription"_s, u"TopicID"_s);
    setUpCriteria();
}

FrmSearch::~FrmSearch() = default;

void FrmSearch::addLookup(const QString &name, const QString &recordSource, DataCombo *combo,
                          const QString &listField, const QString &boundColumn)
{
    auto *control = new DataControl(this);
    control->setObjectName(name);
    control->setRecordSource(recordSource);
    auto *rows = new RecordsetModel(control, this);
    control->setConnectionString(m_frame.session().connectionString());
    control->Refresh();
    combo->setRowSource(rows, listField, boundColumn);
}

void FrmSearch::setUpCriteria()
{
    m_criteria = {
        {ui->chkTitle, {ui->txtTitle}},
        {ui->chkAuthor, {ui->dboAuthorLkup, ui->txtAuthor}},
        {ui->chkTopic, {ui->dboTopicLkup, ui->txtTopic}},
        {ui->chkPublisher, {ui->dboPublisherLkup, ui->txtPublisher}},
        {ui->chkPrice, {ui->txtPriceFrom, ui->txtPriceTo}},
        {ui->chkDate, {ui->txtDateFrom, ui->txtDateTo}},
    };
    for (const Criterion &criterion : std::as_const(m_criteria)) {
        for (QWidget *input : criterion.inputs) {
            setLocked(input, true);
            empty(input);
        }
        // Also when Reset clears the box: a cleared criterion is emptied and locked.
        connect(criterion.box, &QCheckBox::toggled, this, [criterion](bool ticked) {
            for (QWidget *input : criterion.inputs) {
                setLocked(input, !ticked);
                if (!ticked)
                    empty(input);
            }
        });
    }
    for (QLineEdit *text : {ui->txtTitle, ui->txtAuthor, ui->txtTopic, ui->txtPublisher})
        InstallKeyFilter(text, KeyFilter::LettersAndStar);
    for (QLineEdit *bound : {ui->txtPriceFrom, ui->txtPriceTo, ui->txtDateFrom, ui->txtDateTo})
        InstallKeyFilter(bound, KeyFilter::DigitsOnly);
}

SearchCriteria FrmSearch::criteria() const
{
    SearchCriteria criteria;
    criteria.title = {ui->chkTitle->isChecked(), textOf(ui->txtTitle)};
    criteria.author = {ui->chkAuthor->isChecked(), textOf(ui->dboAuthorLkup),
                       textOf(ui->txtAuthor)};
    criteria.topic = {ui->chkTopic->isChecked(), textOf(ui->dboTopicLkup), textOf(ui->txtTopic)};
    criteria.publisher = {ui->chkPublisher->isChecked(), textOf(ui->dboPublisherLkup),
                          textOf(ui->txtPublisher)};
    criteria.price = {ui->chkPrice->isChecked(), textOf(ui->txtPriceFrom),
                      textOf(ui->txtPriceTo)};
    criteria.date = {ui->chkDate->isChecked(), textOf(ui->txtDateFrom), textOf(ui->txtDateTo)};
    return criteria;
}

void FrmSearch::ReceivePromptAnswer(int answer)
{
    PromptAnswer = answer;
}

void FrmSearch::on_cmdSearch_clicked()
{
    RunHandler([this] { Search(); });
}

void FrmSearch::Search()
{
    Connection connection;
    connection.open(m_frame.session().connectionString());
    const QString statement = SearchStatement(criteria());
    const int found = connection.execute(statement)->recordCount();
    if (found == 0) {
        MsgBox(u"No Books found matching the specified search criteria"_s, Vb::OKOnly,
               u"Search Result"_s);
        return;
    }
    intBooksFound = toInt16(found);
    if (!PromptDialog::GoAhead(PromptKind::AddNew, FormName, PromptAnswer)) {
        on_cmdReset_clicked();
        return;
    }
    ReplaceHits(connection, statement);
    connection.close();
    ShowBookFormFiltered(m_frame);
}

void FrmSearch::on_cmdReset_clicked()
{
    for (const Criterion &criterion : std::as_const(m_criteria)) {
        criterion.box->setChecked(false);
        for (QWidget *input : criterion.inputs) {
            empty(input);
            setLocked(input, true);
        }
    }
}

void FrmSearch::on_cmdExit_clicked()
{
    m_frame.forms().unload(this);
}

void FrmSearch::on_cmdHelp_clicked()
{
    SendHelpKey(this);
}
