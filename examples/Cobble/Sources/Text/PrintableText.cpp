#include "PrintableText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
bool needsEscape(QChar character)
{
    const char16_t unit = character.unicode();
    const bool isDirectional = (unit >= 0x202a && unit <= 0x202e) ||
                               (unit >= 0x2066 && unit <= 0x2069) || unit == 0x200e ||
                               unit == 0x200f || unit == 0x061c;
    return isDirectional || unit == 0x2028 || unit == 0x2029 ||
           character.category() == QChar::Other_Control;
}

QString escapeOf(QChar character)
{
    switch (character.unicode()) {
    case u'\n':
        return u"\\n"_s;
    case u'\r':
        return u"\\r"_s;
    case u'\t':
        return u"\\t"_s;
    default:
        return u"\\u%1"_s.arg(uint(character.unicode()), 4, 16, QChar(u'0'));
    }
}
} // namespace

QString printableText(const QString &text)
{
    if (std::none_of(text.begin(), text.end(), needsEscape))
        return text;
    QString printable;
    printable.reserve(text.size());
    for (const QChar character : text) {
        if (needsEscape(character))
            printable += escapeOf(character);
        else
            printable += character;
    }
    return printable;
}

QString recordCountText(qint64 count)
{
    return count == 1 ? u"1 record"_s : u"%1 records"_s.arg(count);
}
