#pragma once

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "support/modalresponder.h"
#include "support/testcatalogue.h"

#include <QObject>
#include <QToolButton>

#include <memory>

// Stands the doubles of the later areas' task forms in for the real forms on a frame;
// frmPrices is left out on purpose, as a form whose area is not built.
void registerDoubles(MainFrame &frame);

// A shown frame with every task form a double, and the modal boxes it raises answered; the
// catalogue is opened, through the open form, only by the tests that need it.
class MainFrameTest : public QObject
{
    Q_OBJECT

protected:
    std::unique_ptr<MainFrame> m_frame;
    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<ModalResponder> m_responder;

    void openCatalogue();
    void finish();
    QAction *entry(const QString &name) const { return m_frame->action(name); }
    QToolButton *button(const QString &key) const
    {
        return m_frame->findChild<QToolButton *>(key);
    }
    QWidget *loaded(const QString &name) const { return m_frame->forms().find(name); }
    void closeForm(const QString &name);

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
};
