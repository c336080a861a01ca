#pragma once

#include "NSLocale.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <QString>
#include <QStringView>

// Texts and locales on their way to ICU and back.

namespace NSICU {
/// A text as ICU sees it, without a copy; \a text has to outlive it.
inline icu::UnicodeString aliasOf(QStringView text)
{
    return icu::UnicodeString(false, text.utf16(), int32_t(text.size()));
}

inline QString stringOf(const icu::UnicodeString &text)
{
    return QString(reinterpret_cast<const QChar *>(text.getBuffer()), text.length());
}

inline icu::Locale localeOf(const NSLocale &locale)
{
    return icu::Locale(locale.localeIdentifier().toLatin1().constData());
}
} // namespace NSICU
