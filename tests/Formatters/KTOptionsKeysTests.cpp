#include <KTUtility/KTOptionsKeys>
#include <KTUtility/NSException>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

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
        order.append(u"useAbbreviations"_s);
    }
    QString currencyType() const { return type; }
    void setCurrencyType(const QString &value)
    {
        type = value;
        order.append(u"currencyType"_s);
    }
    std::optional<QStringList> optionsKeys() const override { return keys; }

    QStringList keys{kKTFieldOption_useAbbreviations, kKTFieldOption_currencyType};
    QStringList order;
    bool abbreviates = true;
    QString type = u"EUR"_s;
};
} // namespace

TEST(KTOptionsKeys, AFormatterWithoutKeysHasNone)
{
    NSFormatter formatter;
    EXPECT_FALSE(formatter.optionsKeys().has_value());
    EXPECT_TRUE(formatter.options().isEmpty());
    formatter.setOptions({{kKTFieldOption_dateStyle, 3}});
    EXPECT_TRUE(formatter.options().isEmpty());
}

TEST(KTOptionsKeys, ReadEveryListedProperty)
{
    const RecordingFormatter formatter;
    const QVariantMap expected{{kKTFieldOption_useAbbreviations, true},
                               {kKTFieldOption_currencyType, u"EUR"_s}};
    EXPECT_EQ(formatter.options(), expected);
}

TEST(KTOptionsKeys, AreSetInTheOrderOfTheList)
{
    RecordingFormatter formatter;
    formatter.setOptions(
        {{kKTFieldOption_currencyType, u"USD"_s}, {kKTFieldOption_useAbbreviations, false}});
    EXPECT_EQ(formatter.order, formatter.keys);
    EXPECT_FALSE(formatter.abbreviates);
    EXPECT_EQ(formatter.type, u"USD");
}

TEST(KTOptionsKeys, WhatIsMissingStaysAndWhatIsUnknownIsIgnored)
{
    RecordingFormatter formatter;
    formatter.setOptions({});
    formatter.setOptions({{kKTFieldOption_decimalPlaces, 3}, {kKTFieldOption_currencyType, {}}});
    EXPECT_TRUE(formatter.order.isEmpty());
    EXPECT_TRUE(formatter.abbreviates);
}

TEST(KTOptionsKeys, MakeAnotherFormatterAlike)
{
    RecordingFormatter one;
    one.setCurrencyType(u"CHF"_s);
    RecordingFormatter other;
    other.setOptions(one.options());
    EXPECT_EQ(other.type, u"CHF");
}

TEST(KTOptionsKeys, RejectNilAndUnknownProperties)
{
    RecordingFormatter formatter;
    formatter.type = QString();
    EXPECT_RAISES(formatter.options(), NSInvalidArgumentException,
                  u"the option \"currencyType\" is nil");
    formatter.keys = {u"shoeSize"_s};
    EXPECT_THROW(formatter.options(), NSException);
    EXPECT_THROW(formatter.setOptions({{u"shoeSize"_s, 42}}), NSException);
}

TEST(KTOptionsKeys, AreNamedAfterTheProperties)
{
    const QList<std::pair<QString, QString>> names{
        {kKTFieldOption_currencyType, u"currencyType"_s},
        {kKTFieldOption_dateStyle, u"dateStyle"_s},
        {kKTFieldOption_decimalPlaces, u"decimalPlaces"_s},
        {kKTFieldOption_displayDate, u"displayDate"_s},
        {kKTFieldOption_displayThousandsSeparator, u"displayThousandsSeparator"_s},
        {kKTFieldOption_displayTime, u"displayTime"_s},
        {kKTFieldOption_displayYear, u"displayYear"_s},
        {kKTFieldOption_formatNegativeUsingParens, u"formatNegativeUsingParens"_s},
        {kKTFieldOption_highlightNegative, u"highlightNegative"_s},
        {kKTFieldOption_inputOrder, u"inputOrder"_s},
        {kKTFieldOption_timeStyle, u"timeStyle"_s},
        {kKTFieldOption_useAbbreviations, u"useAbbreviations"_s}};
    for (const auto &[constant, value] : names)
        EXPECT_EQ(constant, value);
}

#include "KTOptionsKeysTests.moc"
