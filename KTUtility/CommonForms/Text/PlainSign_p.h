#pragma once

// Private to the library. The signs in numbers and dates, whatever keyboard they are typed on.

#include <QChar>

namespace KTPrivate {
/// A separator or sign as ASCII has it, for those of other widths and shapes; others as they are.
inline char16_t plainSign(QChar character)
{
    switch (character.unicode()) {
    case u'\uFF0E': // full-width full stop
        return u'.';
    case u'\uFF0C': // full-width comma
        return u',';
    case u'\uFF0F': // full-width solidus
        return u'/';
    case u'\uFF1A': // full-width colon
        return u':';
    case u'\u2010': // hyphens, the minus sign and the full-width one
    case u'\u2011':
    case u'\u2212':
    case u'\uFF0D':
        return u'-';
    case u'\u2018': // quotation marks and modifier letters that look like an apostrophe
    case u'\u2019':
    case u'\u02BC':
        return u'\'';
    case u'\u00A0': // blanks that do not break, and those of other widths
    case u'\u202F':
    case u'\u2009':
    case u'\u2007':
    case u'\u3000':
    case u'\t':
        return u' ';
    default:
        return character.unicode();
    }
}

/// The same at a position of a text; 0 outside of it.
inline char16_t plainSignAt(QStringView text, qsizetype position)
{
    return position >= 0 && position < text.size() ? plainSign(text[position]) : u'\0';
}

/// Whether there is a decimal digit, of any script, at a position of a text.
inline bool isDigitAt(QStringView text, qsizetype position)
{
    if (position < 0 || position >= text.size())
        return false;
    const QChar unit = text[position];
    return unit.unicode() < 0x80 ? unit >= u'0' && unit <= u'9' : unit.digitValue() >= 0;
}
} // namespace KTPrivate
