#include "FieldValue.h"

#include <KTUtility/NSCalendar>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>

#include <QDateTime>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
QVariant numberIn(const QString &text)
{
    static const QRegularExpression form(uR"(\A[-+]?(\d+\.?\d*|\.\d+)([eE][-+]?\d+)?\z)"_s);
    if (!form.match(text).hasMatch())
        return {};
    const NSDecimalNumber number = NSDecimalNumber::decimalNumberWithString(text);
    return number.isNaN() ? QVariant() : QVariant::fromValue(number);
}

/// A date without a time is at midnight, a time without a date on the first day of 2001.
QVariant dateIn(const QString &text)
{
    const QString whole = text.contains(u'-') ? text : QString(u"2001-01-01T" + text);
    const QDateTime read = QDateTime::fromString(whole, Qt::ISODate);
    if (!read.isValid())
        return {};
    if (read.timeSpec() != Qt::LocalTime)
        return read;
    return QDateTime(read.date(), read.time(), NSCalendar::systemTimeZone());
}
} // namespace

QString FieldValue::textOf(const QVariant &value)
{
    if (NSObject::isNil(value))
        return u"(nil)"_s;
    if (value.metaType() == QMetaType::fromType<QDateTime>())
        return NSObject::description(value.toDateTime().toTimeZone(NSCalendar::systemTimeZone()));
    return NSObject::description(value);
}

QVariant FieldValue::valueOf(FieldType type, const QString &text)
{
    switch (type) {
    case FieldType::Number:
    case FieldType::Currency:
    case FieldType::Duration:
        return numberIn(text);
    case FieldType::Date:
    case FieldType::Time:
    case FieldType::DateTime:
        return dateIn(text);
    default:
        return text;
    }
}
