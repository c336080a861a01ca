#include "FieldFormat.h"

#include "PhoneLayouts.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/KTTimeFormatter>

#include <utility>

namespace {
/// Whoever types into a field, or has typed a file, means what people mean.
FieldFormat plainFormat(std::unique_ptr<KTReadingFormatter> formatter)
{
    formatter->setReadsCommonForms(true);
    FieldFormat format;
    format.formatter = std::move(formatter);
    return format;
}

/// Numbers or money: "1,50" must not become 150 without a word.
template<typename Formatter>
FieldFormat numberFormat()
{
    auto formatter = std::make_unique<Formatter>();
    formatter->setRejectsUnevenGroups(true);
    return plainFormat(std::move(formatter));
}

FieldFormat durationFormat()
{
    auto formatter = std::make_unique<KTDurationFormatter>();
    KTDurationFormatter *const durations = formatter.get();
    FieldFormat format = plainFormat(std::move(formatter));
    format.willImport = [durations](const QString &text) {
        durations->willFormatString(text, QVariant());
    };
    format.didImport = [durations](const QString &text) {
        durations->didFormatString(text, QVariant());
    };
    return format;
}

FieldFormat dateFormat(std::unique_ptr<KTDateTimeFormatter> formatter)
{
    const KTDateTimeFormatter *const dates = formatter.get();
    FieldFormat format = plainFormat(std::move(formatter));
    format.recentPattern = [dates] {
        const NSDateFormatter *const recent = dates->mostRecentFormatter();
        return recent ? recent->dateFormat() : QString();
    };
    return format;
}

std::unique_ptr<KTDateTimeFormatter> dateTimeFormatter()
{
    auto formatter = std::make_unique<KTDateTimeFormatter>();
    formatter->setDisplayTime(true);
    return formatter;
}

std::unique_ptr<KTReadingFormatter> phoneFormatter(const std::optional<NSLocale> &locale)
{
    auto formatter = std::make_unique<KTPhoneNumberFormatter>();
    formatter->setFormatIndex(
        PhoneLayouts::indexForCountry(locale.value_or(NSLocale::currentLocale()).countryCode()));
    return formatter;
}

void setLocale(const NSLocale &locale, NSFormatter *formatter)
{
    if (auto *const numbers = qobject_cast<KTNumberFormatter *>(formatter))
        numbers->setLocale(locale);
    if (auto *const money = qobject_cast<KTCurrencyFormatter *>(formatter))
        money->setCurrencyLocale(locale);
    if (auto *const dates = qobject_cast<KTDateTimeFormatter *>(formatter))
        dates->setLocale(locale);
    if (auto *const durations = qobject_cast<KTDurationFormatter *>(formatter))
        durations->setLocale(locale);
}

FieldFormat formatOf(FieldType type, const std::optional<NSLocale> &locale)
{
    switch (type) {
    case FieldType::Number:
        return numberFormat<KTNumberFormatter>();
    case FieldType::Currency:
        return numberFormat<KTCurrencyFormatter>();
    case FieldType::Duration:
        return durationFormat();
    case FieldType::Time:
        return dateFormat(KTTimeFormatter::createTimeFormatter());
    case FieldType::Date:
        return dateFormat(std::make_unique<KTDateTimeFormatter>());
    case FieldType::DateTime:
        return dateFormat(dateTimeFormatter());
    case FieldType::Phone:
        return plainFormat(phoneFormatter(locale));
    case FieldType::Media:
    case FieldType::Text:
        return {};
    }
    return {};
}
} // namespace

FieldFormat FieldFormat::of(FieldType type, const std::optional<NSLocale> &locale)
{
    FieldFormat format = formatOf(type, locale);
    if (locale)
        setLocale(*locale, format.formatter.get());
    return format;
}
