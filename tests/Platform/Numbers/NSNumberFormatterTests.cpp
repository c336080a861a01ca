#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSNumberFormatter>

#include "support/TestSupport.h"

#include <QBrush>

#include <limits>
#include <thread>

using namespace Qt::StringLiterals;
using namespace testing_support;

// What the tables do not say; see NSNumberFormatterTableTests.cpp.

namespace {
std::unique_ptr<NSNumberFormatter> formatterOf(int style, const QString &locale)
{
    auto formatter = std::make_unique<NSNumberFormatter>();
    formatter->setNumberStyle(style);
    formatter->setLocale(NSLocale(locale));
    return formatter;
}

std::unique_ptr<NSNumberFormatter> decimalFormatter()
{
    return formatterOf(NSNumberFormatterDecimalStyle, u"en_US"_s);
}
} // namespace

TEST(NSNumberFormatter, RunsItsExample)
{
    NSNumberFormatter formatter;
    formatter.setLocale(NSLocale(u"de_DE"_s));
    formatter.setNumberStyle(NSNumberFormatterDecimalStyle);
    EXPECT_EQ(formatter.stringFromNumber(1234.5), u"1.234,5");
    EXPECT_EQ(formatter.numberFromString(u"1.234,5"_s), 1234.5);
}

TEST(NSNumberFormatter, StartsInTheUsersLocaleWithoutStyle)
{
    const NSNumberFormatter formatter;
    EXPECT_EQ(formatter.locale().localeIdentifier(), u"en_US");
    EXPECT_EQ(formatter.numberStyle(), NSNumberFormatterNoStyle);
    EXPECT_EQ(formatter.roundingMode(), NSNumberFormatterRoundHalfEven);
    EXPECT_EQ(formatter.stringFromNumber(1234.5), u"1234");
}

TEST(NSNumberFormatter, ReadsAPartOfAText)
{
    const auto formatter = decimalFormatter();
    const QString text = u"from 12 to 340 cows"_s;
    QVariant value;
    NSRange range{11, 8};
    EXPECT_TRUE(formatter->getObjectValue(&value, text, &range, nullptr));
    EXPECT_EQ(value, 340);
    EXPECT_EQ(range, (NSRange{11, 3}));
    range = {4, 100}; // cut to the text; begins behind the space
    EXPECT_TRUE(formatter->getObjectValue(&value, text, &range, nullptr));
    EXPECT_EQ(range, (NSRange{5, 2}));
    range = {-5, 3};
    EXPECT_FALSE(formatter->getObjectValue(&value, text, &range, nullptr));
    range = {100, 3};
    EXPECT_FALSE(formatter->getObjectValue(&value, text, &range, nullptr));
    EXPECT_TRUE(formatter->getObjectValue(nullptr, u"7 cows"_s, nullptr, nullptr));
}

TEST(NSNumberFormatter, TellsWhyATextIsNoNumber)
{
    const auto formatter = decimalFormatter();
    QVariant value = 5;
    NSError error;
    NSRange range{0, 3};
    EXPECT_FALSE(formatter->getObjectValue(&value, u"cow"_s, &range, &error));
    EXPECT_EQ(error.code(), NSFormattingError);
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_EQ(value, 5);
    QString text = u"before"_s;
    EXPECT_FALSE(formatter->getObjectValue(&value, u"12 cows"_s, &text));
    EXPECT_EQ(text, u"before"); // a number was read
    EXPECT_FALSE(formatter->getObjectValue(&value, u"cow"_s, &text));
    EXPECT_EQ(text, u"The text is not a number.");
    EXPECT_TRUE(formatter->getObjectValue(&value, u" 12 \n"_s, &text));
    EXPECT_EQ(value, 12);
}

TEST(NSNumberFormatter, MakesTheTypeThatIsWanted)
{
    const auto formatter = decimalFormatter();
    const auto typeOf = [&](const char16_t *text) {
        return formatter->numberFromString(QString::fromUtf16(text)).metaType().id();
    };
    EXPECT_EQ(typeOf(u"5"), QMetaType::LongLong);
    EXPECT_EQ(typeOf(u"5.0"), QMetaType::Double);
    EXPECT_EQ(typeOf(u"9223372036854775808"), QMetaType::Double);
    formatter->setGeneratesDecimalNumbers(true);
    EXPECT_TRUE(formatter->generatesDecimalNumbers());
    EXPECT_EQ(typeOf(u"5"), qMetaTypeId<NSDecimalNumber>());
}

TEST(NSNumberFormatter, RejectsFractionsIfSet)
{
    const auto formatter = decimalFormatter();
    formatter->setAllowsFloats(false);
    EXPECT_FALSE(formatter->allowsFloats());
    EXPECT_FALSE(formatter->numberFromString(u"2.5"_s).isValid());
    EXPECT_TRUE(formatter->numberFromString(u"2"_s).isValid());
}

TEST(NSNumberFormatter, HasTextsForWhatIsNoUsualNumber)
{
    const auto formatter = decimalFormatter();
    EXPECT_EQ(formatter->stringForObjectValue(QVariant()), u"");
    formatter->setNilSymbol(u"nothing"_s);
    EXPECT_EQ(formatter->stringForObjectValue(QVariant()), u"nothing");
    formatter->setZeroSymbol(u"zero"_s);
    EXPECT_EQ(formatter->stringForObjectValue(0.0), u"zero");
    EXPECT_EQ(formatter->numberFromString(u"zero"_s), 0);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(formatter->stringForObjectValue(nan), u"NaN");
    formatter->setNotANumberSymbol(u"none"_s);
    EXPECT_EQ(formatter->stringForObjectValue(nan), u"none");
    EXPECT_EQ(formatter->stringForObjectValue(QVariant::fromValue(NSDecimalNumber::notANumber())),
              u"none");
    formatter->setNegativeInfinitySymbol(u"down"_s);
    EXPECT_EQ(formatter->stringForObjectValue(-std::numeric_limits<double>::infinity()), u"down");
    EXPECT_EQ(formatter->stringForObjectValue(std::numeric_limits<double>::infinity()), u"∞");
    EXPECT_EQ(formatter->stringForObjectValue(std::numeric_limits<quint64>::max()),
              u"18,446,744,073,709,551,615");
}

TEST(NSNumberFormatter, ColoursBySign)
{
    const auto formatter = decimalFormatter();
    QTextCharFormat red;
    red.setForeground(Qt::red);
    formatter->setTextAttributesForNegativeValues(red);
    const auto colourOf = [&](const QVariant &value) {
        return formatter->attributedStringForObjectValue(value)
            ->attribute(NSForegroundColorAttributeName, 0)
            .value<QBrush>()
            .color();
    };
    EXPECT_EQ(colourOf(-0.5), QColor(Qt::red));
    EXPECT_EQ(colourOf(7), QColor(Qt::black));
    EXPECT_EQ(colourOf(0), QColor(Qt::black));
    EXPECT_EQ(formatter->attributedStringForObjectValue(u"x"_s)->string(), u"NaN");
}

TEST(NSNumberFormatter, TakesAnySetting)
{
    const auto formatter = decimalFormatter();
    formatter->setMinimumFractionDigits(2'000'000'000);
    EXPECT_EQ(formatter->minimumFractionDigits(), 999);
    formatter->setMaximumFractionDigits(-5);
    EXPECT_EQ(formatter->stringFromNumber(1.5), u"2");
    formatter->setMinimumIntegerDigits(2'000'000'000);
    EXPECT_GT(formatter->stringFromNumber(1).size(), 127);
    formatter->setFormat(megabyteOf(u"#"_s));
    formatter->setPositiveFormat(u"'"_s);
    formatter->stringFromNumber(1);
    for (const QString &text : hostileTexts()) {
        formatter->setNegativePrefix(text.left(100));
        formatter->setCurrencyCode(text.left(3));
        formatter->setDecimalSeparator(text.left(5));
        formatter->stringFromNumber(-1.5);
        formatter->numberFromString(text);
    }
    const auto nowhere = formatterOf(NSNumberFormatterCurrencyStyle, u"xx_YY"_s);
    EXPECT_FALSE(nowhere->stringFromNumber(5).isEmpty());
}

TEST(NSNumberFormatter, AffixesMayHaveDigits)
{
    for (const int style : {NSNumberFormatterDecimalStyle, NSNumberFormatterScientificStyle}) {
        NSNumberFormatter formatter;
        formatter.setLocale(NSLocale(u"en_US"_s));
        formatter.setNumberStyle(style);
        const QString plain = formatter.stringForObjectValue(7);
        formatter.setPositivePrefix(u"No. 1/"_s);
        formatter.setPositiveSuffix(u" m2"_s);
        EXPECT_EQ(formatter.stringForObjectValue(7), u"No. 1/"_s + plain + u" m2"_s);
    }
}

TEST(NSNumberFormatter, RoundsInEveryMode)
{
    const std::pair<int, const char16_t *> modes[] = {
        {NSNumberFormatterRoundCeiling, u"3 -2 3 -2"},
        {NSNumberFormatterRoundFloor, u"2 -3 2 -3"},
        {NSNumberFormatterRoundDown, u"2 -2 2 -2"},
        {NSNumberFormatterRoundUp, u"3 -3 3 -3"},
        {NSNumberFormatterRoundHalfEven, u"2 -2 3 -3"},
        {NSNumberFormatterRoundHalfDown, u"2 -2 3 -3"},
        {NSNumberFormatterRoundHalfUp, u"3 -3 3 -3"}};
    for (const auto &[mode, expected] : modes) {
        const auto formatter = decimalFormatter();
        formatter->setMaximumFractionDigits(0);
        formatter->setRoundingMode(mode);
        QStringList shown;
        for (const double value : {2.5, -2.5, 2.51, -2.51})
            shown.append(formatter->stringFromNumber(value));
        EXPECT_EQ(shown.join(u' '), QString::fromUtf16(expected)) << mode;
    }
}

TEST(NSNumberFormatter, WorksInSeveralThreads)
{
    std::vector<std::thread> threads;
    std::atomic<int> correct = 0;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&correct] {
            for (int round = 0; round < 200; ++round) {
                const auto formatter = decimalFormatter();
                formatter->setLenient(true);
                const bool isRead = formatter->numberFromString(u"1\u00A0234.5"_s) == 1234.5;
                correct += isRead && formatter->stringFromNumber(1234.5) == u"1,234.5";
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(correct, 800);
}
