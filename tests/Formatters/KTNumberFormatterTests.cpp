#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLoggerComponents>
#include <KTUtility/KTNumberFormatter>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>

#include "FormatterSupport.h"
#include "support/TestSupport.h"

#include <QBrush>
#include <QJsonObject>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// What a text reads as: a decimal's digits, "NO" if it is no number.
QString reading(const KTNumberFormatter &formatter, const QString &text)
{
    QVariant value;
    if (!formatter.getObjectValue(&value, text)) {
        EXPECT_FALSE(value.isValid());
        return u"NO"_s;
    }
    EXPECT_EQ(value.metaType(), QMetaType::fromType<NSDecimalNumber>());
    return value.value<NSDecimalNumber>().description();
}

QString reading(const KTNumberFormatter &formatter, const char16_t *text)
{
    return reading(formatter, QString::fromUtf16(text));
}

NSDecimalNumber decimal(QStringView text)
{
    return NSDecimalNumber::decimalNumberWithString(text);
}

QColor colourOf(const std::optional<NSAttributedString> &text)
{
    return text->attribute(NSForegroundColorAttributeName, 0).value<QBrush>().color();
}

struct Typed
{
    const char16_t *text;
    const char *value;
};
} // namespace

TEST(KTNumberFormatter, StartsWithGroupsNoPlacesAndRedNegatives)
{
    const KTNumberFormatter formatter;
    EXPECT_EQ(formatter.stringForObjectValue(1234.5), u"1,235");
    EXPECT_EQ(formatter.stringForObjectValue(2.5), u"3");
    EXPECT_EQ(formatter.stringForObjectValue(-2.5), u"-3");
    EXPECT_EQ(formatter.stringForObjectValue(-2), u"-2");
    const auto negative = formatter.attributedStringForObjectValue(-2);
    EXPECT_EQ(negative->string(), u"-2");
    EXPECT_EQ(colourOf(negative), QColor(Qt::red));
    const auto positive = formatter.attributedStringForObjectValue(2);
    EXPECT_FALSE(positive->attribute(NSForegroundColorAttributeName, 0).isValid());
    const QVariantMap expected{{kKTFieldOption_decimalPlaces, 0U},
                               {kKTFieldOption_displayThousandsSeparator, true},
                               {kKTFieldOption_highlightNegative, true},
                               {kKTFieldOption_formatNegativeUsingParens, false}};
    EXPECT_EQ(formatter.options(), expected);
    EXPECT_FALSE(formatter.useDisplayStringForEditingString());
    EXPECT_EQ(formatter.locale().localeIdentifier(), u"en_US");
}

TEST(KTNumberFormatter, RunsItsExample)
{
    KTNumberFormatter formatter;
    formatter.setDecimalPlaces(2);
    EXPECT_EQ(formatter.stringForObjectValue(1234.5), u"1,234.50");
    QVariant value;
    EXPECT_TRUE(formatter.getObjectValue(&value, u"(1,234.5678)"_s));
    EXPECT_EQ(value.value<NSDecimalNumber>(), decimal(u"-1234.5678"));
}

TEST(KTNumberFormatter, ShowsNumbersOnly)
{
    const KTNumberFormatter formatter;
    EXPECT_EQ(formatter.stringForObjectValue(u"12"_s), QString());
    EXPECT_EQ(formatter.stringForObjectValue(QVariant()), QString());
    EXPECT_EQ(formatter.stringForObjectValue(QVariantList{1}), QString());
    EXPECT_EQ(formatter.stringForObjectValue(true), u"1");
    EXPECT_EQ(formatter.stringForObjectValue(QVariant::fromValue(decimal(u"1e20"))),
              u"100,000,000,000,000,000,000");
    EXPECT_FALSE(formatter.attributedStringForObjectValue(QVariant()).has_value());
}

TEST(KTNumberFormatter, ShowsDecimalsDigitByDigit)
{
    KTNumberFormatter formatter;
    formatter.setDecimalPlaces(30);
    EXPECT_EQ(formatter.stringForObjectValue(
                  QVariant::fromValue(decimal(u"12345678.123456789012345678901234567891"))),
              u"12,345,678.123456789012345678901234567891");
}

TEST(KTNumberFormatter, PutsNegativesInParentheses)
{
    KTNumberFormatter formatter;
    formatter.setFormatNegativeUsingParens(true);
    EXPECT_TRUE(formatter.formatNegativeUsingParens());
    EXPECT_EQ(formatter.stringForObjectValue(-2), u"(2)");
    EXPECT_EQ(formatter.editingStringForObjectValue(-3), u"-3");
    formatter.setFormatNegativeUsingParens(false);
    EXPECT_EQ(formatter.stringForObjectValue(-2), u"-2");
    const auto swedish = formatterIn<KTNumberFormatter>(u"sv_SE"_s);
    EXPECT_EQ(swedish->stringForObjectValue(-2), u"-2"); // not the locale's U+2212
}

TEST(KTNumberFormatter, ShowsAllPlacesIfAsked)
{
    KTNumberFormatter formatter;
    formatter.setDecimalPlaces(2);
    formatter.setDisplayAllDecimalPlaces();
    EXPECT_EQ(formatter.decimalPlaces(), 2U);
    EXPECT_EQ(formatter.stringForObjectValue(1.5), u"1.50");
    EXPECT_EQ(formatter.stringForObjectValue(1.23456), u"1.23456");
    formatter.setDecimalPlaces(1);
    EXPECT_EQ(formatter.stringForObjectValue(1.25), u"1.3");
    formatter.setDecimalPlaces(std::numeric_limits<uint>::max());
    EXPECT_EQ(formatter.decimalPlaces(), 999U);
}

TEST(KTNumberFormatter, EditsWithoutGroupsAndWithAllPlaces)
{
    KTNumberFormatter formatter;
    EXPECT_EQ(formatter.editingStringForObjectValue(1234.5), u"1234.5");
    EXPECT_EQ(formatter.editingStringForObjectValue(
                  QVariant::fromValue(decimal(u"0.12345678901234567890123456789012345678"))),
              u"0.12345678901234567890123456789012345678");
    EXPECT_EQ(formatter.editingStringForObjectValue(u"x"_s), QString());
    EXPECT_EQ(formatterIn<KTNumberFormatter>(u"de_DE"_s)->editingStringForObjectValue(-1234.5),
              u"-1234,5");
    formatter.setUseDisplayStringForEditingString(true);
    EXPECT_EQ(formatter.editingStringForObjectValue(1234.5), u"1,235");
}

TEST(KTNumberFormatter, ReadsWhatPeopleType)
{
    const Typed typed[] = {{u"1234.5678", "1234.5678"},
                           {u"(12)", "-12"},
                           {u"1,234", "1234"},
                           {u"(1,234)", "-1234"},
                           {u" 12 ", "12"},
                           {u"１２", "12"},
                           {u"1²", "12"},
                           {u"①", "1"},
                           {u"−5", "-5"},
                           {u"- 5", "-5"},
                           {u"+5", "5"},
                           {u"1\u00A0234", "1234"},
                           {u"1\u202F234.5", "1234.5"},
                           {u"٥", "5"},
                           {u"1e5", "100000"},
                           {u"-0", "0"},
                           {u"12345678901234567890123456789012345678901234567890",
                            "12345678901234567890123456789012345679000000000000"},
                           {u"12abc", "NO"},
                           {u" 12a", "NO"},
                           {u"(12", "NO"},
                           {u"12)", "NO"},
                           {u"", "NO"},
                           {u"-", "NO"},
                           {u"½", "NO"},
                           {u"∞", "NO"},
                           {u"NaN", "NO"},
                           {u"1E400", "NO"},
                           {u"$5", "NO"}};
    const KTNumberFormatter formatter;
    for (const Typed &row : typed)
        EXPECT_EQ(reading(formatter, row.text), QString::fromLatin1(row.value))
            << qPrintable(QString::fromUtf16(row.text));
}

TEST(KTNumberFormatter, ReadsInFourPassesAsTheTableSays)
{
    // An unpaired parenthesis and what follows a leading space are rejected here.
    const QStringList rejected{u"(12"_s, u"12)"_s, u" 12x"_s, u"  12ab"_s};
    int cells = 0;
    for (const QJsonObject &row : rowsOf(u"formatters/number_four_passes.jsonl"_s)) {
        const auto formatter = formatterIn<KTNumberFormatter>(row[u"locale"].toString());
        const QJsonObject texts = row[u"cells"].toObject();
        for (auto it = texts.begin(); it != texts.end(); ++it, ++cells) {
            const bool isWanted = !it.value().isNull() && !rejected.contains(it.key());
            const QString expected =
                isWanted ? decimal(it.value()[u"dec"].toString()).description() : u"NO"_s;
            EXPECT_EQ(reading(*formatter, it.key()), expected)
                << qPrintable(row[u"locale"].toString() + u" \"" + it.key() + u'"');
        }
    }
    EXPECT_GE(cells, 380);
}

TEST(KTNumberFormatter, TellsWhyAsThePlatformDoes)
{
    const KTNumberFormatter formatter;
    QVariant value = 7;
    QString error = u"before"_s;
    EXPECT_FALSE(formatter.getObjectValue(&value, u"abc"_s, &error));
    EXPECT_FALSE(value.isValid());
    EXPECT_EQ(error, u"Error Domain=NSCocoaErrorDomain Code=2048 \"The text is not a number.\"");
    EXPECT_FALSE(formatter.getObjectValue(&value, u"12abc"_s, &error));
    EXPECT_EQ(error, QString()); // a number was read, but not all of the text
    error = u"before"_s;
    EXPECT_TRUE(formatter.getObjectValue(&value, u"5"_s, &error));
    EXPECT_EQ(error, u"before");
    EXPECT_TRUE(formatter.getObjectValue(nullptr, u"5"_s));
    EXPECT_FALSE(formatter.getObjectValue(nullptr, u"x"_s));
}

TEST(KTNumberFormatter, LogsItsPasses)
{
    useFreshHome();
    const KTLogCapture log(kLog_FormattersNumbers, 4);
    const KTNumberFormatter formatter;
    QVariant value;
    QString error;
    formatter.getObjectValue(&value, u"12x"_s, &error);
    formatter.stringForObjectValue(5);
    formatter.attributedStringForObjectValue(6);
    QStringList expected;
    for (int pass = 0; pass < 8; ++pass)
        expected << u"extra characters found in number string: x"_s
                 << u"KTNumberFormatter getObjectValue forString:12x returns 0"_s;
    const QString noError = u"KTNumberFormatter getObjectValue error: (null)"_s;
    expected.insert(8, noError);
    expected << noError << u"KTNumberFormatter stringForObjectValue returns:5"_s
             << u"KTNumberFormatter attributedStringForObjectValue returns:6"_s;
    EXPECT_EQ(log.messages(), expected);
}

TEST(KTNumberFormatter, IsSetByOptionKeysAndTellsObservers)
{
    KTNumberFormatter formatter;
    QSignalSpy places(&formatter, &KTNumberFormatter::decimalPlacesChanged);
    QSignalSpy highlight(&formatter, &KTNumberFormatter::highlightNegativeChanged);
    formatter.setOptions({{kKTFieldOption_highlightNegative, false},
                          {kKTFieldOption_decimalPlaces, 3},
                          {kKTFieldOption_currencyType, u"EUR"_s}});
    EXPECT_EQ(places.count(), 1);
    EXPECT_EQ(highlight.count(), 1);
    EXPECT_FALSE(formatter.textAttributesForNegativeValues().has_value());
    EXPECT_EQ(formatter.stringForObjectValue(1.5), u"1.500");
    EXPECT_EQ(NSKeyValueCoding::valueForKey(&formatter, kKTFieldOption_decimalPlaces), 3U);
    formatter.setOptions({});
    EXPECT_FALSE(formatter.highlightNegative());
    EXPECT_EQ(formatter.decimalPlaces(), 3U);

    KTNumberFormatter other;
    other.setOptions(formatter.options());
    EXPECT_EQ(other.stringForObjectValue(-1234.5678), formatter.stringForObjectValue(-1234.5678));
    EXPECT_EQ(other.options(), formatter.options());
}

TEST(KTNumberFormatter, RejectsOptionsOfAnotherType)
{
    KTNumberFormatter formatter;
    EXPECT_THROW(formatter.setOptions({{kKTFieldOption_decimalPlaces, QVariantList{1}}}),
                 NSException);
    EXPECT_EQ(formatter.decimalPlaces(), 0U);
}

TEST(KTNumberFormatter, KeepsTheDefaultAttributes)
{
    KTNumberFormatter formatter;
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    const auto text = formatter.attributedStringForObjectValue(-1, bold);
    EXPECT_EQ(text->attributesAtIndex(0).fontWeight(), QFont::Bold);
    EXPECT_EQ(colourOf(text), QColor(Qt::red));
    formatter.setHighlightNegative(false);
    const auto plain = formatter.attributedStringForObjectValue(-1, bold);
    EXPECT_EQ(plain->attributesAtIndex(0), bold);
}

TEST(KTNumberFormatter, SurvivesAnyText)
{
    const KTNumberFormatter formatter;
    QList<QString> texts = hostileTexts();
    texts << megabyteOf(u"9"_s) << megabyteOf(u"9,999"_s) << megabyteOf(u"("_s)
          << megabyteOf(u"1\u0301"_s) << megabyteOf(u" "_s) << megabyteOf(u"-"_s)
          << megabyteOf(u"\u200E"_s) << QString(QChar(0xD800)) + u'5';
    for (const QString &text : texts) {
        QString error;
        QVariant value;
        EXPECT_EQ(formatter.getObjectValue(&value, text, &error), value.isValid());
    }
    EXPECT_EQ(reading(formatter, u"7"), u"7"); // nothing is left of the failures
    EXPECT_EQ(reading(formatter, u"(7)"), u"-7");
}

TEST(KTNumberFormatter, RejectsUnevenGroupsIfAsked)
{
    const std::tuple<const char *, const char16_t *, const char *, const char *> typed[] = {
        {"de_CH", u"1,50", "150", "NO"},
        {"de_CH", u"1234,50", "123450", "NO"},
        {"de_CH", u"1,500", "1500", "1500"},
        {"de_CH", u"1’234.50", "1234.5", "1234.5"},
        {"de_CH", u"(1’234.50)", "-1234.5", "-1234.5"},
        {"fr_FR", u"1234.56", "123456", "NO"},
        {"fr_FR", u"1 234,56", "1234.56", "1234.56"},
        {"de_DE", u"1.50", "150", "NO"},
        {"de_DE", u".5", "5", "NO"},
        {"en_US", u"1234,56", "123456", "NO"},
        {"en_US", u"(1234,56)", "-123456", "NO"},
        {"en_US", u"1,234.56", "1234.56", "1234.56"},
        {"en_US", u"１，２３", "123", "NO"},
        {"en_US", u"1e3", "1000", "1000"},
        {"en_IN", u"12,34,567", "1234567", "1234567"},
        {"ar_EG", u"1,234", "1.234", "NO"},
        {"ar_EG", u"١٬٢٣٤٫٥", "1234.5", "1234.5"}};
    for (const auto &[locale, text, lenient, strict] : typed) {
        const auto formatter = formatterIn<KTNumberFormatter>(QString::fromLatin1(locale));
        EXPECT_EQ(reading(*formatter, text), QString::fromLatin1(lenient)) << locale;
        formatter->setRejectsUnevenGroups(true);
        EXPECT_EQ(reading(*formatter, text), QString::fromLatin1(strict))
            << locale << ' ' << qPrintable(QString::fromUtf16(text));
    }
}

TEST(KTNumberFormatter, TellsThatGroupsAreUneven)
{
    useFreshHome();
    KTNumberFormatter formatter;
    QSignalSpy changes(&formatter, &KTNumberFormatter::rejectsUnevenGroupsChanged);
    EXPECT_FALSE(formatter.rejectsUnevenGroups());
    NSKeyValueCoding::setValue(&formatter, true, u"rejectsUnevenGroups"_s);
    EXPECT_TRUE(formatter.rejectsUnevenGroups());
    EXPECT_EQ(changes.count(), 1);
    EXPECT_FALSE(formatter.options().contains(u"rejectsUnevenGroups"_s));
    QString error;
    const KTLogCapture log(kLog_FormattersNumbers, 4);
    EXPECT_FALSE(formatter.getObjectValue(nullptr, u"1,23"_s, &error));
    EXPECT_EQ(error, KTNumberFormatter::unevenGroupsDescription());
    EXPECT_EQ(log.messages().last(), QString(u"KTNumberFormatter getObjectValue error: " + error));
    EXPECT_FALSE(formatter.getObjectValue(nullptr, u"cow"_s, &error));
    EXPECT_NE(error, KTNumberFormatter::unevenGroupsDescription());
    EXPECT_FALSE(error.isNull());
    EXPECT_FALSE(formatter.getObjectValue(nullptr, u"12abc"_s, &error));
    EXPECT_TRUE(error.isNull());
}

TEST(KTNumberFormatter, ReadsWhatItShowsInEveryLocaleAlsoWithEvenGroupsOnly)
{
    for (const QString &locale : NSLocale::availableLocaleIdentifiers()) {
        const auto formatter = formatterIn<KTNumberFormatter>(locale);
        formatter->setRejectsUnevenGroups(true);
        formatter->setDecimalPlaces(3);
        for (const char *text : {"0", "-5.25", "1234.5", "-12345.678", "1234567.001", "0.125"}) {
            const QVariant value = QVariant::fromValue(decimal(QString::fromLatin1(text)));
            const QString expected = decimal(QString::fromLatin1(text)).description();
            for (const bool usesParentheses : {false, true}) {
                formatter->setFormatNegativeUsingParens(usesParentheses);
                const QString shown = formatter->stringForObjectValue(value);
                EXPECT_EQ(reading(*formatter, shown), expected)
                    << qPrintable(locale + u' ' + shown);
            }
            const QString edited = formatter->editingStringForObjectValue(value);
            EXPECT_EQ(reading(*formatter, edited), expected) << qPrintable(locale + u' ' + edited);
        }
    }
}
