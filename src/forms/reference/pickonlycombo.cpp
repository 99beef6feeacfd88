#include "forms/reference/pickonlycombo.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>

namespace {

class PickOnlyFilter : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease: {
            const int key = static_cast<QKeyEvent *>(event)->key();
            return key != Qt::Key_Tab && key != Qt::Key_Backtab;
        }
        case QEvent::InputMethod:
        case QEvent::Wheel:
            return true;
        default:
            return QObject::eventFilter(watched, event);
        }
    }
};

} // namespace

void MakePickOnly(QComboBox *combo)
{
    auto *filter = new PickOnlyFilter(combo);
    combo->installEventFilter(filter);
    combo->view()->installEventFilter(filter);
}
