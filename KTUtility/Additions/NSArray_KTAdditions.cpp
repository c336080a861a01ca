#include "NSArray_KTAdditions.h"

using namespace KTPrivate;

namespace {
/// Texts in the order of people; anything else behind them, in the order of its values.
bool isBeforeForUser(const QVariant &left, const QVariant &right)
{
    const bool isLeftText = left.typeId() == QMetaType::QString;
    const bool isRightText = right.typeId() == QMetaType::QString;
    if (isLeftText && isRightText)
        return NSString::localizedCompare(left.toString(), right.toString()) < 0;
    if (isLeftText != isRightText)
        return isLeftText;
    return NSObject::compare(left, right) < 0;
}

/// Whether a method that compares found no difference.
bool isSameOrder(const QVariant &result)
{
    return NSObject::isNumber(result) && NSObject::integerValue(result) == 0;
}
} // namespace

QStringList KTAdditions::sortInUserFieldOrder(const QStringList &list)
{
    QStringList result = list;
    std::stable_sort(result.begin(), result.end(), [](const QString &left, const QString &right) {
        return NSString::localizedCompare(left, right) < 0;
    });
    return result;
}

QVariantList KTAdditions::sortInUserFieldOrder(const QVariantList &list)
{
    QVariantList result = list;
    std::stable_sort(result.begin(), result.end(), isBeforeForUser);
    return result;
}

bool KTAdditions::containsName(const QStringList &list, const KTText &name)
{
    return !name.isNull() && list.contains(name.string());
}

bool KTAdditions::containsName(const QVariantList &list, const KTText &name)
{
    if (name.isNull())
        return false;
    Invoker compare("compare:", {name.string()});
    return std::any_of(list.begin(), list.end(), [&](const QVariant &element) {
        const KeyValueTarget target = KeyValueTarget::ofVariant(element);
        return compare.respondsTo(target) ? isSameOrder(compare.perform(target))
                                          : NSObject::isEqualTo(element, name.string());
    });
}
