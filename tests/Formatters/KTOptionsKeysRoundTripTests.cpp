// Options go through a file and come back: random settings of every formatter.

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTOptionsKeys>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSPropertyListSerialization>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "FormatterSupport.h"
#include "support/Properties.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QStringList &locales()
{
    static const QStringList identifiers =
        u"en_US de_DE fr_CH ja_JP ja_JP@calendar=japanese tr_TR ar_EG hi_IN he_IL"_s.split(u' ');
    return identifiers;
}

const QList<QVariant> &values()
{
    static const QList<QVariant> samples = {
        0,
        5,
        -1234567.891,
        NSDateFormatterShortStyle,
        QDateTime(QDate(2008, 3, 5), QTime(17, 30, 15), KTPrivate::UTC),
        u"4155551234"_s,
        QVariant(),
    };
    return samples;
}

/// The dictionary as a settings file keeps it.
QVariantMap throughAFile(const QVariantMap &options)
{
    const QByteArray data = NSPropertyListSerialization::dataWithPropertyList(options);
    RC_ASSERT(!data.isNull());
    return NSPropertyListSerialization::propertyListFromData(data).toMap();
}

/// Expects that a new formatter with the options of the given one is like it.
template<typename Formatter>
void requireTwin(const Formatter &formatter)
{
    const QVariantMap options = formatter.options();
    RC_ASSERT((options.keys() == [&] {
        QStringList keys = formatter.optionsKeys().value_or(QStringList());
        keys.sort();
        return keys;
    }()));
    Formatter twin;
    twin.setOptions(throughAFile(options));
    RC_ASSERT((twin.options() == options));
    for (const QVariant &value : values()) {
        requireSame(twin.stringForObjectValue(value), formatter.stringForObjectValue(value));
        requireSame(twin.editingStringForObjectValue(value),
                    formatter.editingStringForObjectValue(value));
        RC_ASSERT((twin.attributedStringForObjectValue(value).has_value() ==
                   formatter.attributedStringForObjectValue(value).has_value()));
    }
}

void setAnyNumberOptions(KTNumberFormatter &formatter)
{
    formatter.setDisplayThousandsSeparator(someBool());
    formatter.setHighlightNegative(someBool());
    formatter.setFormatNegativeUsingParens(someBool());
}

void setAnyDateOptions(KTDateTimeFormatter &formatter)
{
    const auto dateStyle = uint(someNumber(0, 4));
    formatter.setDateStyle(dateStyle);
    formatter.setTimeStyle(uint(someNumber(dateStyle == 0 ? 1 : 0, 4)));
    formatter.setDisplayYear(someBool());
}
} // namespace

TEST(KTOptionsKeysRoundTrip, NumbersComeBack)
{
    checkProperty("options of number formatters", 150, [] {
        const UserLocale user(someOf(locales()));
        KTNumberFormatter formatter;
        formatter.setDecimalPlaces(uint(someNumber(0, someBool() ? 3 : 120)));
        setAnyNumberOptions(formatter);
        requireTwin(formatter);
    });
}

TEST(KTOptionsKeysRoundTrip, MoneyComesBack)
{
    checkProperty("options of currency formatters", 150, [] {
        const UserLocale user(someOf(locales()));
        KTCurrencyFormatter formatter;
        formatter.setCurrencyType(someOf(NSLocale::commonISOCurrencyCodes()));
        setAnyNumberOptions(formatter);
        requireTwin(formatter);
    });
}

template<typename Formatter>
void checkDateOptions(const char *name)
{
    checkProperty(name, 150, [] {
        const UserLocale user(someOf(locales()));
        Formatter formatter;
        setAnyDateOptions(formatter);
        requireTwin(formatter);
    });
}

TEST(KTOptionsKeysRoundTrip, DatesAndTimesComeBack)
{
    checkDateOptions<KTDateTimeFormatter>("options of date formatters");
    checkDateOptions<KTTimeFormatter>("options of time formatters");
}

TEST(KTOptionsKeysRoundTrip, DurationsAndPhoneNumbersComeBack)
{
    for (const bool abbreviates : {true, false}) {
        KTDurationFormatter formatter;
        formatter.setUseAbbreviations(abbreviates);
        requireTwin(formatter);
        KTDurationFormatter twin;
        twin.setOptions(formatter.options());
        EXPECT_EQ(twin.useAbbreviations(), abbreviates);
    }
    requireTwin(KTPhoneNumberFormatter());
}
