// What the locales themselves write of dates, times and amounts of time is read back.

#include "CommonDatesSupport.h"
#include "support/InZone.h"
#include "support/TestSupport.h"

#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/dtptngen.h>
#include <unicode/reldatefmt.h>
#include <unicode/smpdtfmt.h>

#include <memory>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// Of each family of languages and scripts some.
constexpr const char *Locales[] = {
    "af", "ar", "be", "bg", "bn",  "bs", "ca", "cs", "cy", "da", "de",   "el", "en",
    "es", "et", "eu", "fi", "fil", "fr", "gl", "gu", "hi", "hr", "hu",   "id", "is",
    "it", "ja", "ka", "kk", "km",  "kn", "ko", "lo", "lt", "lv", "mk",   "ml", "ms",
    "my", "nb", "ne", "nl", "pa",  "pl", "pt", "ro", "ru", "sk", "sl",   "sq", "sr",
    "sv", "ta", "te", "th", "tr",  "uk", "ur", "uz", "vi", "zh", "zh_TW"};

QString written(const icu::Locale &locale, const char *skeleton, qint64 time)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> patterns(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    icu::SimpleDateFormat format(patterns->getBestPattern(skeleton, status), locale, status);
    format.setTimeZone(*icu::TimeZone::getGMT());
    icu::UnicodeString text;
    format.format(double(time), text);
    EXPECT_TRUE(U_SUCCESS(status)) << locale.getName();
    return ICU::stringOf(text);
}

void expectReadBack(const QString &text, const CommonDateField &field, qint64 time)
{
    const CommonDate date = readCommonDate(text, field);
    EXPECT_EQ(date.date, QDateTime::fromMSecsSinceEpoch(time, UTC))
        << field.locale.localeIdentifier().toStdString() << ' ' << text.toStdString();
}
} // namespace

TEST(CommonDatesLocales, ReadTheirDatesInWords)
{
    const InZone zone("UTC");
    for (const char *name : Locales) {
        const CommonDateField field = commonDateField(QString::fromLatin1(name));
        for (const char *skeleton : {"yMMMMEEEEd", "yMMMMd", "yMMMEd", "MMMMd"}) {
            for (const int month : {1, 3, 5, 7, 8, 12}) {
                const qint64 time =
                    QDateTime(QDate(2019, month, 23), QTime(12, 0), UTC).toMSecsSinceEpoch();
                expectReadBack(written(icu::Locale(name), skeleton, time), field, time);
            }
        }
    }
}

TEST(CommonDatesLocales, ReadTheirTimes)
{
    const InZone zone("UTC");
    for (const char *name : Locales) {
        const CommonDateField field = commonDateField(QString::fromLatin1(name), false);
        for (const char *skeleton : {"Hm", "Hms", "hm", "hmB"}) {
            for (const int hour : {0, 2, 5, 9, 12, 13, 16, 19, 22}) {
                const qint64 time =
                    QDateTime(QDate(2019, 6, 5), QTime(hour, 35), UTC).toMSecsSinceEpoch();
                expectReadBack(written(icu::Locale(name), skeleton, time), field, time);
            }
        }
    }
}

TEST(CommonDatesLocales, ReadTheirAmountsOfTime)
{
    const InZone zone("UTC");
    constexpr qint64 Minute = 60'000;
    constexpr std::pair<UDateRelativeUnit, qint64> Units[] = {
        {UDAT_RELATIVE_MINUTES, Minute},
        {UDAT_RELATIVE_HOURS, 60 * Minute},
        {UDAT_RELATIVE_DAYS, 24 * 60 * Minute},
        {UDAT_RELATIVE_WEEKS, 7 * 24 * 60 * Minute}};
    for (const char *name : Locales) {
        UErrorCode status = U_ZERO_ERROR;
        const icu::RelativeDateTimeFormatter formatter(icu::Locale(name), status);
        const CommonDateField field = commonDateField(QString::fromLatin1(name));
        for (const auto &[unit, length] : Units) {
            for (const int amount : {3, 5, 22, 31, -3, -5, -22, -31}) {
                icu::UnicodeString text;
                formatter.format(double(std::abs(amount)),
                                 amount > 0 ? UDAT_DIRECTION_NEXT : UDAT_DIRECTION_LAST, unit, text,
                                 status);
                expectReadBack(ICU::stringOf(text), field, field.now + amount * length);
            }
        }
    }
}
