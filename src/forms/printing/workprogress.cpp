#include "forms/printing/workprogress.h"

#include <QFontMetrics>

using namespace Qt::StringLiterals;

namespace {

// Work of this many steps takes long enough to show its progress at once.
constexpr int ManySteps = 1000;
// The dialog moves on by at least this share of the work at a time.
constexpr int Updates = 200;
// A title bar's icon and buttons beside the title, which the window manager elides when the
// window is narrower than the whole.
constexpr int TitleBarFurniture = 150;

} // namespace

WorkProgress::WorkProgress(QWidget *parent, const QString &title, const QString &what, int total)
    : m_dialog(what, u"Cancel"_s, 0, 0, parent)
{
    m_dialog.setObjectName(u"dlgReportProgress"_s);
    m_dialog.setWindowTitle(title);
    m_dialog.setWindowModality(Qt::WindowModal);
    m_dialog.setMinimumDuration(500);
    // Title bars are commonly set in bold.
    QFont titleFont = m_dialog.font();
    titleFont.setBold(true);
    m_dialog.setMinimumWidth(QFontMetrics(titleFont).horizontalAdvance(title) + TitleBarFurniture);
    setTotal(total);
}

void WorkProgress::setTotal(int total)
{
    if (total == m_dialog.maximum())
        return;
    m_dialog.setMaximum(total);
    if (total >= ManySteps)
        m_dialog.setMinimumDuration(0);
    m_dialog.setValue(0);
    m_shown = 0;
}

bool WorkProgress::step(int done)
{
    const int total = m_dialog.maximum();
    if (done < total && done - m_shown < std::max(1, total / Updates))
        return !m_dialog.wasCanceled();
    m_shown = done;
    m_dialog.setValue(done);
    return !m_dialog.wasCanceled();
}
