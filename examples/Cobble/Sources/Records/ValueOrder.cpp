#include "ValueOrder.h"

#include <KTUtility/NSLocale>
#include <KTUtility/NSObject>

#include <QCollator>

namespace {
const QCollator &collatorFor(const QString &locale)
{
    thread_local QString current;
    thread_local QCollator collator;
    if (current != locale || current.isNull()) {
        current = locale;
        collator = QCollator(QLocale(locale));
        collator.setNumericMode(true);
    }
    return collator;
}
} // namespace

std::weak_ordering ValueOrder::compare(const QVariant &left, const QVariant &right)
{
    const bool areTexts =
        left.typeId() == QMetaType::QString && right.typeId() == QMetaType::QString;
    if (!areTexts)
        return NSObject::compare(left, right);
    const QString locale = NSLocale::currentLocale().localeIdentifier();
    return collatorFor(locale).compare(left.toString(), right.toString()) <=> 0;
}
