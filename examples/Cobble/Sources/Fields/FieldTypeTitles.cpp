#include "FieldTypeTitles.h"

#include <array>

namespace {
/// In the order of FieldType.
constexpr std::array TypeTitles = {
    QT_TRANSLATE_NOOP("FieldTypeTitles", "Number"),
    QT_TRANSLATE_NOOP("FieldTypeTitles", "Currency"),
    QT_TRANSLATE_NOOP("FieldTypeTitles", "Duration"),
    QT_TRANSLATE_NOOP("FieldTypeTitles", "Time"),
    QT_TRANSLATE_NOOP("FieldTypeTitles", "Date"),
    QT_TRANSLATE_NOOP("FieldTypeTitles", "Date and time"),
    QT_TRANSLATE_NOOP("FieldTypeTitles", "Phone number"),
    QT_TRANSLATE_NOOP("FieldTypeTitles", "Picture"),
    QT_TRANSLATE_NOOP("FieldTypeTitles", "Text"),
};
} // namespace

QString FieldTypeTitles::titleOf(FieldType type)
{
    return tr(TypeTitles.at(size_t(type)));
}

QString FieldTypeTitles::titleOf(FieldType type, const QString &currency)
{
    return currency.isNull() ? titleOf(type) : QString(titleOf(type) + u" (" + currency + u')');
}

QList<FieldType> FieldTypeTitles::types()
{
    return {FieldType::Text,     FieldType::Number, FieldType::Currency,
            FieldType::Duration, FieldType::Date,   FieldType::Time,
            FieldType::DateTime, FieldType::Phone,  FieldType::Media};
}
