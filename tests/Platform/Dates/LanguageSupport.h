#pragma once

#include <KTUtility/Platform/Dates/NaturalLanguageWords_p.h>

inline std::shared_ptr<const KTPrivate::DateEnvironment> environmentOf(const char *locale)
{
    return KTPrivate::DateEnvironment::environmentOf(NSLocale(QString::fromLatin1(locale)),
                                                     NSGregorianCalendar);
}

inline KTPrivate::NaturalLanguageWords wordsOf(const char *locale)
{
    return KTPrivate::NaturalLanguageWords(*environmentOf(locale));
}
