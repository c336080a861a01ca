#include "FieldType.h"

#include "PhoneLayouts.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/KTTimeFormatter>

#include <array>
#include <utility>

namespace {
constexpr std::array<std::pair<FieldType, QStringView>, 9> Names{{
    {FieldType::Number, u"number"},
    {FieldType::Currency, u"currency"},
    {FieldType::Duration, u"duration"},
    {FieldType::Time, u"time"},
    {FieldType::Date, u"date"},
    {FieldType::DateTime, u"date+time"},
    {FieldType::Phone, u"phone"},
    {FieldType::Media, u"media"},
    {FieldType::Text, u"text"},
}};

std::unique_ptr<NSFormatter> dateTimeFormatter()
{
    auto formatter = std::make_unique<KTDateTimeFormatter>();
    formatter->setDisplayTime(true);
    return formatter;
}

std::unique_ptr<NSFormatter> phoneFormatter()
{
    auto formatter = std::make_unique<KTPhoneNumberFormatter>();
    formatter->setFormatIndex(
        PhoneLayouts::indexForCountry(NSLocale::currentLocale().countryCode()));
    return formatter;
}
bool hasFormatter(FieldType type)
{
    return type != FieldType::Text && type != FieldType::Media;
}
} // namespace

QString FieldTypes::nameOf(FieldType type)
{
    for (const auto &[known, name] : Names) {
        if (known == type)
            return name.toString();
    }
    return {};
}

std::optional<FieldType> FieldTypes::typeNamed(const QString &name)
{
    const QStringView wanted = name == u"datetime" ? QStringView(u"date+time") : QStringView(name);
    for (const auto &[type, known] : Names) {
        if (known == wanted && hasFormatter(type))
            return type;
    }
    return std::nullopt;
}

FieldType FieldTypes::storedTypeNamed(const QString &name)
{
    for (const auto &[type, known] : Names) {
        if (known == name)
            return type;
    }
    return FieldType::Text;
}

QStringList FieldTypes::names()
{
    QStringList names;
    for (const auto &[type, name] : Names) {
        if (hasFormatter(type))
            names.append(name.toString());
    }
    return names;
}

std::unique_ptr<NSFormatter> FieldTypes::formatterFor(FieldType type)
{
    switch (type) {
    case FieldType::Number:
        return std::make_unique<KTNumberFormatter>();
    case FieldType::Currency:
        return std::make_unique<KTCurrencyFormatter>();
    case FieldType::Duration:
        return std::make_unique<KTDurationFormatter>();
    case FieldType::Time:
        return KTTimeFormatter::createTimeFormatter();
    case FieldType::Date:
        return std::make_unique<KTDateTimeFormatter>();
    case FieldType::DateTime:
        return dateTimeFormatter();
    case FieldType::Phone:
        return phoneFormatter();
    case FieldType::Media:
    case FieldType::Text:
        return nullptr;
    }
    return nullptr;
}
