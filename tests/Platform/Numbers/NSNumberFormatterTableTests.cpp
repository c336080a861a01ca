#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSNumberFormatter>
#include <KTUtility/NSNumberFormatter_KTCurrency>

#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>

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
        {QStringLiteral("none"), NSNumberFormatterNoStyle},
        {QStringLiteral("decimal"), NSNumberFormatterDecimalStyle},
        {QStringLiteral("currency"), NSNumberFormatterCurrencyStyle},
        {QStringLiteral("percent"), NSNumberFormatterPercentStyle},
        {QStringLiteral("scientific"), NSNumberFormatterScientificStyle},
        {QStringLiteral("spellOut"), NSNumberFormatterSpellOutStyle},
        {QStringLiteral("ordinal"), NSNumberFormatterOrdinalStyle},
        {QStringLiteral("currencyISOCode"), NSNumberFormatterCurrencyISOCodeStyle},
        {QStringLiteral("currencyPlural"), NSNumberFormatterCurrencyPluralStyle},
        {QStringLiteral("currencyAccounting"), NSNumberFormatterCurrencyAccountingStyle}};
    EXPECT_TRUE(styles.contains(name)) << qPrintable(name);
    return styles.value(name);
}

const QHash<QString, Setter> &setters()
{
    using F = NSNumberFormatter;
    static const QHash<QString, Setter> all{
        {QStringLiteral("style"),
         [](F &formatter, const QJsonValue &value) {
             formatter.setNumberStyle(styleNamed(value.toString()));
         }},
        {QStringLiteral("locale"),
         [](F &formatter, const QJsonValue &value) {
             formatter.setLocale(NSLocale(value.toString()));
         }},
        {QStringLiteral("roundingMode"), // "ceiling(0)"
         [](F &formatter, const QJsonValue &value) {
             formatter.setRoundingMode(value.toString().section(u'(', 1).chopped(1).toInt());
         }},
        {QStringLiteral("paddingPosition"),
         [](F &formatter, const QJsonValue &value) {
             ASSERT_EQ(value.toString(), u"afterPrefix");
             formatter.setPaddingPosition(NSNumberFormatterPadAfterPrefix);
         }},
        {QStringLiteral("multiplier"),
         [](F &formatter, const QJsonValue &value) { formatter.setMultiplier(value.toInt()); }},
        {QStringLiteral("lenient"), flag(&F::setLenient)},
        {QStringLiteral("allowsFloats"), flag(&F::setAllowsFloats)},
        {QStringLiteral("usesGroupingSeparator"), flag(&F::setUsesGroupingSeparator)},
        {QStringLiteral("usesSignificantDigits"), flag(&F::setUsesSignificantDigits)},
        {QStringLiteral("groupingSize"), number(&F::setGroupingSize)},
        {QStringLiteral("minimumIntegerDigits"), number(&F::setMinimumIntegerDigits)},
        {QStringLiteral("maximumIntegerDigits"), number(&F::setMaximumIntegerDigits)},
        {QStringLiteral("minimumFractionDigits"), number(&F::setMinimumFractionDigits)},
        {QStringLiteral("maximumFractionDigits"), number(&F::setMaximumFractionDigits)},
        {QStringLiteral("minimumSignificantDigits"), number(&F::setMinimumSignificantDigits)},
        {QStringLiteral("maximumSignificantDigits"), number(&F::setMaximumSignificantDigits)},
        {QStringLiteral("formatWidth"), number(&F::setFormatWidth)},
        {QStringLiteral("paddingCharacter"), text(&F::setPaddingCharacter)},
        {QStringLiteral("percentSymbol"), text(&F::setPercentSymbol)},
        {QStringLiteral("minusSign"), text(&F::setMinusSign)},
        {QStringLiteral("plusSign"), text(&F::setPlusSign)},
        {QStringLiteral("decimalSeparator"), text(&F::setDecimalSeparator)},
        {QStringLiteral("groupingSeparator"), text(&F::setGroupingSeparator)},
        {QStringLiteral("currencyDecimalSeparator"), text(&F::setCurrencyDecimalSeparator)},
        {QStringLiteral("currencyGroupingSeparator"), text(&F::setCurrencyGroupingSeparator)},
        {QStringLiteral("currencyCode"), text(&F::setCurrencyCode)},
        {QStringLiteral("currencySymbol"), text(&F::setCurrencySymbol)},
        {QStringLiteral("zeroSymbol"), text(&F::setZeroSymbol)},
        {QStringLiteral("notANumberSymbol"), text(&F::setNotANumberSymbol)},
        {QStringLiteral("positiveInfinitySymbol"), text(&F::setPositiveInfinitySymbol)},
        {QStringLiteral("negativeInfinitySymbol"), text(&F::setNegativeInfinitySymbol)},
        {QStringLiteral("positivePrefix"), text(&F::setPositivePrefix)},
        {QStringLiteral("positiveSuffix"), text(&F::setPositiveSuffix)},
        {QStringLiteral("negativePrefix"), text(&F::setNegativePrefix)},
        {QStringLiteral("negativeSuffix"), text(&F::setNegativeSuffix)},
        {QStringLiteral("format"), text(&F::setFormat)},
        {QStringLiteral("positiveFormat"), text(&F::setPositiveFormat)},
        {QStringLiteral("negativeFormat"), text(&F::setNegativeFormat)}};
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
        {QStringLiteral("generatesDecimalNumbers"), property(&F::generatesDecimalNumbers)},
        {QStringLiteral("lenient"), property(&F::isLenient)},
        {QStringLiteral("minimumSignificantDigits"), property(&F::minimumSignificantDigits)},
        {QStringLiteral("maximumSignificantDigits"), property(&F::maximumSignificantDigits)},
        {QStringLiteral("usesSignificantDigits"), property(&F::usesSignificantDigits)},
        {QStringLiteral("formatWidth"), property(&F::formatWidth)},
        {QStringLiteral("groupingSize"), property(&F::groupingSize)},
        {QStringLiteral("secondaryGroupingSize"), property(&F::secondaryGroupingSize)},
        {QStringLiteral("usesGroupingSeparator"), property(&F::usesGroupingSeparator)},
        {QStringLiteral("minimumIntegerDigits"), property(&F::minimumIntegerDigits)},
        {QStringLiteral("maximumIntegerDigits"), property(&F::maximumIntegerDigits)},
        {QStringLiteral("minimumFractionDigits"), property(&F::minimumFractionDigits)},
        {QStringLiteral("maximumFractionDigits"), property(&F::maximumFractionDigits)},
        {QStringLiteral("multiplier"), property(&F::multiplier)},
        {QStringLiteral("format"), property(&F::format)},
        {QStringLiteral("positiveFormat"), property(&F::positiveFormat)},
        {QStringLiteral("negativeFormat"), property(&F::negativeFormat)},
        {QStringLiteral("plusSign"), property(&F::plusSign)},
        {QStringLiteral("minusSign"), property(&F::minusSign)},
        {QStringLiteral("nilSymbol"), property(&F::nilSymbol)},
        {QStringLiteral("zeroSymbol"), property(&F::zeroSymbol)},
        {QStringLiteral("notANumberSymbol"), property(&F::notANumberSymbol)},
        {QStringLiteral("positiveInfinitySymbol"), property(&F::positiveInfinitySymbol)},
        {QStringLiteral("negativeInfinitySymbol"), property(&F::negativeInfinitySymbol)},
        {QStringLiteral("positivePrefix"), property(&F::positivePrefix)},
        {QStringLiteral("negativePrefix"), property(&F::negativePrefix)},
        {QStringLiteral("positiveSuffix"), property(&F::positiveSuffix)},
        {QStringLiteral("negativeSuffix"), property(&F::negativeSuffix)},
        {QStringLiteral("percentSymbol"), property(&F::percentSymbol)},
        {QStringLiteral("perMillSymbol"), property(&F::perMillSymbol)},
        {QStringLiteral("exponentSymbol"), property(&F::exponentSymbol)},
        {QStringLiteral("paddingCharacter"), property(&F::paddingCharacter)},
        {QStringLiteral("decimalSeparator"), property(&F::decimalSeparator)},
        {QStringLiteral("groupingSeparator"), property(&F::groupingSeparator)},
        {QStringLiteral("currencyCode"), property(&F::currencyCode)},
        {QStringLiteral("currencySymbol"), property(&F::currencySymbol)},
        {QStringLiteral("currencyDecimalSeparator"), property(&F::currencyDecimalSeparator)},
        {QStringLiteral("currencyGroupingSeparator"), property(&F::currencyGroupingSeparator)},
        {QStringLiteral("internationalCurrencySymbol"), property(&F::internationalCurrencySymbol)}};
    return all;
}

/// "current (English)" and "system/root" are locales of the tables.
NSLocale localeNamed(const QString &name)
{
    if (name.startsWith(u"current"))
        return NSLocale(QStringLiteral("en_US"));
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

TEST(NSNumberFormatterTables, FormatsNumbers)
{
    int formatted = 0;
    for (const QJsonObject &row : rowsOf(QStringLiteral("platform/number_format.jsonl"))) {
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

TEST(NSNumberFormatterTables, ReadsNumbers)
{
    int read = 0;
    for (const QJsonObject &row : rowsOf(QStringLiteral("platform/number_parse.jsonl"))) {
        QJsonObject config = row[u"config"].toObject();
        config.remove(QStringLiteral("behavior"));
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

TEST(NSNumberFormatterTables, HasTheDefaultsOfItsStyle)
{
    int checked = 0;
    for (const QJsonObject &row : rowsOf(QStringLiteral("platform/number_defaults.jsonl"))) {
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

TEST(NSNumberFormatterTables, KeepsWhatIsSetThroughChangesOfOtherSettings)
{
    for (const QJsonObject &row : rowsOf(QStringLiteral("platform/number_defaults.jsonl"))) {
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

TEST(NSNumberFormatterTables, DerivesPatternsFromEachOther)
{
    NSNumberFormatter formatter;
    for (const QJsonObject &row : rowsOf(QStringLiteral("platform/number_pattern_setters.jsonl"))) {
        QJsonObject config = row[u"set"].toObject();
        if (!config.contains(u"after")) {
            formatter.setFormat(QString());
            formatter.setZeroSymbol(QString());
        }
        config.remove(QStringLiteral("after"));
        configure(formatter, config);
        const QJsonObject expected = row[u"expect"].toObject();
        for (auto it = expected.begin(); it != expected.end(); ++it)
            EXPECT_EQ(getters().value(it.key())(formatter), it.value())
                << qPrintable(it.key() + u' ' + describe(row));
    }
}

TEST(NSNumberFormatterTables, DisplaysAsTheTableSays)
{
    int cells = 0;
    for (const QJsonObject &row : rowsOf(QStringLiteral("formatters/number_display.jsonl"))) {
        NSNumberFormatter formatter;
        setUp(formatter, row, styleNamed(row[u"style"].toString()));
        const QJsonObject expected = row[u"cells"].toObject();
        for (auto it = expected.begin(); it != expected.end(); ++it, ++cells)
            EXPECT_EQ(formatter.stringForObjectValue(cellInput(it.key())), it.value().toString())
                << qPrintable(it.key() + u' ' + describe(row).left(300));
    }
    EXPECT_EQ(cells, 9306);
}
