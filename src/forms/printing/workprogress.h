#pragma once

#include <QProgressDialog>

class QWidget;

// The progress of work that takes more than a moment (printing, exporting, copying the
// labels): a dialog over `parent` that the user can cancel, wide enough to show its title
// whole. Work of many steps shows it from the start, shorter work only once it lasts.
class WorkProgress
{
public:
    WorkProgress(QWidget *parent, const QString &title, const QString &what, int total = 0);

    // The steps there are, once the work knows.
    void setTotal(int total);
    // Shows `done` steps of the total; false once the user has cancelled. The dialog follows
    // only as often as the eye can, so that thousands of small steps cost nothing.
    bool step(int done);

private:
    QProgressDialog m_dialog;
    int m_shown = 0;
};
