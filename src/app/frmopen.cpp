#include "app/frmopen.h"

#include "ui_frmopen.h"

#include "app/catalogueconversion.h"
#include "app/formregistry.h"
#include "app/helptopics.h"
#include "app/mainframe.h"
#include "app/programfolder.h"
#include "data/catalogueformat.h"
#include "data/providererror.h"
#include "data/runtimeerror.h"
#include "recordform/msgbox.h"
#include "recordform/runtimeerrorreport.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLocale>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Only the tail of the path is compared, and with its letter case.
bool hasCatalogueName(const QString &path)
{
    return path.right(CatalogueFileName.size()) == CatalogueFileName;
}

void showIncorrectName()
{
    MsgBox(u"Incorrect database name. "_s + u"\r\n"_s + u"Please try again or 'Exit'"_s,
           Vb::OKOnly, u"Database Open Error"_s);
}

// A control causes validation unless its "causesValidation" property says otherwise: Exit
// and Help must stay usable with a wrong path in the box, which the message itself offers.
bool causesValidation(const QObject *control)
{
    const QVariant value = control->property("causesValidation");
    return !value.isValid() || value.toBool();
}

} // namespace

FrmOpen::FrmOpen(MainFrame &frame, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::frmOpen>())
    , m_frame(frame)
{
    ui->setupUi(this);
    ui->txtDataBase->setText(
        QDir::toNativeSeparators(QDir(ProgramFolder()).filePath(CatalogueFileName)));
    ui->txtDataBase->installEventFilter(this);
    for (QPushButton *button : {ui->cmdFind, ui->cmdOpen, ui->cmdExit, ui->cmdHelp})
        button->installEventFilter(this);
}

FrmOpen::~FrmOpen() = default;

bool FrmOpen::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ui->txtDataBase) {
        if (event->type() == QEvent::KeyPress)
            return filterDataBaseKey(static_cast<QKeyEvent *>(event));
        if (event->type() == QEvent::InputMethod)
            return true;
        // A click moves the focus before the clicked control sees the press.
        if (event->type() == QEvent::FocusOut
            && static_cast<QFocusEvent *>(event)->reason() == Qt::MouseFocusReason)
            m_clickLeftDataBase = true;
    } else if (event->type() == QEvent::MouseButtonPress
               && std::exchange(m_clickLeftDataBase, false) && causesValidation(watched)
               && !validateDataBase()) {
        // Focus cannot leave a wrong path for a control that validates it: the click is lost.
        ui->txtDataBase->setFocus();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// Every key but Tab is swallowed; Tab moves on once the path has passed validation.
bool FrmOpen::filterDataBaseKey(const QKeyEvent *event)
{
    const bool forward = event->key() == Qt::Key_Tab;
    if (!forward && event->key() != Qt::Key_Backtab)
        return true;
    const QWidget *target = tabTarget(forward);
    if (target && causesValidation(target))
        return !validateDataBase();
    return false;
}

QWidget *FrmOpen::tabTarget(bool forward) const
{
    QWidget *candidate = ui->txtDataBase;
    do {
        candidate = forward ? candidate->nextInFocusChain() : candidate->previousInFocusChain();
        if ((candidate->focusPolicy() & Qt::TabFocus) && candidate->isEnabled()
            && candidate->isVisibleTo(this))
            return candidate;
    } while (candidate != ui->txtDataBase);
    return nullptr;
}

bool FrmOpen::validateDataBase()
{
    if (hasCatalogueName(ui->txtDataBase->text()))
        return true;
    showIncorrectName();
    return false;
}

void FrmOpen::on_cmdFind_clicked()
{
    QFileDialog cdgOpenDatabase(this);
    cdgOpenDatabase.setObjectName(u"cdgOpenDatabase"_s);
    cdgOpenDatabase.setAcceptMode(QFileDialog::AcceptOpen);
    cdgOpenDatabase.setFileMode(QFileDialog::ExistingFile);
    cdgOpenDatabase.setNameFilter(u"Database Files (*.mdb)"_s);
    cdgOpenDatabase.setDirectory(ProgramFolder());
    // Cancelling leaves the path as it was, without a word.
    if (cdgOpenDatabase.exec() != QDialog::Accepted || cdgOpenDatabase.selectedFiles().isEmpty())
        return;
    const QString chosen = QDir::toNativeSeparators(cdgOpenDatabase.selectedFiles().constFirst());
    // The whole file name must match here; the path is shown even when it does not, and
    // "Open" refuses it.
    if (QFileInfo(chosen).fileName() != CatalogueFileName)
        showIncorrectName();
    ui->txtDataBase->setText(chosen);
}

void FrmOpen::openPath(const QString &path)
{
    ui->txtDataBase->setText(QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath()));
    on_cmdOpen_clicked();
}

void FrmOpen::on_cmdOpen_clicked()
{
    const QString path = ui->txtDataBase->text();
    if (!hasCatalogueName(path)) {
        showIncorrectName();
        return;
    }
    if (!QFileInfo(path).isFile()) {
        MsgBox(u"Database does not exist!"_s + u"\r\n"_s + u"Please try again or 'Exit'"_s,
               Vb::OKOnly, u"Database Open Error"_s);
        return;
    }
    // A catalogue of the older format is converted first, or not opened at all.
    if (CatalogueFormat::ofFile(path) == CatalogueFormat::Kind::Jet && !OfferConversion(path, this))
        return;
    openCatalogue(path);
}

void FrmOpen::openCatalogue(const QString &path)
{
    Session &session = m_frame.session();
    session.strCataloguePath = path;
    MsgBox(u"Quireshelf Sucessfully opened"_s, Vb::OKOnly, u"Shelvane"_s);
    try {
        m_frame.startSession();
    } catch (const ProviderError &error) {
        abandonOpen();
        ReportRuntimeError(error.number, error.description);
        return;
    } catch (const RuntimeError &error) {
        abandonOpen();
        ReportRuntimeError(error.number, error.description);
        return;
    }
    m_frame.forms().unload(this);
}

// A file that cannot be opened as a catalogue leaves no catalogue open; this form stays for
// another try.
void FrmOpen::abandonOpen()
{
    FormRegistry &forms = m_frame.forms();
    for (QWidget *form : forms.loadedForms()) {
        const FormEntry *entry = forms.entryOf(form);
        if (entry && entry->loadedWithCatalogue)
            forms.unload(form);
    }
    m_frame.session().clear();
    m_frame.showNoCatalogue();
}

void FrmOpen::on_cmdExit_clicked()
{
    m_frame.forms().unload(this);
}

void FrmOpen::on_cmdHelp_clicked()
{
    SendHelpKey(this);
}

void OpenCatalogueGiven(MainFrame &frame, const QString &path)
{
    frame.openCatalogue();
    if (auto *form = qobject_cast<FrmOpen *>(frame.forms().find(u"frmOpen"_s)))
        form->openPath(path);
}
