#pragma once

#include <QWidget>

#include <memory>

class FormRegistry;
struct Session;
namespace Ui {
class frmBookStats;
}

// frmBookStats: six figures about the whole catalogue, computed once when the form loads.
// To see new figures the user closes the form and opens it again.
class FrmBookStats : public QWidget
{
    Q_OBJECT

public:
    FrmBookStats(FormRegistry &forms, Session &session, QWidget *parent = nullptr);
    ~FrmBookStats() override;

private Q_SLOTS:
    void on_cmdExit_clicked();
    void on_cmdHelp_clicked();

private:
    void showFigures();
    void showOldest();

    std::unique_ptr<Ui::frmBookStats> ui;
    FormRegistry &m_forms;
    Session &m_session;
};
