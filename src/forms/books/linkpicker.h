#pragma once

#include "forms/books/frmbookmaintenance.h"

#include <QDialog>

#include <memory>

class DataControl;
class MainFrame;
struct LinkSideTexts;
namespace Ui {
class LinkPicker;
}

// dlgGetAuthor and dlgGetTopic: pick an author (or topic) from a list and link it to the
// book the book form shows when OK is pressed. Modeless, so the user may move on in the book
// form while it is open.
class LinkPicker : public QDialog
{
    Q_OBJECT

public:
    LinkPicker(LinkSide side, MainFrame &frame, QWidget *parent = nullptr);
    ~LinkPicker() override;

private Q_SLOTS:
    void on_OKButton_clicked();
    void on_CancelButton_clicked();

private:
    bool insertLink(FrmBookMaintenance &form, const QString &pickedKey);
    void refuse(const QString &message);

    std::unique_ptr<Ui::LinkPicker> ui;
    const LinkSideTexts &m_texts;
    MainFrame &m_frame;
    DataControl *m_lookup;
};
