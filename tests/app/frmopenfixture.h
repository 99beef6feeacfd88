#pragma once

#include "app/mainframe.h"
#include "support/modalresponder.h"

#include <QObject>

#include <memory>

class QLineEdit;

// The catalogue's file name, as frmOpen wants it.
extern const QString CatalogueName;

// The messages of frmOpen and of the run-time error report, as the user sees them.
ModalExpectation incorrectName();
ModalExpectation doesNotExist();
ModalExpectation openedMessage();
ModalExpectation runtimeError(int number, const QString &description);
// The file dialog's answer: the file typed in and accepted, as a person would.
ModalExpectation chooseFile(const QString &path);

void writeFile(const QString &path, const QByteArray &content);

// A shown frame with no catalogue open, two task forms stood in for by doubles, and one
// responder answering every modal window.
class FrmOpenTest : public QObject
{
    Q_OBJECT

protected:
    std::unique_ptr<MainFrame> m_frame;
    ModalResponder *m_responder = nullptr;

    QWidget *showOpenForm();
    static void activate(QWidget *form);
    QLineEdit *txtDataBase(QWidget *form);
    void click(QWidget *form, const QString &button);
    // Picks the file through "...", with the messages expected on the way.
    void choose(QWidget *form, const QString &path, const QList<ModalExpectation> &messages = {});
    void expectNoCatalogue();

private Q_SLOTS:
    void init();
    void cleanup();
};
