#include "NumberPattern_p.h"

using namespace KTPrivate;

bool NumberPattern::isAcceptable(const QString &pattern)
{
    constexpr qsizetype MaximumLength = 1024;
    return pattern.size() <= MaximumLength;
}

QStringList NumberPattern::partsOf(const QString &pattern)
{
    QStringList parts{QString()};
    bool isQuoted = false;
    for (const QChar unit : pattern) {
        isQuoted ^= unit == u'\'';
        if (unit == u';' && !isQuoted)
            parts.append(QString());
        else
            parts.last() += unit;
    }
    return parts;
}
