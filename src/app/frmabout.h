#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class FrmAbout;
}

// The about box: the program's name, version and description, and a way to the machine's
// system-information program.
class FrmAbout : public QWidget
{
    Q_OBJECT

public:
    explicit FrmAbout(QWidget *parent = nullptr);
    ~FrmAbout() override;

    // "Version " and the application's version as major.minor.revision, each a plain number.
    static QString VersionText(const QString &applicationVersion);

private Q_SLOTS:
    void on_cmdOK_clicked();
    void on_cmdSysInfo_clicked();
    void on_cmdHelp_clicked();

private:
    std::unique_ptr<Ui::FrmAbout> m_ui;
};
