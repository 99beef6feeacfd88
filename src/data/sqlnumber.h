#pragma once

#include <QString>

// A number as SQL reads it, whatever the locale: a point as the decimal mark, no grouping, no
// exponent, and every digit the double needs to read back as itself, so that none of the four
// decimals a price is kept to is lost ("12.5", "1234.56", "0.975", "-3").
QString SqlNumber(double number);
