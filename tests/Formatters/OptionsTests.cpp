#include <KTUtility/KTOptionsKeys>
#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>

#include "support/TestSupport.h"

namespace {
/// A formatter of a user: two options that write down in which order they were set.
class RecordingFormatter : public NSFormatter
{
    Q_OBJECT
    Q_PROPERTY(bool useAbbreviations READ useAbbreviations WRITE setUseAbbreviations)
    Q_PROPERTY(QString currencyType READ currencyType WRITE setCurrencyType)

public:
    bool useAbbreviations() const { return abbreviates; }
    void setUseAbbreviations(bool value)
    {
        abbreviates = value;
        order.append(QStringLiteral("useAbbreviations"));
    }
    QString currencyType() const { return type; }
    void setCurrencyType(const QString &value)
    {
        type = value;
        order.append(QStringLiteral("currencyType"));
    }
    std::optional<QStringList> optionsKeys() const override { return keys; }

    QStringList keys{kKTFieldOption_useAbbreviations, kKTFieldOption_currencyType};
    QStringList order;
    bool abbreviates = true;
    QString type = QStringLiteral("EUR");
};
} // namespace

TEST(FormatterOptions, AFormatterWithoutKeysHasNone)
{
    NSFormatter formatter;
    EXPECT_FALSE(formatter.optionsKeys().has_value());
    EXPECT_TRUE(formatter.options().isEmpty());
    formatter.setOptions({{kKTFieldOption_dateStyle, 3}});
    EXPECT_TRUE(formatter.options().isEmpty());
}

TEST(FormatterOptions, ReadEveryListedProperty)
{
    const RecordingFormatter formatter;
    const QVariantMap expected{{kKTFieldOption_useAbbreviations, true},
                               {kKTFieldOption_currencyType, QStringLiteral("EUR")}};
    EXPECT_EQ(formatter.options(), expected);
}

TEST(FormatterOptions, AreSetInTheOrderOfTheList)
{
    RecordingFormatter formatter;
    formatter.setOptions({{kKTFieldOption_currencyType, QStringLiteral("USD")},
                          {kKTFieldOption_useAbbreviations, false}});
    EXPECT_EQ(formatter.order, formatter.keys);
    EXPECT_FALSE(formatter.abbreviates);
    EXPECT_EQ(formatter.type, u"USD");
}

TEST(FormatterOptions, WhatIsMissingStaysAndWhatIsUnknownIsIgnored)
{
    RecordingFormatter formatter;
    formatter.setOptions({});
    formatter.setOptions({{kKTFieldOption_decimalPlaces, 3}, {kKTFieldOption_currencyType, {}}});
    EXPECT_TRUE(formatter.order.isEmpty());
    EXPECT_TRUE(formatter.abbreviates);
}

TEST(FormatterOptions, MakeAnotherFormatterAlike)
{
    RecordingFormatter one;
    one.setCurrencyType(QStringLiteral("CHF"));
    RecordingFormatter other;
    other.setOptions(one.options());
    EXPECT_EQ(other.type, u"CHF");
}

TEST(FormatterOptions, RefuseNilAndUnknownProperties)
{
    RecordingFormatter formatter;
    formatter.type = QString();
    EXPECT_RAISES(formatter.options(), NSInvalidArgumentException,
                  u"the option \"currencyType\" is nil");
    formatter.keys = {QStringLiteral("shoeSize")};
    EXPECT_THROW(formatter.options(), NSException);
    EXPECT_THROW(formatter.setOptions({{QStringLiteral("shoeSize"), 42}}), NSException);
}

TEST(FormatterOptions, AreNamedAfterTheProperties)
{
    const QList<std::pair<QString, QString>> names{
        {kKTFieldOption_currencyType, QStringLiteral("currencyType")},
        {kKTFieldOption_dateStyle, QStringLiteral("dateStyle")},
        {kKTFieldOption_decimalPlaces, QStringLiteral("decimalPlaces")},
        {kKTFieldOption_displayDate, QStringLiteral("displayDate")},
        {kKTFieldOption_displayThousandsSeparator, QStringLiteral("displayThousandsSeparator")},
        {kKTFieldOption_displayTime, QStringLiteral("displayTime")},
        {kKTFieldOption_displayYear, QStringLiteral("displayYear")},
        {kKTFieldOption_formatNegativeUsingParens, QStringLiteral("formatNegativeUsingParens")},
        {kKTFieldOption_highlightNegative, QStringLiteral("highlightNegative")},
        {kKTFieldOption_inputOrder, QStringLiteral("inputOrder")},
        {kKTFieldOption_timeStyle, QStringLiteral("timeStyle")},
        {kKTFieldOption_useAbbreviations, QStringLiteral("useAbbreviations")}};
    for (const auto &[constant, value] : names)
        EXPECT_EQ(constant, value);
}

TEST(NSFormatter, ShowsAndReadsNothingByItself)
{
    const NSFormatter formatter;
    EXPECT_EQ(formatter.stringForObjectValue(1), QString());
    EXPECT_EQ(formatter.editingStringForObjectValue(1), QString());
    EXPECT_FALSE(formatter.attributedStringForObjectValue(1).has_value());
    QVariant value = 7;
    EXPECT_FALSE(formatter.getObjectValue(&value, QStringLiteral("1")));
    EXPECT_EQ(value, 7);
}

#include "OptionsTests.moc"
