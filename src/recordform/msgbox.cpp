#include "recordform/msgbox.h"

#include <QApplication>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int ButtonMask = 0x0F;
constexpr int IconMask = 0x70;

QMessageBox::StandardButtons buttonsFor(int style)
{
    switch (style & ButtonMask) {
    case Vb::OKCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case Vb::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Vb::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    default:
        return QMessageBox::Ok;
    }
}

QMessageBox::Icon iconFor(int style)
{
    switch (style & IconMask) {
    case Vb::Critical:
        return QMessageBox::Critical;
    case Vb::Question:
        return QMessageBox::Question;
    case Vb::Exclamation:
        return QMessageBox::Warning;
    case Vb::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

int answerFor(int button)
{
    switch (button) {
    case QMessageBox::Cancel:
        return Vb::Cancel;
    case QMessageBox::Yes:
        return Vb::Yes;
    case QMessageBox::No:
        return Vb::No;
    default:
        return Vb::OK;
    }
}

QWidget *ownerWindow()
{
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    return QApplication::activeWindow();
}

} // namespace

int MsgBox(const QString &text, int style, const QString &title)
{
    const QString caption = title.isEmpty() ? QCoreApplication::applicationName() : title;
    QMessageBox box(iconFor(style), caption, QString(text).replace(u"\r\n"_s, u"\n"_s),
                    buttonsFor(style), ownerWindow());
    box.setTextFormat(Qt::PlainText);
    return answerFor(box.exec());
}
