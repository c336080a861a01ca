#include "FieldType.h"

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
