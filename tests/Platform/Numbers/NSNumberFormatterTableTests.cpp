#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSNumberFormatter>
#include <KTUtility/NSNumberFormatter_KTCurrency>

#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using namespace testing_support;

// The number formatter against tables of what the platform answers.

namespace {
using Setter = std::function<void(NSNumberFormatter &, const QJsonValue &)>;

QString textOf(const QJsonValue &value)
{
    return value.isNull() ? QString() : value.toString();
}

Setter text(void (NSNumberFormatter::*set)(const QString &))
{
    return [set](NSNumberFormatter &formatter, const QJsonValue &value) {
        (formatter.*set)(textOf(value));
    };
}

Setter number(void (NSNumberFormatter::*set)(int))
{
    return [set](NSNumberFormatter &formatter, const QJsonValue &value) {
        (formatter.*set)(value.toInt());
    };
}

Setter flag(void (NSNumberFormatter::*set)(bool))
{
    return [set](NSNumberFormatter &formatter, const QJsonValue &value) {
        (formatter.*set)(value.toBool());
    };
}

int styleNamed(const QString &name)
{
    static const QHash<QString, int> styles{
        {u"none"_s, NSNumberFormatterNoStyle},
        {u"decimal"_s, NSNumberFormatterDecimalStyle},
        {u"currency"_s, NSNumberFormatterCurrencyStyle},
        {u"percent"_s, NSNumberFormatterPercentStyle},
        {u"scientific"_s, NSNumberFormatterScientificStyle},
        {u"spellOut"_s, NSNumberFormatterSpellOutStyle},
        {u"ordinal"_s, NSNumberFormatterOrdinalStyle},
        {u"currencyISOCode"_s, NSNumberFormatterCurrencyISOCodeStyle},
        {u"currencyPlural"_s, NSNumberFormatterCurrencyPluralStyle},
        {u"currencyAccounting"_s, NSNumberFormatterCurrencyAccountingStyle}};
    EXPECT_TRUE(styles.contains(name)) << qPrintable(name);
    return styles.value(name);
}

const QHash<QString, Setter> &setters()
{
    using F = NSNumberFormatter;
    static const QHash<QString, Setter> all{
        {u"style"_s,
         [](F &formatter, const QJsonValue &value) {
             formatter.setNumberStyle(styleNamed(value.toString()));
         }},
        {u"locale"_s,
         [](F &formatter, const QJsonValue &value) {
             formatter.setLocale(NSLocale(value.toString()));
         }},
        {u"roundingMode"_s, // "ceiling(0)"
         [](F &formatter, const QJsonValue &value) {
             formatter.setRoundingMode(value.toString().section(u'(', 1).chopped(1).toInt());
         }},
        {u"paddingPosition"_s,
         [](F &formatter, const QJsonValue &value) {
             ASSERT_EQ(value.toString(), u"afterPrefix");
             formatter.setPaddingPosition(NSNumberFormatterPadAfterPrefix);
         }},
        {u"multiplier"_s,
         [](F &formatter, const QJsonValue &value) { formatter.setMultiplier(value.toInt()); }},
        {u"lenient"_s, flag(&F::setLenient)},
        {u"allowsFloats"_s, flag(&F::setAllowsFloats)},
        {u"usesGroupingSeparator"_s, flag(&F::setUsesGroupingSeparator)},
        {u"usesSignificantDigits"_s, flag(&F::setUsesSignificantDigits)},
        {u"groupingSize"_s, number(&F::setGroupingSize)},
        {u"minimumIntegerDigits"_s, number(&F::setMinimumIntegerDigits)},
        {u"maximumIntegerDigits"_s, number(&F::setMaximumIntegerDigits)},
        {u"minimumFractionDigits"_s, number(&F::setMinimumFractionDigits)},
        {u"maximumFractionDigits"_s, number(&F::setMaximumFractionDigits)},
        {u"minimumSignificantDigits"_s, number(&F::setMinimumSignificantDigits)},
        {u"maximumSignificantDigits"_s, number(&F::setMaximumSignificantDigits)},
        {u"formatWidth"_s, number(&F::setFormatWidth)},
        {u"paddingCharacter"_s, text(&F::setPaddingCharacter)},
        {u"percentSymbol"_s, text(&F::setPercentSymbol)},
        {u"minusSign"_s, text(&F::setMinusSign)},
        {u"plusSign"_s, text(&F::setPlusSign)},
        {u"decimalSeparator"_s, text(&F::setDecimalSeparator)},
        {u"groupingSeparator"_s, text(&F::setGroupingSeparator)},
        {u"currencyDecimalSeparator"_s, text(&F::setCurrencyDecimalSeparator)},
        {u"currencyGroupingSeparator"_s, text(&F::setCurrencyGroupingSeparator)},
        {u"currencyCode"_s, text(&F::setCurrencyCode)},
        {u"currencySymbol"_s, text(&F::setCurrencySymbol)},
        {u"zeroSymbol"_s, text(&F::setZeroSymbol)},
        {u"notANumberSymbol"_s, text(&F::setNotANumberSymbol)},
        {u"positiveInfinitySymbol"_s, text(&F::setPositiveInfinitySymbol)},
        {u"negativeInfinitySymbol"_s, text(&F::setNegativeInfinitySymbol)},
        {u"positivePrefix"_s, text(&F::setPositivePrefix)},
        {u"positiveSuffix"_s, text(&F::setPositiveSuffix)},
        {u"negativePrefix"_s, text(&F::setNegativePrefix)},
        {u"negativeSuffix"_s, text(&F::setNegativeSuffix)},
        {u"format"_s, text(&F::setFormat)},
        {u"positiveFormat"_s, text(&F::setPositiveFormat)},
        {u"negativeFormat"_s, text(&F::setNegativeFormat)}};
    return all;
}

void configure(NSNumberFormatter &formatter, const QJsonObject &config)
{
    for (auto it = config.begin(); it != config.end(); ++it) {
        ASSERT_TRUE(setters().contains(it.key())) << qPrintable(it.key());
        setters().value(it.key())(formatter, it.value());
    }
}

using Getter = std::function<QJsonValue(const NSNumberFormatter &)>;

template<typename Value>
Getter property(Value (NSNumberFormatter::*get)() const)
{
    return [get](const NSNumberFormatter &formatter) -> QJsonValue {
        const auto value = (formatter.*get)();
        if constexpr (std::is_same_v<Value, QString>)
            return value.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue(value);
        else if constexpr (std::is_same_v<Value, std::optional<int>>)
            return value ? QJsonValue(*value) : QJsonValue(QJsonValue::Null);
        else
            return value;
    };
}

const QHash<QString, Getter> &getters()
{
    using F = NSNumberFormatter;
    static const QHash<QString, Getter> all{
        {u"generatesDecimalNumbers"_s, property(&F::generatesDecimalNumbers)},
        {u"lenient"_s, property(&F::isLenient)},
        {u"minimumSignificantDigits"_s, property(&F::minimumSignificantDigits)},
        {u"maximumSignificantDigits"_s, property(&F::maximumSignificantDigits)},
        {u"usesSignificantDigits"_s, property(&F::usesSignificantDigits)},
        {u"formatWidth"_s, property(&F::formatWidth)},
        {u"groupingSize"_s, property(&F::groupingSize)},
        {u"secondaryGroupingSize"_s, property(&F::secondaryGroupingSize)},
        {u"usesGroupingSeparator"_s, property(&F::usesGroupingSeparator)},
        {u"minimumIntegerDigits"_s, property(&F::minimumIntegerDigits)},
        {u"maximumIntegerDigits"_s, property(&F::maximumIntegerDigits)},
        {u"minimumFractionDigits"_s, property(&F::minimumFractionDigits)},
        {u"maximumFractionDigits"_s, property(&F::maximumFractionDigits)},
        {u"multiplier"_s, property(&F::multiplier)},
        {u"format"_s, property(&F::format)},
        {u"positiveFormat"_s, property(&F::positiveFormat)},
        {u"negativeFormat"_s, property(&F::negativeFormat)},
        {u"plusSign"_s, property(&F::plusSign)},
        {u"minusSign"_s, property(&F::minusSign)},
        {u"nilSymbol"_s, property(&F::nilSymbol)},
        {u"zeroSymbol"_s, property(&F::zeroSymbol)},
        {u"notANumberSymbol"_s, property(&F::notANumberSymbol)},
        {u"positiveInfinitySymbol"_s, property(&F::positiveInfinitySymbol)},
        {u"negativeInfinitySymbol"_s, property(&F::negativeInfinitySymbol)},
        {u"positivePrefix"_s, property(&F::positivePrefix)},
        {u"negativePrefix"_s, property(&F::negativePrefix)},
        {u"positiveSuffix"_s, property(&F::positiveSuffix)},
        {u"negativeSuffix"_s, property(&F::negativeSuffix)},
        {u"percentSymbol"_s, property(&F::percentSymbol)},
        {u"perMillSymbol"_s, property(&F::perMillSymbol)},
        {u"exponentSymbol"_s, property(&F::exponentSymbol)},
        {u"paddingCharacter"_s, property(&F::paddingCharacter)},
        {u"decimalSeparator"_s, property(&F::decimalSeparator)},
        {u"groupingSeparator"_s, property(&F::groupingSeparator)},
        {u"currencyCode"_s, property(&F::currencyCode)},
        {u"currencySymbol"_s, property(&F::currencySymbol)},
        {u"currencyDecimalSeparator"_s, property(&F::currencyDecimalSeparator)},
        {u"currencyGroupingSeparator"_s, property(&F::currencyGroupingSeparator)},
        {u"internationalCurrencySymbol"_s, property(&F::internationalCurrencySymbol)}};
    return all;
}

/// "current (English)" and "system/root" are locales of the tables.
NSLocale localeNamed(const QString &name)
{
    if (name.startsWith(u"current"))
        return NSLocale(u"en_US"_s);
    return NSLocale(name == u"system/root" ? QString() : name);
}

/// An input of the tables: a number, "NaN", "+Infinity", or what is no number.
QVariant inputOf(const QJsonValue &input)
{
    if (input.isString())
        return input.toString() == u"NaN" ? std::numeric_limits<double>::quiet_NaN()
                                          : std::numeric_limits<double>::infinity();
    if (input.isObject())
        return QVariantList{1, 2};
    const double value = input.toDouble();
    return value == std::floor(value) && std::fabs(value) < 1e18 ? QVariant(qint64(value))
                                                                 : QVariant(value);
}

QString describe(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

/// "i:12", "d:1.5", "d:inf": an integer or a double.
QVariant cellInput(const QString &name)
{
    const QString text = name.mid(2);
    if (name.startsWith(u"i:"))
        return text.toLongLong();
    if (text.endsWith(u"inf"))
        return text.startsWith(u'-') ? -std::numeric_limits<double>::infinity()
                                     : std::numeric_limits<double>::infinity();
    return text == u"nan" ? std::numeric_limits<double>::quiet_NaN() : text.toDouble();
}

/// The steps by which the rows of the formatter tables were made.
void takeStep(NSNumberFormatter &formatter, const QJsonArray &step)
{
    const QString name = step[0].toString();
    const QJsonValue value = step[1];
    if (name == u"grouping")
        formatter.setUsesGroupingSeparator(value.toBool());
    else if (name == u"lenient")
        formatter.setLenient(value.toBool());
    else if (name == u"sig")
        formatter.setUsesSignificantDigits(value.toBool());
    else if (name == u"rounding")
        formatter.setRoundingMode(value.toInt());
    else if (name == u"minFrac")
        formatter.setMinimumFractionDigits(value.toInt());
    else if (name == u"maxFrac")
        formatter.setMaximumFractionDigits(value.toInt());
    else if (name == u"negPrefix")
        formatter.setNegativePrefix(textOf(value));
    else if (name == u"negSuffix")
        formatter.setNegativeSuffix(textOf(value));
    else if (name == u"currencyCode")
        formatter.setCurrencyCode(value.toString());
    else if (name == u"currencySymbol")
        formatter.setCurrencySymbol(value.toString());
    else if (name == u"parensEdit")
        KTCurrency::setFormatNegativeUsingParens(formatter, value.toBool());
    else
        FAIL() << "unknown step " << qPrintable(name);
}

void setUp(NSNumberFormatter &formatter, const QJsonObject &row, int style)
{
    formatter.setNumberStyle(style);
    formatter.setLocale(NSLocale(row[u"locale"].toString()));
    const QJsonArray steps = row[u"set"].toArray();
    for (const QJsonValue &step : steps)
        takeStep(formatter, step.toArray());
}
} // namespace

TEST(NSNumberFormatterTable, FormatsNumbers)
{
    int formatted = 0;
    for (const QJsonObject &row : rowsOf(u"platform/number_format.jsonl"_s)) {
        const QJsonObject config = row[u"config"].toObject();
        if (config[u"behavior"].toString() == u"10.0")
            continue; // the older kind of patterns does not exist here
        NSNumberFormatter formatter;
        formatter.setLocale(localeNamed(row[u"locale"].toString()));
        configure(formatter, config);
        EXPECT_EQ(formatter.stringForObjectValue(inputOf(row[u"input"])), textOf(row[u"expected"]))
            << qPrintable(describe(row));
        ++formatted;
    }
    EXPECT_EQ(formatted, 56);
}

TEST(NSNumberFormatterTable, ReadsNumbers)
{
    int read = 0;
    for (const QJsonObject &row : rowsOf(u"platform/number_parse.jsonl"_s)) {
        QJsonObject config = row[u"config"].toObject();
        config.remove(u"behavior"_s);
        NSNumberFormatter formatter;
        formatter.setLocale(localeNamed(row[u"locale"].toString()));
        configure(formatter, config);
        const QVariant value = formatter.numberFromString(row[u"input"].toString());
        EXPECT_EQ(value.isValid(), !row[u"expected"].isNull()) << qPrintable(describe(row));
        EXPECT_EQ(value.toDouble(), row[u"expected"].toDouble()) << qPrintable(describe(row));
        ++read;
    }
    EXPECT_EQ(read, 8);
}

TEST(NSNumberFormatterTable, HasTheDefaultsOfItsStyle)
{
    int checked = 0;
    for (const QJsonObject &row : rowsOf(u"platform/number_defaults.jsonl"_s)) {
        if (!row.contains(u"style"))
            continue;
        NSNumberFormatter formatter;
        formatter.setLocale(localeNamed(row[u"locale"].toString()));
        formatter.setNumberStyle(styleNamed(row[u"style"].toString()));
        const QJsonObject properties = row[u"properties"].toObject();
        for (auto it = properties.begin(); it != properties.end(); ++it) {
            if (it.key() == u"localizesFormat" || it.value().toString().contains(u'<'))
                continue;
            ASSERT_TRUE(getters().contains(it.key())) << qPrintable(it.key());
            EXPECT_EQ(getters().value(it.key())(formatter), it.value())
                << qPrintable(row[u"style"].toString() + u' ' + it.key());
            ++checked;
        }
    }
    EXPECT_GE(checked, 75);
}

TEST(NSNumberFormatterTable, KeepsWhatIsSetThroughChangesOfOtherSettings)
{
    for (const QJsonObject &row : rowsOf(u"platform/number_defaults.jsonl"_s)) {
        if (!row.contains(u"sequence"))
            continue;
        NSNumberFormatter formatter;
        formatter.setLocale(localeNamed(row[u"locale"].toString()));
        const QJsonArray sequence = row[u"sequence"].toArray();
        for (const QJsonValue &step : sequence) {
            configure(formatter, step[u"set"].toObject());
            const QJsonObject expected = step[u"expect"].toObject();
            for (auto it = expected.begin(); it != expected.end(); ++it)
                EXPECT_EQ(getters().value(it.key())(formatter), it.value())
                    << qPrintable(it.key() + u' ' + describe(row));
        }
    }
}

TEST(NSNumberFormatterTable, DerivesPatternsFromEachOther)
{
    NSNumberFormatter formatter;
    for (const QJsonObject &row : rowsOf(u"platform/number_pattern_setters.jsonl"_s)) {
        QJsonObject config = row[u"set"].toObject();
        if (!config.contains(u"after")) {
            formatter.setFormat(QString());
            formatter.setZeroSymbol(QString());
        }
        config.remove(u"after"_s);
        configure(formatter, config);
        const QJsonObject expected = row[u"expect"].toObject();
        for (auto it = expected.begin(); it != expected.end(); ++it)
            EXPECT_EQ(getters().value(it.key())(formatter), it.value())
                << qPrintable(it.key() + u' ' + describe(row));
    }
}

TEST(NSNumberFormatterTable, DisplaysAsTheTableSays)
{
    int cells = 0;
    for (const QJsonObject &row : rowsOf(u"formatters/number_display.jsonl"_s)) {
        NSNumberFormatter formatter;
        setUp(formatter, row, styleNamed(row[u"style"].toString()));
        const QJsonObject expected = row[u"cells"].toObject();
        for (auto it = expected.begin(); it != expected.end(); ++it, ++cells)
            EXPECT_EQ(formatter.stringForObjectValue(cellInput(it.key())), it.value().toString())
                << qPrintable(it.key() + u' ' + describe(row).left(300));
    }
    EXPECT_EQ(cells, 9306);
}
