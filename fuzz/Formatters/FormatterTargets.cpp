#include "FuzzTarget.h"
#include "Targets.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSObject>

namespace {
/// Reads a text, shows what was read, and reads that.
/// \return the first reading; nil if there was none.
QVariant readShowRead(const NSFormatter &formatter, const QString &text)
{
    QVariant value;
    QString error;
    if (!formatter.getObjectValue(&value, text, &error))
        return {};
    const QString shown = formatter.stringForObjectValue(value);
    formatter.attributedStringForObjectValue(value);
    formatter.editingStringForObjectValue(value);
    QVariant again;
    formatter.getObjectValue(&again, shown, &error);
    return value;
}

/// Reads a text in common forms, too; what is shown then comes back.
void requireShownComesBack(KTReadingFormatter &formatter, const QString &text)
{
    formatter.setReadsCommonForms(true);
    const QVariant value = readShowRead(formatter, text);
    FUZZ_REQUIRE(formatter.reading().isRead() || NSObject::isNil(value));
    const QString shown = formatter.stringForObjectValue(value);
    if (shown.isEmpty())
        return;
    QVariant again;
    FUZZ_REQUIRE(formatter.getObjectValue(&again, shown));
    FUZZ_REQUIRE(formatter.stringForObjectValue(again) == shown);
}

/// Options come back as they were set.
void requireOptionsRoundTrip(NSFormatter &formatter)
{
    const QVariantMap options = formatter.options();
    formatter.setOptions(options);
    FUZZ_REQUIRE(formatter.options() == options);
}
} // namespace

void fuzzNumber(FuzzInput &input)
{
    KTNumberFormatter formatter;
    formatter.setLocale(NSLocale(input.locale()));
    input.setOptions(&formatter);
    requireOptionsRoundTrip(formatter);
    readShowRead(formatter, input.text());
}

void fuzzCurrency(FuzzInput &input)
{
    KTCurrencyFormatter formatter;
    formatter.setLocale(NSLocale(input.locale()));
    formatter.setCurrencyLocale(NSLocale(input.locale()));
    input.setOptions(&formatter);
    readShowRead(formatter, input.text());
}

void fuzzDateTime(FuzzInput &input)
{
    KTDateTimeFormatter dates;
    const std::unique_ptr<KTTimeFormatter> times = KTTimeFormatter::createTimeFormatter();
    KTDateTimeFormatter &formatter = input.flag() ? dates : *times;
    formatter.setLocale(NSLocale(input.locale()));
    input.setOptions(&formatter);
    // A field that shows neither date nor time is a broken contract.
    if (formatter.dateStyle() == NSDateFormatterNoStyle)
        formatter.setTimeStyle(NSDateFormatterShortStyle);
    const QString text = input.text();
    const QVariant value = readShowRead(formatter, text);
    FUZZ_REQUIRE(NSObject::isNil(value) || value.toDateTime().isValid());
    requireShownComesBack(formatter, text);
}

void fuzzDuration(FuzzInput &input)
{
    KTDurationFormatter formatter;
    input.setOptions(&formatter);
    const bool isImported = input.flag();
    const QString text = input.text();
    if (isImported)
        formatter.willFormatString(text, QVariant());
    readShowRead(formatter, text);
    if (isImported)
        formatter.didFormatString(text, QVariant());
}

void fuzzPhone(FuzzInput &input)
{
    KTPhoneNumberFormatter formatter;
    input.setOptions(&formatter);
    formatter.setFormatIndex(input.below(8));
    const QString text = input.text();
    const QVariant value = readShowRead(formatter, text);
    const QString shown = formatter.stringForObjectValue(text);
    // What is shown is bounded by what was typed and the layout.
    FUZZ_REQUIRE(shown.size() <= text.size() * 2 + 64);
    Q_UNUSED(value);
}
