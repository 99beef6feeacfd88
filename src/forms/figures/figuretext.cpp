#include "forms/figures/figuretext.h"

#include "data/fieldformat.h"
#include "data/runtimeerror.h"

#include <QLocale>
#include <QVariant>

using namespace Qt::StringLiterals;

double NumberOfText(const QString &text)
{
    const QVariant number = FieldFormats::parse(text, FieldFormat::Money);
    if (!number.isValid() || number.isNull())
        throw RuntimeError{13, u"Type mismatch"_s};
    return number.toDouble();
}

QString TextOfNumber(double number)
{
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(number, 'f', QLocale::FloatingPointShortest);
}
