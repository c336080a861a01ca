#pragma once

// Private to the library. For whatever calls ICU: texts and locales on their way there and back.

#include "NSLocale.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <QString>
#include <QStringView>

namespace KTPrivate::ICU {
/// A text as ICU sees it, without a copy; \a text has to outlive it.
inline icu::UnicodeString aliasOf(QStringView text)
{
    return icu::UnicodeString(false, text.utf16(), int32_t(text.size()));
}

inline QString stringOf(const icu::UnicodeString &text)
{
    return QString(reinterpret_cast<const QChar *>(text.getBuffer()), text.length());
}

/// The text that \a write leaves in an icu::UnicodeString; short ones are written where they stay.
template<typename Write>
QString stringWrittenBy(const Write &write)
{
    constexpr int ShortLength = 48;
    QString result(ShortLength, Qt::Uninitialized);
    auto *const units = reinterpret_cast<char16_t *>(result.data());
    icu::UnicodeString text(units, 0, ShortLength);
    write(text);
    if (text.getBuffer() != units)
        return stringOf(text);
    result.truncate(text.length());
    return result;
}

inline icu::Locale localeOf(const NSLocale &locale)
{
    return icu::Locale(locale.localeIdentifier().toLatin1().constData());
}
} // namespace KTPrivate::ICU
