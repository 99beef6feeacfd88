#pragma once

#include "recordform/promptpreference.h"

#include <QDialog>

#include <memory>

namespace Ui {
class PromptDialog;
}

// The add prompt dlgAddPrompt and the delete prompt dlgDelPrompt: a short explanation of what
// the calling form is about to do, OK or Cancel, and "Don't show this prompt again.". The
// calling form is told by name (strCalledFrom) and receives the answer through its
// ReceivePromptAnswer(int): 6 for OK, 7 for Cancel; closing the window answers nothing.
class PromptDialog : public QDialog
{
    Q_OBJECT

public:
    // The answers a calling form receives.
    static constexpr int AnswerGoAhead = 6;
    static constexpr int AnswerCancel = 7;

    PromptDialog(PromptKind kind, const QString &calledFrom, QWidget *parent = nullptr);
    ~PromptDialog() override;

    // Shows the prompt modally over the active window for the form named calledFrom.
    static void Ask(PromptKind kind, const QString &calledFrom);
    // A form's question before it acts: the prompt when the user wants it, whose answer the
    // form's ReceivePromptAnswer keeps in `answer`, else going ahead. Answers whether to.
    static bool GoAhead(PromptKind kind, const QString &calledFrom, int &answer);

private Q_SLOTS:
    void on_OKButton_clicked();
    void on_cmdCancel_clicked();
    void on_chkShowAgain_clicked(bool checked);

private:
    void chooseTexts();
    void answerCaller(int answer);

    std::unique_ptr<Ui::PromptDialog> m_ui;
    PromptKind m_kind;
    QString m_strCalledFrom;
};
