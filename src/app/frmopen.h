#pragma once

#include <QWidget>

#include <memory>

class MainFrame;
class QKeyEvent;
namespace Ui {
class frmOpen;
}

// frmOpen: the only way to open a catalogue. The path cannot be typed: it is the catalogue
// beside the program until the user picks another file with "...".
class FrmOpen : public QWidget
{
    Q_OBJECT

public:
    explicit FrmOpen(MainFrame &frame, QWidget *parent = nullptr);
    ~FrmOpen() override;

    // Puts `path` (made absolute) in the box and opens it as "Open" does.
    void openPath(const QString &path);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void on_cmdFind_clicked();
    void on_cmdOpen_clicked();
    void on_cmdExit_clicked();
    void on_cmdHelp_clicked();

private:
    bool filterDataBaseKey(const QKeyEvent *event);
    QWidget *tabTarget(bool forward) const;
    bool validateDataBase();
    void openCatalogue(const QString &path);
    void abandonOpen();

    std::unique_ptr<Ui::frmOpen> ui;
    MainFrame &m_frame;
    bool m_clickLeftDataBase = false;
};

// `shelvane PATH`: the open form, shown as File › Open Catalogue shows it, opens PATH. It
// stays on screen after a refusal, for another try or Exit, as after "Open".
void OpenCatalogueGiven(MainFrame &frame, const QString &path);
