#pragma once

#include <QList>
#include <QWidget>

#include <memory>

class MainFrame;
class QLineEdit;
namespace Ui {
class frmCatalogueControl;
}

// frmCatalogueControl: the catalogue's name and its owner's name, address and numbers, the
// one row of tblCatalogueControl that heads the printed reports. The boxes are not bound:
// the form reads the row when it loads and rewrites it on "Update", each time through a
// connection of its own.
class FrmCatalogueControl : public QWidget
{
    Q_OBJECT

public:
    explicit FrmCatalogueControl(MainFrame &frame, QWidget *parent = nullptr);
    ~FrmCatalogueControl() override;

private Q_SLOTS:
    void on_cmdUpdate_clicked();
    void on_cmdExit_clicked();
    void on_cmdHelp_clicked();

private:
    // The boxes in the order of the table's columns.
    QList<QLineEdit *> fieldBoxes() const;
    void loadOwnerDetails();
    void writeOwnerDetails();
    QString updateStatement() const;

    std::unique_ptr<Ui::frmCatalogueControl> ui;
    MainFrame &m_frame;
};
