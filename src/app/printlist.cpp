#include "app/printlist.h"

#include "recordform/msgbox.h"

#include <QAction>
#include <QMenu>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

bool isIgnored(const QWidget *form)
{
    return form->property("tag").toString() == u"Ignore";
}

} // namespace

void RefreshWindowList(QMenu *mnuPrint, const QList<QWidget *> &loadedForms)
{
    const QList<QAction *> items = mnuPrint->actions();
    for (qsizetype i = 1; i < items.size(); ++i) {
        mnuPrint->removeAction(items.at(i));
        delete items.at(i);
    }
    for (QWidget *form : loadedForms) {
        if (isIgnored(form))
            continue;
        QAction *item = mnuPrint->addAction(form->windowTitle());
        item->setObjectName(u"mnuPrintForm"_s);
        item->setData(form->objectName());
    }
}

bool printFormImage(QWidget *form, QPrinter &printer)
{
    const QPixmap image = form->grab();
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    const QRect page = painter.viewport();
    const QSize size = image.size().scaled(page.size(), Qt::KeepAspectRatio);
    painter.drawPixmap(QRect(page.topLeft(), size), image);
    return painter.end();
}

void printFormOnDefaultPrinter(QWidget *form)
{
    const QPrinterInfo printerInfo = QPrinterInfo::defaultPrinter();
    if (printerInfo.isNull()) {
        MsgBox(u"There is no printer to print on."_s + u"\r\n"_s
                   + u"Please install a printer and try again."_s,
               Vb::OKOnly | Vb::Exclamation, u"Print Screen"_s);
        return;
    }
    QPrinter printer(printerInfo, QPrinter::HighResolution);
    if (!printFormImage(form, printer)) {
        MsgBox(u"The printer "_s + printerInfo.printerName() + u" could not print."_s,
               Vb::OKOnly | Vb::Exclamation, u"Print Screen"_s);
    }
}
