// The names that ICU gives to zones, in all its languages: what is read is never another zone.

#include <KTUtility/CommonForms/Text/FoldedText_p.h>
#include <KTUtility/CommonForms/Zones/TypedZone_p.h>
#include <KTUtility/Platform/Text/ICU_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <unicode/smpdtfmt.h>

#include <QDateTime>
#include <QSet>

#include <array>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// One locale of each language and script that ICU has.
QStringList languages()
{
    int32_t count = 0;
    const icu::Locale *const locales = icu::Locale::getAvailableLocales(count);
    QStringList names;
    for (int32_t index = 0; index < count; ++index) {
        if (*locales[index].getCountry() == '\0')
            names.append(QString::fromLatin1(locales[index].getName()));
    }
    return names;
}

constexpr std::array ZoneIdentifiers{"America/New_York", "America/Los_Angeles", "Europe/Berlin",
                                     "Asia/Tokyo",       "Asia/Kolkata",        "Australia/Sydney",
                                     "Africa/Lagos",     "America/Sao_Paulo",   "Asia/Shanghai",
                                     "Europe/London"};

/// Noon of 15 January or July 2008 in UTC.
QDateTime noonOf(int month)
{
    return QDateTime(QDate(2008, month, 15), QTime(12, 0), UTC);
}

/// What ICU calls a zone then, in a pattern of zones.
QString nameOf(const QString &locale, const char16_t *pattern, const char *zone,
               const QDateTime &instant)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat format(icu::UnicodeString(pattern),
                                 icu::Locale(locale.toLatin1().constData()), status);
    format.adoptTimeZone(icu::TimeZone::createTimeZone(icu::UnicodeString(zone, -1, US_INV)));
    icu::UnicodeString name;
    format.format(double(instant.toMSecsSinceEpoch()), name);
    return ICU::stringOf(name);
}

/// How far from UTC a whole text says that clocks are then, in milliseconds; nothing if it says
/// none, or several zones.
std::optional<int> offsetOf(const QString &locale, const QString &text, const QDateTime &instant,
                            int expected)
{
    const FoldedText folded(text);
    const TypedZone zone = zoneAt(folded.text(), 0, NSLocale(locale));
    if (!zone.isRead() || zone.length != folded.text().size())
        return std::nullopt;
    return zone.offsetWhen(instant.toMSecsSinceEpoch() + expected);
}

int offsetInICU(const char *zone, const QDateTime &instant)
{
    return QTimeZone(zone).offsetFromUtc(instant) * 1000;
}

struct Count
{
    int read = 0;
    int all = 0;
};

Count countNames(const QString &locale, const char16_t *pattern)
{
    Count count;
    for (const char *const zone : ZoneIdentifiers) {
        for (const int month : {1, 7}) {
            const QDateTime instant = noonOf(month);
            const int expected = offsetInICU(zone, instant);
            const QString name = nameOf(locale, pattern, zone, instant);
            const auto offset = offsetOf(locale, name, instant, expected);
            EXPECT_TRUE(!offset || *offset == expected)
                << qPrintable(locale + u' ' + name) << ' ' << zone << ' ' << month;
            count.read += offset.has_value();
            ++count.all;
        }
    }
    return count;
}
} // namespace

TEST(TypedZoneLocales, LongNamesAreNeverAnotherZone)
{
    Count count;
    for (const QString &locale : languages()) {
        const Count names = countNames(locale, u"zzzz");
        count.read += names.read;
        count.all += names.all;
    }
    // Some languages have one name for several zones.
    EXPECT_GT(count.read, count.all * 9 / 10);
}

TEST(TypedZoneLocales, ShortNamesAreNeverAnotherZone)
{
    Count count;
    for (const QString &locale : languages()) {
        const Count names = countNames(locale, u"z");
        count.read += names.read;
        count.all += names.all;
    }
    EXPECT_GT(count.read, count.all * 9 / 10);
}

TEST(TypedZoneLocales, OffsetsAreReadInEveryLanguage)
{
    for (const QString &locale : languages()) {
        const Count names = countNames(locale, u"OOOO");
        EXPECT_EQ(names.read, names.all) << qPrintable(locale);
    }
}
