// Numbers, money, durations and phone numbers with readsCommonForms().

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTPhoneNumberFormatter>

#include "FormatterSupport.h"
#include "support/TestSupport.h"

#include <QRandomGenerator>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {
/// What a formatter reads; "NO" if it reads nothing.
QString readBy(const NSFormatter &formatter, const QString &text)
{
    QVariant value;
    if (!formatter.getObjectValue(&value, text) || !value.isValid())
        return u"NO"_s;
    return NSDecimalNumber::decimalNumberWithNumber(value).description();
}

QString reasonOf(const NSFormatter &formatter, const QString &text)
{
    QVariant value;
    QString reason;
    EXPECT_FALSE(formatter.getObjectValue(&value, text, &reason)) << qPrintable(text);
    return reason;
}

struct Row
{
    const char16_t *text;
    const char *without; ///< what is read while the option is off
    const char *with;
    const char *form;
};

void expect(KTReadingFormatter &formatter, const Row &row)
{
    const QString text = QString::fromUtf16(row.text);
    formatter.setReadsCommonForms(false);
    EXPECT_EQ(readBy(formatter, text).toStdString(), row.without) << qPrintable(text);
    EXPECT_FALSE(formatter.reading().isRead()) << qPrintable(text);
    formatter.setReadsCommonForms(true);
    EXPECT_EQ(readBy(formatter, text).toStdString(), row.with) << qPrintable(text);
    EXPECT_EQ(formatter.reading().form.toStdString(), row.form) << qPrintable(text);
}
} // namespace

// --- Numbers

TEST(KTNumberFormatterCommonForms, AreReadWithTheOptionOnly)
{
    const UserLocale user("en_US");
    constexpr Row Rows[] = {
        {u"1,234", "1234", "1234", "display"},
        {u"1234.5", "1234.5", "1234.5", "editing"},
        {u"1,234.5", "1234.5", "1234.5", "number"},
        {u"(12)", "-12", "-12", "number"},
        {u" 12 ", "12", "12", "number"},
        {u"3/4", "NO", "0.75", "common.fraction"},
        {u"1.234,56", "NO", "1234.56", "common.number"},
        {u"5-", "NO", "-5", "common.number"},
        {u"1,50", "150", "NO", ""},
        {u"5\u00B2", "52", "NO", ""},
        {u"12abc", "NO", "NO", ""},
        {u"", "NO", "NO", ""},
    };
    KTNumberFormatter formatter;
    for (const Row &row : Rows)
        expect(formatter, row);
}

TEST(KTNumberFormatterCommonForms, TellWhyATextIsRejected)
{
    const UserLocale user("de_DE");
    KTNumberFormatter formatter;
    formatter.setReadsCommonForms(true);
    EXPECT_TRUE(reasonOf(formatter, u"1.50"_s).contains(u"separators"_s));
    EXPECT_TRUE(reasonOf(formatter, u"50 %"_s).contains(u"percentage"_s));
    EXPECT_FALSE(reasonOf(formatter, u"abc"_s).isEmpty());
    EXPECT_FALSE(formatter.reading().isRead());
    EXPECT_FALSE(formatter.getObjectValue(nullptr, u"abc"_s));
    EXPECT_TRUE(formatter.getObjectValue(nullptr, u"5"_s));
}

TEST(KTNumberFormatterCommonForms, AreOfTheFormattersLocale)
{
    const UserLocale user("en_US");
    KTNumberFormatter formatter;
    formatter.setReadsCommonForms(true);
    EXPECT_EQ(readBy(formatter, u"1.234"_s), u"1.234"_s);
    formatter.setLocale(NSLocale(u"de_DE"_s));
    EXPECT_EQ(readBy(formatter, u"1.234"_s), u"1234"_s);
    EXPECT_EQ(formatter.reading().alternative.value<NSDecimalNumber>().description(), u"1.234"_s);
}

TEST(KTNumberFormatterPercent, IsShownAndRead)
{
    const UserLocale user("de_DE");
    KTNumberFormatter formatter;
    QSignalSpy changes(&formatter, &KTNumberFormatter::displaysPercentChanged);
    formatter.setDisplaysPercent(true);
    formatter.setDisplaysPercent(true);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(formatter.stringForObjectValue(0.5), u"50\u00A0%"_s);
    EXPECT_EQ(formatter.stringForObjectValue(-0.5), u"-50\u00A0%"_s);
    EXPECT_EQ(formatter.editingStringForObjectValue(-0.125), u"-12,5"_s);
    formatter.setFormatNegativeUsingParens(true);
    EXPECT_EQ(formatter.stringForObjectValue(-0.5), u"(50\u00A0%)"_s);
    EXPECT_EQ(readBy(formatter, u"50"_s), u"0.5"_s);
    EXPECT_EQ(readBy(formatter, u"%12,5"_s), u"0.125"_s);
    EXPECT_EQ(readBy(formatter, u"(50 %)"_s), u"-0.5"_s);
    EXPECT_EQ(formatter.optionsKeys()->size(), 4);
    formatter.setLocale(NSLocale(u"tr_TR"_s));
    EXPECT_EQ(formatter.stringForObjectValue(-0.5), u"(%50)"_s);
    formatter.setDisplaysPercent(false);
    EXPECT_EQ(formatter.stringForObjectValue(-2), u"(2)"_s);
    EXPECT_EQ(readBy(formatter, u"%50"_s), u"NO"_s);
}

// --- Money

TEST(KTCurrencyFormatterCommonForms, AreReadWithTheOptionOnly)
{
    const UserLocale user("en_US");
    constexpr Row Rows[] = {
        {u"$1,234.50", "1234.5", "1234.5", "display"},
        {u"12.5", "12.5", "12.5", "editing"},
        {u"1,234.50", "1234.5", "1234.5", "number"},
        {u"($12.50)", "-12.5", "-12.5", "common.money"},
        {u"USD 5", "5", "5", "iso4217"},
        {u"usd$ 5", "NO", "5", "common.money"},
        {u"$5-", "NO", "-5", "common.money"},
        {u"5.-", "NO", "5", "common.money"},
        {u"$1,50", "150", "NO", ""},
        {u"\u20AC5", "NO", "NO", ""},
        {u"5 bananas", "NO", "NO", ""},
    };
    KTCurrencyFormatter formatter;
    for (const Row &row : Rows)
        expect(formatter, row);
    EXPECT_TRUE(reasonOf(formatter, u"\u20AC5"_s).contains(u"EUR"_s));
    EXPECT_TRUE(reasonOf(formatter, u"5 bananas"_s).contains(u"USD"_s));
}

TEST(KTCurrencyFormatterCommonForms, HaveTheSignsOfNumbersAndOfMoney)
{
    const UserLocale user("fr_CH");
    KTCurrencyFormatter formatter;
    formatter.setReadsCommonForms(true);
    EXPECT_EQ(readBy(formatter, u"12,50"_s), u"12.5"_s);
    EXPECT_EQ(readBy(formatter, u"CHF 12.50"_s), u"12.5"_s);
    EXPECT_EQ(readBy(formatter, u"CHF 12,50"_s), u"12.5"_s);
    // What is typed is of the numbers' locale, what stands beside a sign of the currency's.
    formatter.setLocale(NSLocale(u"de_DE"_s));
    EXPECT_EQ(readBy(formatter, u"1.234,50"_s), u"1234.5"_s);
}

TEST(KTCurrencyFormatterCommonForms, ReadNoOtherAmountWithoutTheSign)
{
    struct Amount
    {
        const char *locale;
        QString text;
        QString read;
    };
    // Signs of money beside those of numbers: what is another amount with these is read only where
    // it is what the field shows for editing.
    const Amount amounts[] = {
        {"fr_CH", u"1.50"_s, u"1.5"_s},         {"fr_CH", u"CHF 1.500"_s, u"1.5"_s},
        {"en_DE", u"\u20AC1,500"_s, u"1500"_s}, {"en_DE", u"1,500"_s, u"NO"_s},
        {"en_DE", u"1,5"_s, u"1.5"_s},          {"en_DE", u"1,234"_s, u"1.234"_s},
        {"pt_CV", u"12,345"_s, u"12.345"_s}};
    for (const Amount &amount : amounts) {
        const UserLocale user(amount.locale);
        KTCurrencyFormatter formatter;
        formatter.setReadsCommonForms(true);
        EXPECT_EQ(readBy(formatter, amount.text), amount.read)
            << amount.locale << ' ' << amount.text.toStdString();
    }
}

TEST(KTCurrencyFormatterCommonForms, OfferAllCurrencies)
{
    const UserLocale user("en_US");
    KTCurrencyFormatter formatter;
    QSignalSpy changes(&formatter, &KTCurrencyFormatter::currencyTypeChanged);
    formatter.setCurrencyType(u"INR"_s);
    EXPECT_EQ(formatter.currencyType(), u"USD"_s);
    formatter.setReadsCommonForms(true);
    EXPECT_EQ(formatter.currencyType(), u"INR"_s);
    EXPECT_EQ(readBy(formatter, u"Rs. 20"_s), u"20"_s);
    EXPECT_EQ(formatter.stringForObjectValue(20), u"\u20B920.00"_s);
    formatter.setCurrencyType(u"RON"_s);
    EXPECT_EQ(readBy(formatter, u"10 lei"_s), u"10"_s);
    formatter.setReadsCommonForms(false);
    EXPECT_EQ(formatter.currencyType(), u"USD"_s);
    formatter.setCurrencyType(u"EUR"_s);
    formatter.setReadsCommonForms(true);
    EXPECT_EQ(formatter.currencyType(), u"EUR"_s);
    EXPECT_EQ(changes.size(), 5);
}

TEST(KTCurrencyFormatterCommonForms, AdjustToTheCurrencyOfAText)
{
    const UserLocale user("en_US");
    KTCurrencyFormatter formatter;
    formatter.setReadsCommonForms(true);
    QVariantMap options;
    EXPECT_EQ(formatter.adjustForValue(u"5"_s, &options), nullptr);
    EXPECT_EQ(formatter.adjustForValue(u"\u20AC5"_s, &options), &formatter);
    EXPECT_EQ(options.value(kKTFieldOption_currencyType), u"EUR"_s);
    formatter.setReadsCommonForms(false);
    EXPECT_EQ(formatter.currencyType(), u"EUR"_s);
}

// --- Durations

TEST(KTDurationFormatterCommonForms, AreReadWithTheOptionOnly)
{
    const UserLocale user("de_DE");
    constexpr Row Rows[] = {
        {u"1h 30m", "5400", "5400", "display"},
        {u"2 hours, 30 minutes", "9000", "9000", "common.units"},
        {u"30m 1h", "5400", "5400", "units"},
        {u"1h 1h", "7200", "7200", "units"},
        {u"1:30", "NO", "5400", "common.clock"},
        {u"PT1H30M", "NO", "5400", "iso8601.duration"},
        {u"1,5 Stunden", "NO", "5400", "common.units"},
        {u"-2h", "7200", "-7200", "display"},
        {u"~2h", "7200", "NO", ""},
        {u",", "0", "NO", ""},
        {u"0h", "NO", "0", "common.units"},
        {u"0s", "NO", "0", "display"},
        {u"90", "NO", "NO", ""},
        {u"5 Monate", "NO", "NO", ""},
    };
    KTDurationFormatter formatter;
    for (const Row &row : Rows)
        expect(formatter, row);
    EXPECT_TRUE(reasonOf(formatter, u"5 Monate"_s).contains(u"fixed length"_s));
    EXPECT_EQ(reasonOf(formatter, u"90"_s), u"Could not convert to a time"_s);
}

TEST(KTDurationFormatterCommonForms, ShowWhatTheyRead)
{
    struct ShownRow
    {
        const char *seconds;
        const char16_t *abbreviated;
        const char16_t *inWords;
    };
    constexpr ShownRow Rows[] = {
        {"93784", u"1d 2h 3m 4s", u"1 day 2 hours 3 minutes 4 seconds"},
        {"0", u"0s", u"0 seconds"},
        {"1", u"1s", u"1 second"},
        {"-7200", u"-2h", u"-2 hours"},
        {"3.14", u"3,14s", u"3,14 seconds"},
        {"-61.5", u"-1m 1,5s", u"-1 minute 1,5 seconds"},
    };
    const UserLocale user("de_DE");
    KTDurationFormatter formatter;
    formatter.setReadsCommonForms(true);
    for (const ShownRow &row : Rows) {
        const auto value = QVariant::fromValue(
            NSDecimalNumber::decimalNumberWithString(QString::fromLatin1(row.seconds)));
        formatter.setUseAbbreviations(true);
        EXPECT_EQ(formatter.stringForObjectValue(value), QString::fromUtf16(row.abbreviated));
        formatter.setUseAbbreviations(false);
        EXPECT_EQ(formatter.stringForObjectValue(value), QString::fromUtf16(row.inWords));
    }
    EXPECT_EQ(formatter.stringForObjectValue(QVariant::fromValue(NSDecimalNumber::notANumber())),
              u""_s);
    EXPECT_TRUE(formatter.stringForObjectValue(u"x"_s).isNull());
}

TEST(KTDurationFormatterCommonForms, AreOfItsLocale)
{
    const UserLocale user("en_US");
    KTDurationFormatter formatter;
    formatter.setReadsCommonForms(true);
    QSignalSpy changes(&formatter, &KTDurationFormatter::localeChanged);
    EXPECT_EQ(readBy(formatter, u"2 Stunden"_s), u"NO"_s);
    formatter.setLocale(NSLocale(u"de_DE"_s));
    EXPECT_EQ(formatter.locale().localeIdentifier(), u"de_DE"_s);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(readBy(formatter, u"2 Stunden"_s), u"7200"_s);
    EXPECT_EQ(readBy(formatter, u"2 hours"_s), u"7200"_s);
    QVariant value = 7;
    EXPECT_TRUE(formatter.getObjectValue(&value, QString()));
    EXPECT_EQ(value, 7);
    EXPECT_FALSE(formatter.getObjectValue(nullptr, u"2h"_s));
}

// --- Phone numbers

TEST(KTPhoneNumberFormatterCommonForms, TellWhatATextIs)
{
    struct PhoneRow
    {
        const char16_t *text;
        const char *form;
        const char *number;
    };
    constexpr PhoneRow Rows[] = {
        {u"+14155551234", "e164", "+14155551234"},
        {u"+1 (415) 555-1234", "e164", "+14155551234"},
        {u"\uFF0B44 (0)20 7946 0018", "e164", "+442079460018"},
        {u"415.555.1234", "national", "4155551234"},
        {u"(415) 555-1234", "national", "4155551234"},
        {u"+0123456789", "asTyped", ""},
        {u"+12345", "asTyped", ""},
        {u"+1234567890123456", "asTyped", ""},
        {u"555-1234 ask for Ann", "asTyped", ""},
        {u"", "asTyped", ""},
    };
    KTPhoneNumberFormatter formatter;
    formatter.setFormatIndex(0);
    formatter.setReadsCommonForms(true);
    for (const PhoneRow &row : Rows) {
        const QString text = QString::fromUtf16(row.text);
        QVariant value;
        ASSERT_TRUE(formatter.getObjectValue(&value, text));
        EXPECT_EQ(value, text);
        const KTReading &reading = formatter.reading();
        EXPECT_EQ(reading.form.toStdString(), row.form) << qPrintable(text);
        EXPECT_EQ(reading.parts.isEmpty() ? "" : reading.parts.first().meaning.toStdString(),
                  row.number)
            << qPrintable(text);
    }
}

// --- All of them

TEST(CommonFormsOfNumbers, GiveNoValueToWhatNobodyTypes)
{
    const UserLocale user("en_US");
    KTNumberFormatter number;
    KTCurrencyFormatter money;
    KTDurationFormatter duration;
    for (KTReadingFormatter *formatter :
         std::initializer_list<KTReadingFormatter *>{&number, &money, &duration}) {
        formatter->setReadsCommonForms(true);
        for (const char16_t *text :
             {u"hello", u"1 2 3", u"1..2", u"++", u"5 5", u"(((5", u"5)))", u"\u00B2", u"1/2/3",
              u"12/05/2008", u"192.168.0.1", u"1-2-3", u"a", u"and", u"12:60", u"\U0001F600"})
            EXPECT_EQ(readBy(*formatter, QString::fromUtf16(text)), u"NO"_s)
                << QString::fromUtf16(text).toStdString();
        EXPECT_EQ(readBy(*formatter, QString(2000, u'5')), u"NO"_s);
    }
}

TEST(CommonFormsOfNumbers, TakeAnyText)
{
    const QStringList tokens =
        u"1|12|345|0|.|,|'| |-|+|(|)|/|:|e5|%|\u00BD|$|\u20AC|USD|dollars|Rs.|h|min|hours|and|a "
        "half|P|T|PT|half an|\u0663|\u066B|\u5186|\u6642\u9593|\u05E9\u05E2\u05EA\u05D9\u05D9\u05DD"_s
            .split(u'|');
    QRandomGenerator random(19);
    for (const char *locale : {"en_US", "de_DE", "ar_EG", "ja_JP", "he_IL", "hi_IN"}) {
        const UserLocale user(locale);
        KTNumberFormatter number;
        KTCurrencyFormatter money;
        KTDurationFormatter duration;
        for (KTReadingFormatter *formatter :
             std::initializer_list<KTReadingFormatter *>{&number, &money, &duration}) {
            formatter->setReadsCommonForms(true);
            for (int count = 0; count < 500; ++count) {
                QString text;
                for (int index = random.bounded(1, 8); index > 0; --index)
                    text += tokens.at(random.bounded(int(tokens.size())));
                const QString first = readBy(*formatter, text);
                const KTReading reading = formatter->reading();
                EXPECT_EQ(reading.isRead(), first != u"NO") << qPrintable(text);
                EXPECT_EQ(readBy(*formatter, text), first) << qPrintable(text);
                for (const KTReadingPart &part : reading.parts) {
                    EXPECT_GE(part.range.location, 0);
                    EXPECT_GT(part.range.length, 0) << qPrintable(text);
                    EXPECT_LE(part.range.end(), text.size()) << qPrintable(text);
                }
            }
        }
    }
}
