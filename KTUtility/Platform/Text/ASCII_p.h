#pragma once

// Private to the library. For readers of machine-made texts: what they ask of ASCII characters.

#include <QStringView>

namespace KTPrivate::ASCII {
inline constexpr bool isLetter(char16_t unit)
{
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

/// Whether there is nothing else in a text. Looks at all of it, which compilers make several
/// characters at once of.
inline bool isAllOf(QStringView text)
{
    char16_t all = 0;
    for (const QChar unit : text)
        all = char16_t(all | unit.unicode());
    return all < 0x80;
}
} // namespace KTPrivate::ASCII
