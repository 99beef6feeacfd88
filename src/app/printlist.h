#pragma once

#include <QList>
#include <QString>

class QMenu;
class QPrinter;
class QWidget;

// File › Print Screen: the loaded forms whose tag is not "Ignore", each item named by its
// form's caption and carrying the form's name. Item 0 (the separator) stays; the rest is
// rebuilt from the forms given, in their load order.
void RefreshWindowList(QMenu *mnuPrint, const QList<QWidget *> &loadedForms);

// Paints the form's image, scaled to fit the page and keeping its proportions.
bool printFormImage(QWidget *form, QPrinter &printer);
// Prints the form's image on the default printer, or says that there is none.
void printFormOnDefaultPrinter(QWidget *form);
