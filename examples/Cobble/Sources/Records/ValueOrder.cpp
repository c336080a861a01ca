#include "ValueOrder.h"

#include "TextOrder.h"

#include <KTUtility/NSLocale>
#include <KTUtility/NSObject>

#include <optional>

namespace {
const TextOrder &orderIn(const QString &locale)
{
    thread_local QString current;
    thread_local std::optional<TextOrder> order;
    if (!order || current != locale) {
        current = locale;
        order.emplace(locale);
    }
    return *order;
}
} // namespace

std::weak_ordering ValueOrder::compare(const QVariant &left, const QVariant &right)
{
    const bool areTexts =
        left.typeId() == QMetaType::QString && right.typeId() == QMetaType::QString;
    if (!areTexts)
        return NSObject::compare(left, right);
    return orderIn(NSLocale::currentLocale().localeIdentifier())
        .compare(left.toString(), right.toString());
}
