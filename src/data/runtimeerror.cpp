#include "data/runtimeerror.h"

#include <limits>

using namespace Qt::StringLiterals;

qint16 toInt16(qint64 value)
{
    if (value < std::numeric_limits<qint16>::min() || value > std::numeric_limits<qint16>::max())
        throw RuntimeError{6, u"Overflow"_s};
    return static_cast<qint16>(value);
}
