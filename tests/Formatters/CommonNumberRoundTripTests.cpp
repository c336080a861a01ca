// With common forms on, whatever a field shows reads back to the same value: in all of ICU's
// locales, in every setting, without exceptions.

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDurationFormatter>

#include "FormatterSupport.h"
#include "support/TestSupport.h"

#include <unicode/locid.h>

#include <span>

using namespace Qt::StringLiterals;

namespace {
QStringList allLocales()
{
    int32_t count = 0;
    const icu::Locale *const locales = icu::Locale::getAvailableLocales(count);
    QStringList identifiers;
    for (int32_t index = 0; index < count; ++index)
        identifiers.append(QString::fromLatin1(locales[index].getName()));
    return identifiers;
}

constexpr const char *Numbers[] = {"0",     "-1",      "0.5",        "-0.25",
                                   "999",   "-1234.5", "1234567.89", "-1234567",
                                   "1.234", "0.001",   "12.345",     "123456789012"};
constexpr const char *Seconds[] = {"0",  "1",     "61",   "93784", "604800", "-7200",
                                   "-5", "-61.5", "3.14", "1.001", "0.5"};
constexpr const char *Currencies[] = {"USD", "PTE"};

class RoundTrip
{
public:
    explicit RoundTrip(const QString &locale) : _locale(locale) {}

    void check(KTReadingFormatter &formatter, std::span<const char *const> values)
    {
        formatter.setReadsCommonForms(true);
        for (const char *value : values)
            check(formatter, NSDecimalNumber::decimalNumberWithString(QString::fromLatin1(value)));
    }

private:
    void check(const KTReadingFormatter &formatter, const NSDecimalNumber &number) const
    {
        const QVariant value = QVariant::fromValue(number);
        check(formatter, number, formatter.stringForObjectValue(value));
        check(formatter, number, formatter.editingStringForObjectValue(value));
    }

    void check(const KTReadingFormatter &formatter, const NSDecimalNumber &number,
               const QString &text) const
    {
        QVariant value;
        ASSERT_TRUE(formatter.getObjectValue(&value, text)) << qPrintable(_locale + u' ' + text);
        EXPECT_EQ(value.value<NSDecimalNumber>(), number) << qPrintable(_locale + u' ' + text);
        const QString &form = formatter.reading().form;
        EXPECT_TRUE(form == u"display" || form == u"editing") << qPrintable(_locale + u' ' + text);
    }

    QString _locale;
};

void setNegativeForm(KTNumberFormatter &formatter, bool usesParentheses, bool usesGroups)
{
    formatter.setDisplayAllDecimalPlaces();
    formatter.setFormatNegativeUsingParens(usesParentheses);
    formatter.setDisplayThousandsSeparator(usesGroups);
}

template<typename Check>
void forAllLocalesAndForms(const Check &check)
{
    for (const QString &locale : allLocales()) {
        const UserLocale user(locale);
        for (const bool usesParentheses : {false, true}) {
            for (const bool usesGroups : {false, true})
                check(RoundTrip(locale), usesParentheses, usesGroups);
        }
    }
}
} // namespace

TEST(CommonNumberRoundTrip, NumbersComeBackInAllLocales)
{
    forAllLocalesAndForms([](RoundTrip trip, bool usesParentheses, bool usesGroups) {
        for (const bool isPercent : {false, true}) {
            KTNumberFormatter formatter;
            formatter.setDisplaysPercent(isPercent);
            setNegativeForm(formatter, usesParentheses, usesGroups);
            trip.check(formatter, Numbers);
        }
    });
}

TEST(CommonNumberRoundTrip, MoneyComesBackInAllLocales)
{
    forAllLocalesAndForms([](RoundTrip trip, bool usesParentheses, bool usesGroups) {
        KTCurrencyFormatter formatter;
        setNegativeForm(formatter, usesParentheses, usesGroups);
        trip.check(formatter, Numbers);
    });
}

TEST(CommonNumberRoundTrip, ForeignMoneyComesBackInAllLocales)
{
    for (const QString &locale : allLocales()) {
        const UserLocale user(locale);
        for (const char *currency : Currencies) {
            KTCurrencyFormatter formatter;
            formatter.setCurrencyType(QString::fromLatin1(currency));
            setNegativeForm(formatter, locale.size() % 2 == 0, true);
            RoundTrip(locale).check(formatter, std::span(Numbers).first(6));
        }
    }
}

TEST(CommonNumberRoundTrip, EveryCurrencyComesBack)
{
    for (const char *locale : {"en_US", "de_DE", "ar_EG", "ja_JP", "hi_IN", "es_MX"}) {
        const UserLocale user(locale);
        for (const QString &code : NSLocale::commonISOCurrencyCodes()) {
            KTCurrencyFormatter formatter;
            formatter.setReadsCommonForms(true);
            formatter.setCurrencyType(code);
            setNegativeForm(formatter, false, true);
            RoundTrip(QString::fromLatin1(locale)).check(formatter, std::span(Numbers).first(6));
        }
    }
}

TEST(CommonNumberRoundTrip, DurationsComeBackInAllLocales)
{
    for (const QString &locale : allLocales()) {
        const UserLocale user(locale);
        for (const bool usesAbbreviations : {false, true}) {
            KTDurationFormatter formatter;
            formatter.setUseAbbreviations(usesAbbreviations);
            RoundTrip(locale).check(formatter, Seconds);
        }
    }
}
