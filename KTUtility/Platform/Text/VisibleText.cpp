#include "VisibleText_p.h"

#include <algorithm>
#include <numeric>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Marks, embeddings, overrides and isolates that change the direction of writing.
bool isDirectional(char16_t unit)
{
    return (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069) ||
           unit == 0x200E || unit == 0x200F || unit == 0x061C;
}

bool isControl(char16_t unit)
{
    if (unit < 0x7F)
        return unit < 0x20;
    const bool isLineBreak = unit == 0x2028 || unit == 0x2029;
    return unit < 0xA0 || isLineBreak || isDirectional(unit);
}

QString escapeOf(char16_t unit)
{
    switch (unit) {
    case u'\n':
        return u"\\n"_s;
    case u'\r':
        return u"\\r"_s;
    case u'\t':
        return u"\\t"_s;
    default:
        return u"\\u%1"_s.arg(uint(unit), 4, 16, QChar(u'0'));
    }
}
} // namespace

bool KTPrivate::holdsControls(QStringView text)
{
    // Most texts hold ordinary ASCII only, which one test a unit, without a way out, finds quickly.
    const auto isUnusual = [](bool found, QChar unit) {
        return found | (char16_t(unit.unicode() - 0x20) >= 0x7F - 0x20);
    };
    return std::accumulate(text.begin(), text.end(), false, isUnusual) &&
           std::any_of(text.begin(), text.end(),
                       [](QChar unit) { return isControl(unit.unicode()); });
}

QString KTPrivate::visibleText(QStringView text)
{
    QString visible;
    visible.reserve(text.size());
    for (const QChar unit : text) {
        if (isControl(unit.unicode()))
            visible += escapeOf(unit.unicode());
        else
            visible += unit;
    }
    return visible;
}
