#include "recordform/promptdialog.h"

#include "recordform/prompttexts.h"
#include "ui_promptdialog.h"

#include <QApplication>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

QWidget *findForm(const QString &name)
{
    const QList<QWidget *> widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (widget->objectName() == name)
            return widget;
    }
    return nullptr;
}

} // namespace

PromptDialog::PromptDialog(PromptKind kind, const QString &calledFrom, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::PromptDialog>())
    , m_kind(kind)
    , m_strCalledFrom(calledFrom)
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    if (kind == PromptKind::Delete) {
        // The delete prompt has no picture, and its design texts are placeholders.
        delete m_ui->Picture1;
        m_ui->Picture1 = nullptr;
        m_ui->gridLayout->removeWidget(m_ui->lblAddPrompt);
        m_ui->gridLayout->addWidget(m_ui->lblAddPrompt, 0, 0, 1, 2);
        setObjectName(u"dlgDelPrompt"_s);
        setWindowTitle(u"Dialog Caption"_s);
        m_ui->lblAddPrompt->clear();
    } else {
        const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
        m_ui->Picture1->setPixmap(
            style()->standardIcon(QStyle::SP_MessageBoxInformation, nullptr, this).pixmap(size));
    }
    chooseTexts();
}

PromptDialog::~PromptDialog() = default;

void PromptDialog::Ask(PromptKind kind, const QString &calledFrom)
{
    PromptDialog dialog(kind, calledFrom, QApplication::activeWindow());
    dialog.exec();
}

bool PromptDialog::GoAhead(PromptKind kind, const QString &calledFrom, int &answer)
{
    if (PromptWanted(calledFrom, kind))
        Ask(kind, calledFrom);
    else
        answer = AnswerGoAhead;
    return answer == AnswerGoAhead;
}

void PromptDialog::chooseTexts()
{
    // Only the search form has a hit count; every other caller words its prompt without one.
    const QWidget *caller = findForm(m_strCalledFrom);
    const int booksFound = caller ? caller->property("intBooksFound").toInt() : 0;
    const std::optional<PromptText> text = PromptTextFor(m_kind, m_strCalledFrom, booksFound);
    if (!text)
        return;
    setWindowTitle(text->caption);
    m_ui->lblAddPrompt->setText(QString(text->text).replace(u"\r\n"_s, u"\n"_s));
}

void PromptDialog::on_OKButton_clicked()
{
    answerCaller(AnswerGoAhead);
    accept();
}

void PromptDialog::on_cmdCancel_clicked()
{
    answerCaller(AnswerCancel);
    reject();
}

void PromptDialog::on_chkShowAgain_clicked(bool checked)
{
    // Written at the click: the choice stands whether the user then presses OK or Cancel.
    StorePromptSetting(m_strCalledFrom, m_kind, checked ? u"N"_s : u"Y"_s);
    ClearHelpPromptMark(checked ? u"mnuOn"_s : u"mnuOff"_s);
}

void PromptDialog::answerCaller(int answer)
{
    if (!PromptAnswersReach(m_kind, m_strCalledFrom))
        return;
    if (QWidget *form = findForm(m_strCalledFrom))
        QMetaObject::invokeMethod(form, "ReceivePromptAnswer", Q_ARG(int, answer));
}
