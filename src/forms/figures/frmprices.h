#pragma once

#include <QWidget>

#include <memory>

class FormRegistry;
class MandatoryLeaveCheck;
struct Session;
namespace Ui {
class frmPrices;
}

// frmPrices: the value of the whole collection, a preview of it after a percentage rise or
// fall, and that percentage applied to every book's price in one statement. The figures live
// only as the text of the boxes; every step reads them back from there.
class FrmPrices : public QWidget
{
    Q_OBJECT

public:
    FrmPrices(FormRegistry &forms, Session &session, QWidget *parent = nullptr);
    ~FrmPrices() override;

private Q_SLOTS:
    void on_cmdTest_clicked();
    void on_cmdUpdate_clicked();
    void on_cmdExit_clicked();
    void on_cmdHelp_clicked();

private:
    void showCurrentValue();
    bool checkIncrease();
    void applyIncrease();
    void carryCurrentValueForward(double increase);

    std::unique_ptr<Ui::frmPrices> ui;
    FormRegistry &m_forms;
    Session &m_session;
    MandatoryLeaveCheck *m_increaseCheck;
};
