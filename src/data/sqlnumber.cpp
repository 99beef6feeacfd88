#include "data/sqlnumber.h"

#include <QLocale>

QString SqlNumber(double number)
{
    return QString::number(number, 'f', QLocale::FloatingPointShortest);
}
