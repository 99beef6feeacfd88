#include "forms/books/frmbookmaintenance.h"

#include "app/formregistry.h"
#include "app/helptopics.h"
#include "app/mainframe.h"
#include "data/datacontrol.h"
#include "data/providererror.h"
#include "data/recordsetmodel.h"
#include "forms/books/bookforms.h"
#include "forms/books/bookformsources.h"
#include "forms/books/linksides.h"
#include "recordform/bounddelegate.h"
#include "recordform/keyfilters.h"
#include "recordform/mandatoryleavecheck.h"
#include "recordform/msgbox.h"
#include "recordform/recordformcontroller.h"
#include "recordform/recordstatusbar.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmbookmaintenance.h"

#include <QDataWidgetMapper>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

// The error every data control of the form keeps quiet about.
constexpr int QuietError = ProviderErrorNumber::FetchFailed;

} // namespace

FrmBookMaintenance::FrmBookMaintenance(MainFrame &frame, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::frmBookMaintenance>())
    , m_frame(frame)
{
    ui->setupUi(this);
    setObjectName(BookFormName);
    m_stbContents = new RecordStatusBar(
        {RecordStatusBar::Panel::Text, RecordStatusBar::Panel::Text,
         RecordStatusBar::Panel::CapsLock, RecordStatusBar::Panel::NumLock,
         RecordStatusBar::Panel::Date, RecordStatusBar::Panel::Time},
        this);
    m_stbContents->setObjectName(u"stbContents"_s);
    m_stbContents->setPanelText(1, u"Ready"_s);
    ui->layForm->addWidget(m_stbContents);
    for (QWidget *button : {ui->cmdConfirmAdd, ui->cmdCancelAdd}) {
        button->hide();
        QSizePolicy policy = button->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        button->setSizePolicy(policy);
    }

    bindDataControls();
    if (m_frame.session().BookFilterPending)
        enterFilteredMode();
    setUpGrids();
    bindFields();
    setUpLookup();
    setUpChecks();
    makeController();
}

FrmBookMaintenance::~FrmBookMaintenance() = default;

DataControl *FrmBookMaintenance::addDataControl(const QString &name, const QString &recordSource)
{
    auto *control = new DataControl(this);
    control->setObjectName(name);
    control->setRecordSource(recordSource);
    connect(control, &DataControl::error, this,
            [](int number, const QString &, bool *cancelDisplay) {
                if (number == QuietError)
                    *cancelDisplay = true;
            });
    return control;
}

void FrmBookMaintenance::bindDataControls()
{
    QHash<QString, DataControl *> controls;
    for (const DataControlSource &source : BookFormSources())
        controls.insert(source.name, addDataControl(source.name, source.recordSource));
    adoAuthorLkup = controls.value(u"adoAuthorLkup"_s);
    adoAuthor = controls.value(u"adoAuthor"_s);
    adoTopic = controls.value(u"adoTopic"_s);
    adoBook = controls.value(u"adoBook"_s);
    adoBookLkup = controls.value(u"adoBookLkup"_s);
    adoPublisher = controls.value(u"adoPublisher"_s);

    // The rows follow their controls from the first Refresh on.
    m_bookRows = new RecordsetModel(adoBook, this);
    m_lookupRows = new RecordsetModel(adoBookLkup, this);
    m_publisherRows = new RecordsetModel(adoPublisher, this);
    connect(adoBook, &DataControl::moveComplete, this, &FrmBookMaintenance::onBookMoved);
    connect(adoTopic, &DataControl::willChangeRecord, this,
            &FrmBookMaintenance::fillEmptyNumbersWithZero);

    // In filtered mode the book's two controls are opened once, on the hits, by
    // enterFilteredMode(): reading every book first would double the load on a large catalogue.
    const bool filtered = m_frame.session().BookFilterPending;
    for (const DataControlSource &source : BookFormSources()) {
        DataControl *control = controls.value(source.name);
        control->setConnectionString(connectionString());
        // The author and topic lists show one book's links: they open on none here and on the
        // first book's once it is shown, never on every link of the catalogue.
        if (control == adoAuthor || control == adoTopic)
            control->setRecordSource(
                LinkSideOf(control == adoAuthor ? LinkSide::Author : LinkSide::Topic).listSource
                + u"0"_s);
        if (!filtered || (control != adoBook && control != adoBookLkup))
            control->Refresh();
    }
}

void FrmBookMaintenance::enterFilteredMode()
{
    m_frame.session().BookFilterPending = false;
    adoBookLkup->setRecordSource(FilteredLookupSource);
    adoBookLkup->Refresh();
    adoBook->setRecordSource(FilteredBookSource);
    adoBook->Refresh();
    m_stbContents->setPanelText(1, u"Filtered"_s);
    ui->cmdAdd->setEnabled(false);
}

void FrmBookMaintenance::bindFields()
{
    m_bookRows->setColumnFormat(u"BookPrice"_s, FieldFormat::Money);
    m_bookRows->setColumnFormat(u"BookSellPrice"_s, FieldFormat::Money);
    for (const QString &field : {u"BookPagesText"_s, u"BookWhenPublished"_s, u"BookWhenPurchased"_s,
                                 u"BookWhenSold"_s, u"BookIllustrations"_s, u"BookPlans"_s,
                                 u"BookMaps"_s})
        m_bookRows->setColumnFormat(field, FieldFormat::WholeNumber);

    ui->cboPublisher->setRowSource(m_publisherRows, u"PublisherName"_s, u"PublisherID"_s);
    // Thousands of publishers are not measured one by one to size the combo: the layout gives
    // it its width. It keeps the height of a combo without pictures.
    ui->cboPublisher->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    ui->cboPublisher->setIconSize(QSize(0, 0));
    m_mapper = new QDataWidgetMapper(this);
    m_mapper->setModel(m_bookRows);
    m_mapper->setItemDelegate(new BoundDelegate(m_mapper));
    m_mapper->setSubmitPolicy(QDataWidgetMapper::ManualSubmit);
    const QList<std::pair<QWidget *, QString>> fields{
        {ui->txtBookID, u"BookID"_s},
        {ui->txtDescription, u"BookDescription"_s},
        {ui->cboCondition, u"BookCondition"_s},
        {ui->cboCover, u"BookCover"_s},
        {ui->cboPublisher, u"BookPublisherId"_s},
        {ui->txtPages, u"BookPagesText"_s},
        {ui->txtIntroduction, u"BookPagesInto"_s},
        {ui->txtPrice, u"BookPrice"_s},
        {ui->txtSell, u"BookSellPrice"_s},
        {ui->txtWhenPublished, u"BookWhenPublished"_s},
        {ui->txtWhenPurchased, u"BookWhenPurchased"_s},
        {ui->txtWhenSold, u"BookWhenSold"_s},
        {ui->chkIllustrated, u"BookIllustrated"_s},
        {ui->txtIllustrations, u"BookIllustrations"_s},
        {ui->txtPlans, u"BookPlans"_s},
        {ui->txtMaps, u"BookMaps"_s},
        {ui->chkFirstEdition, u"Book1stEd"_s},
        {ui->chkBibliography, u"BookBibliography"_s},
        {ui->Text3, u"BookNotes"_s},
    };
    for (const auto &[widget, field] : fields)
        m_mapper->addMapping(widget, m_bookRows->column(field));
    connect(m_bookRows, &RecordsetModel::currentRowChanged, this,
            &FrmBookMaintenance::showCurrentRow);
    showCurrentRow(m_bookRows->currentRow());

    for (QLineEdit *box : {ui->txtPages, ui->txtIllustrations, ui->txtMaps, ui->txtPlans,
                           ui->txtWhenPublished, ui->txtWhenPurchased, ui->txtWhenSold})
        InstallKeyFilter(box, KeyFilter::DigitsOnly);
    for (QLineEdit *box : {ui->txtPrice, ui->txtSell})
        InstallKeyFilter(box, KeyFilter::Price);
}

void FrmBookMaintenance::setUpChecks()
{
    m_leaveCheck =
        new MandatoryLeaveCheck(this, [this](QWidget *field) { return checkField(field); });
    const QList<QWidget *> checked{ui->txtDescription, ui->txtPrice, ui->txtPages, ui->cboCover,
                                   ui->cboCondition, ui->cboPublisher, ui->txtWhenPublished};
    for (QWidget *field : checked)
        m_leaveCheck->watch(field);
    // Giving up an add, or asking for help, never has to get past an empty field first.
    m_leaveCheck->exempt(ui->cmdCancelAdd);
    m_leaveCheck->exempt(ui->cmdHelp);
}

Recordset *FrmBookMaintenance::books() const
{
    return &adoBook->openRecordset();
}

QString FrmBookMaintenance::connectionString() const
{
    return m_frame.session().connectionString();
}

QString FrmBookMaintenance::shownBookNumber() const
{
    return ui->txtBookID->text();
}

void FrmBookMaintenance::ReceivePromptAnswer(int answer)
{
    m_controller->receivePromptAnswer(answer);
}

void FrmBookMaintenance::RefreshPublisherList()
{
    // The book keeps its publisher while the list under it is read again.
    const QVariant chosen = ui->cboPublisher->boundText();
    adoPublisher->Refresh();
    ui->cboPublisher->setBoundText(chosen);
}

void FrmBookMaintenance::closeEvent(QCloseEvent *event)
{
    m_controller->close(event);
}

// "Yes" to Confirm Exit: the row is written before it is checked, in that order.
bool FrmBookMaintenance::applyUpdatesOnExit()
{
    books()->move(0);
    ValidateBook();
    if (InvalidEntry)
        return false;
    if (Recordset *topics = adoTopic->recordset())
        topics->move(0);
    return true;
}

void FrmBookMaintenance::on_cmdExit_clicked()
{
    m_frame.forms().unload(this);
}

void FrmBookMaintenance::on_cmdHelp_clicked()
{
    SendHelpKey(this);
}

void FrmBookMaintenance::on_cmdPrintLabel_clicked()
{
    if (ui->txtBookID->text().isEmpty()) {
        MsgBox(u"Please select a book before trying to print label"_s,
               Vb::OKOnly | Vb::Exclamation, u"Print Label"_s);
        return;
    }
    m_frame.runCommand(u"cmdPrintLabel"_s, ui->txtBookID->text());
}

bool FrmBookMaintenance::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Delete) {
        for (const LinkSideTexts &side : LinkSides()) {
            if (watched == grid(side.side)) {
                RunHandler([&] { removeCurrentLink(side.side); });
                return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}
