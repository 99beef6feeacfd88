#include "app/frmabout.h"

#include "app/helptopics.h"
#include "app/programicon.h"
#include "app/sysinfo.h"
#include "ui_frmabout.h"

#include <QCoreApplication>
#include <QVersionNumber>

using namespace Qt::StringLiterals;

FrmAbout::FrmAbout(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::FrmAbout>())
{
    m_ui->setupUi(this);
    m_ui->picIcon->setPixmap(ProgramIcon().pixmap(48));
    m_ui->lblVersion->setText(VersionText(QCoreApplication::applicationVersion()));
    m_ui->lblDescription->setText(QStringLiteral(SHELVANE_DESCRIPTION));
}

FrmAbout::~FrmAbout() = default;

QString FrmAbout::VersionText(const QString &applicationVersion)
{
    const QVersionNumber version = QVersionNumber::fromString(applicationVersion);
    return u"Version "_s + QString::number(version.majorVersion()) + u'.'
        + QString::number(version.minorVersion()) + u'.' + QString::number(version.microVersion());
}

void FrmAbout::on_cmdOK_clicked()
{
    close();
}

void FrmAbout::on_cmdSysInfo_clicked()
{
    StartSysInfo(LocalMachineRegistry());
}

void FrmAbout::on_cmdHelp_clicked()
{
    ShowHelpForForm(objectName());
}
