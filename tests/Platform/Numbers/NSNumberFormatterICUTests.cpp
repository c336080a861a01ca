#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSNumberFormatter>

#include "support/TestSupport.h"

#include <limits>
#include <random>

using namespace Qt::StringLiterals;

// The quick ways to read and write against ICU's: whatever they decide, ICU decides the same.
// A formatter with a multiplier always goes to ICU; multiplied by 1, or percents by 100, it must agree.

namespace {
// A million texts; fewer where every instruction is watched.
#if defined(__SANITIZE_ADDRESS__)
constexpr int TextsPerFormatter = 3'000;
#else
constexpr int TextsPerFormatter = 42'000;
#endif

using Random = std::mt19937_64;

int below(Random &random, int limit)
{
    return int(random() % quint64(limit));
}

/// Mostly digits, with everything that a number may hold and some that it may not.
QString randomSoup(Random &random)
{
    static const QString units = u"0123456789.,-+() eEaNn%$'\t/:_;!*x\u00A0"_s;
    QString text;
    const int length = 1 + below(random, 10);
    for (int index = 0; index < length; ++index) {
        const int digits = 10;
        const int choice =
            below(random, 3) == 0 ? below(random, int(units.size())) : below(random, digits + 4);
        text += units[choice];
    }
    return text;
}

/// A number as people write it: sign, groups, point, parentheses, spaces, something behind it.
QString randomNumber(Random &random)
{
    static const QStringList starts{QString(), QString(), u"-"_s,  u"+"_s,
                                    u" "_s,    u"("_s,    u"- "_s, u"("_s};
    static const QStringList ends{QString(), QString(), u")"_s, u" "_s,  u"abc"_s, u" x"_s,
                                  u"e3"_s,   u")"_s,    u"%"_s, u" 5"_s, u"-"_s,   u"/2"_s};
    const QChar group = u",. "_s[below(random, 3)];
    const QChar point = group == u',' || below(random, 2) ? u'.' : u',';
    QString text = starts[below(random, int(starts.size()))];
    text += QString::number(random() % (1ULL << below(random, 40)));
    if (below(random, 2)) {
        for (qsizetype at = text.size() - 3; at > 0 && text[at - 1].isDigit(); at -= 3)
            text.insert(at, group);
    }
    if (below(random, 2))
        text += point + QString::number(random() % (1ULL << below(random, 30)));
    return text + ends[below(random, int(ends.size()))];
}

/// The same with blanks, digits and signs that people type elsewhere.
QString elsewhere(Random &random, QString text)
{
    static const QString blanks = u" \t\u00A0\u2009\u202F\u3000"_s;
    static const QString zeros = u"\uFF10\u0660\u06F0\u0966"_s;
    const QChar zero = zeros[below(random, int(zeros.size()))];
    for (QChar &unit : text) {
        const bool isKept = below(random, 4) == 0;
        if (unit.isDigit() && !isKept)
            unit = QChar(char16_t(zero.unicode() + unit.digitValue()));
        else if (unit == u' ' && !isKept)
            unit = blanks[below(random, int(blanks.size()))];
        else if (unit == u'-' && !isKept)
            unit = u'\u2212';
    }
    return text;
}

QString randomText(Random &random, int round)
{
    const QString text = round % 2 ? randomSoup(random) : randomNumber(random);
    return round % 5 == 0 ? elsewhere(random, text) : text;
}

struct Setting
{
    const char *locale;
    bool usesParentheses;
    bool usesGrouping;
};

void PrintTo(const Setting &setting, std::ostream *stream)
{
    *stream << setting.locale << (setting.usesParentheses ? " ()" : "")
            << (setting.usesGrouping ? " grouped" : "");
}

std::vector<Setting> settings()
{
    std::vector<Setting> all;
    for (const char *locale : {"en_US", "de_DE", "fr_FR", "ja_JP", "sv_SE", "hi_IN"}) {
        for (const bool usesParentheses : {false, true}) {
            for (const bool usesGrouping : {false, true})
                all.push_back({locale, usesParentheses, usesGrouping});
        }
    }
    return all;
}

void setUp(NSNumberFormatter &formatter, const Setting &setting)
{
    formatter.setLocale(NSLocale(QString::fromLatin1(setting.locale)));
    formatter.setNumberStyle(NSNumberFormatterDecimalStyle);
    formatter.setLenient(true);
    formatter.setGeneratesDecimalNumbers(true);
    formatter.setMaximumFractionDigits(111);
    formatter.setNegativePrefix(setting.usesParentheses ? u"("_s : u"-"_s);
    formatter.setNegativeSuffix(setting.usesParentheses ? u")"_s : u""_s);
    formatter.setUsesGroupingSeparator(setting.usesGrouping);
}

class NSNumberFormatterICUReadingTests : public testing::TestWithParam<Setting>
{
};

class NSNumberFormatterICUWritingTests : public testing::TestWithParam<const char *>
{
};

QVariant randomValue(Random &random)
{
    const auto bits = qint64(random());
    switch (below(random, 4)) {
    case 0:
        return bits >> below(random, 64);
    case 1:
        return double(bits >> below(random, 64)) / double(1ULL << below(random, 40));
    case 2:
        return double(bits >> 20) / 1000.0;
    default:
        return QVariant::fromValue(NSDecimalNumber::decimalNumberWithMantissa(
            random() >> below(random, 64), below(random, 40) - 20, below(random, 2) == 1));
    }
}
} // namespace

TEST_P(NSNumberFormatterICUReadingTests, AgreesWithICU)
{
    NSNumberFormatter quick;
    setUp(quick, GetParam());
    NSNumberFormatter thorough;
    setUp(thorough, GetParam());
    thorough.setMultiplier(1);
    Random random(20080220);
    int numbers = 0;
    for (int round = 0; round < TextsPerFormatter; ++round) {
        const QString text = randomText(random, round);
        QVariant quickValue;
        QVariant thoroughValue;
        NSRange quickRange{0, text.size()};
        NSRange thoroughRange = quickRange;
        const bool isRead = quick.getObjectValue(&quickValue, text, &quickRange, nullptr);
        ASSERT_EQ(isRead, thorough.getObjectValue(&thoroughValue, text, &thoroughRange, nullptr))
            << '"' << qPrintable(text) << '"';
        ASSERT_EQ(quickRange.location, thoroughRange.location) << qPrintable(text);
        ASSERT_EQ(quickRange.length, thoroughRange.length) << '"' << qPrintable(text) << '"';
        ASSERT_EQ(quickValue.value<NSDecimalNumber>(), thoroughValue.value<NSDecimalNumber>())
            << '"' << qPrintable(text) << '"';
        numbers += isRead;
    }
    EXPECT_GT(numbers, TextsPerFormatter / 4);
}

TEST_P(NSNumberFormatterICUReadingTests, TellsIntegersAsICUDoes)
{
    NSNumberFormatter quick;
    setUp(quick, GetParam());
    quick.setGeneratesDecimalNumbers(false);
    NSNumberFormatter thorough;
    setUp(thorough, GetParam());
    thorough.setGeneratesDecimalNumbers(false);
    thorough.setMultiplier(1);
    Random random(20080220);
    for (int round = 0; round < TextsPerFormatter / 20; ++round) {
        const QString text = randomText(random, round);
        NSRange range{0, text.size()};
        QVariant quickValue;
        QVariant thoroughValue;
        quick.getObjectValue(&quickValue, text, &range, nullptr);
        range = {0, text.size()};
        thorough.getObjectValue(&thoroughValue, text, &range, nullptr);
        ASSERT_EQ(quickValue.metaType().id(), thoroughValue.metaType().id())
            << '"' << qPrintable(text) << '"';
    }
}

INSTANTIATE_TEST_SUITE_P(NSNumberFormatter, NSNumberFormatterICUReadingTests,
                         testing::ValuesIn(settings()));

TEST_P(NSNumberFormatterICUWritingTests, AgreesWithICU)
{
    Random random(19780101);
    const NSLocale locale(QString::fromLatin1(GetParam()));
    for (int variant = 0; variant < 60; ++variant) {
        const bool isPercent = variant % 4 == 3;
        NSNumberFormatter quick;
        quick.setLocale(locale);
        quick.setNumberStyle(isPercent ? int(NSNumberFormatterPercentStyle) : variant % 3);
        quick.setUsesGroupingSeparator(variant % 2);
        quick.setRoundingMode(variant % 7);
        if (variant % 3 != NSNumberFormatterCurrencyStyle || variant % 5 == 0) {
            quick.setMinimumFractionDigits(below(random, 4));
            quick.setMaximumFractionDigits(quick.minimumFractionDigits() + below(random, 12));
        }
        if (variant % 4 == 0)
            quick.setMinimumIntegerDigits(below(random, 6));
        NSNumberFormatter thorough;
        thorough.setLocale(locale);
        thorough.setNumberStyle(quick.numberStyle());
        thorough.setUsesGroupingSeparator(quick.usesGroupingSeparator());
        thorough.setRoundingMode(quick.roundingMode());
        thorough.setMinimumIntegerDigits(quick.minimumIntegerDigits());
        thorough.setMinimumFractionDigits(quick.minimumFractionDigits());
        thorough.setMaximumFractionDigits(quick.maximumFractionDigits());
        thorough.setMultiplier(isPercent ? 100 : 1);
        for (int round = 0; round < TextsPerFormatter / 60; ++round) {
            const QVariant value = randomValue(random);
            ASSERT_EQ(quick.stringForObjectValue(value), thorough.stringForObjectValue(value))
                << value.typeName() << ' ' << variant;
        }
    }
}

TEST_P(NSNumberFormatterICUWritingTests, AgreesAboutPowersOfTen)
{
    Random random(20261123);
    const QVariantList extremes{
        0,
        0.0,
        -0.0,
        std::numeric_limits<double>::max(),
        std::numeric_limits<double>::denorm_min(),
        std::numeric_limits<qint64>::min(),
        std::numeric_limits<quint64>::max(),
        QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(u"9e-120"_s)),
        QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(
            u"-12345678901234567890123456789012345678"_s))};
    for (int variant = 0; variant < 4; ++variant) {
        NSNumberFormatter quick;
        NSNumberFormatter thorough;
        for (NSNumberFormatter *const each : {&quick, &thorough}) {
            each->setLocale(NSLocale(QString::fromLatin1(GetParam())));
            each->setNumberStyle(NSNumberFormatterScientificStyle);
            each->setRoundingMode(variant);
            each->setUsesGroupingSeparator(variant % 2);
            if (variant == 3)
                each->setNegativePrefix(u"("_s);
            if (variant == 2)
                each->setExponentSymbol(u"×10^"_s);
        }
        thorough.setMultiplier(1);
        for (const QVariant &value : extremes)
            EXPECT_EQ(quick.stringForObjectValue(value), thorough.stringForObjectValue(value))
                << qPrintable(value.toString()) << ' ' << variant;
        for (int round = 0; round < TextsPerFormatter / 20; ++round) {
            const QVariant value = randomValue(random);
            ASSERT_EQ(quick.stringForObjectValue(value), thorough.stringForObjectValue(value))
                << value.typeName() << ' ' << variant;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(NSNumberFormatter, NSNumberFormatterICUWritingTests,
                         testing::Values("en_US", "de_DE", "fr_FR", "ja_JP", "sv_SE", "hi_IN",
                                         "ar_EG", "es_ES", "de_CH", "pl_PL", "fa_IR", "de_AT"));
