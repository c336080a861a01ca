#include "FilterSpan.h"

#include "ComparedText.h"
#include "Fields/FieldValue.h"
#include "FilterTexts.h"
#include "Records/ValueOrder.h"
#include "Text/ISODateText.h"

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 Minute = 60;

bool isOfDates(FieldType type)
{
    return type == FieldType::Date || type == FieldType::DateTime || type == FieldType::Time;
}

bool isOfNumbers(FieldType type)
{
    return type == FieldType::Number || type == FieldType::Currency || type == FieldType::Duration;
}

/// Whether a date was typed without a time: it is then at the hour for such dates, and nothing that
/// was typed is an hour.
bool saysHour(const KTReading &reading)
{
    return std::any_of(reading.parts.begin(), reading.parts.end(), [](const KTReadingPart &part) {
        return part.role == u"hour" || part.role == u"time" || part.role == u"dayPeriod";
    });
}

bool isDay(const QString &text, const QDateTime &date, const FieldReader &reader)
{
    if (reader.type() == FieldType::Date)
        return true;
    const QTime time = date.toTimeZone(NSCalendar::systemTimeZone()).time();
    static const QRegularExpression hourOfPattern(u"[hHkK]"_s);
    static const QRegularExpression hourOfText(uR"(\d[T:]\d|:\d\d)"_s);
    return reader.type() == FieldType::DateTime && (time == QTime(12, 0) || time == QTime(0, 0)) &&
           !saysHour(reader.reading()) && !reader.recentPattern().contains(hourOfPattern) &&
           !text.contains(hourOfText);
}

/// The start of the day on which an instant is, some days later.
QDateTime startOfDay(const QDateTime &date, int daysLater)
{
    const QTimeZone zone = NSCalendar::systemTimeZone();
    return date.toTimeZone(zone).date().addDays(daysLater).startOfDay(zone);
}

/// A text as it was typed, if that is what is read of it.
bool isReadAs(const QString &text, const QVariant &value, const FieldReader &reader)
{
    return NSObject::isEqual(reader.read(text).valueOr({}), value);
}
} // namespace

FilterSpan FilterSpan::ofDate(const QDateTime &date, bool isDay)
{
    FilterSpan span;
    span._kind = Kind::Dates;
    span._isDay = isDay;
    const bool isMinute = date.toSecsSinceEpoch() % Minute == 0 && date.time().msec() == 0;
    span._value = isDay ? startOfDay(date, 0) : date;
    span._until = isDay ? startOfDay(date, 1) : date.addMSecs(isMinute ? Minute * 1000 : 1);
    return span;
}

FilterSpan FilterSpan::ofText(const QString &text)
{
    FilterSpan span;
    span._kind = Kind::Text;
    span._value = text;
    span._folded = ComparedText::of(text, span._passesOver);
    return span;
}

FilterSpan FilterSpan::ofValue(const QVariant &value, bool isDay)
{
    FilterSpan span;
    if (NSObject::isNil(value))
        return span;
    if (value.metaType() == QMetaType::fromType<QDateTime>())
        return ofDate(value.toDateTime(), isDay);
    if (!NSObject::isNumber(value))
        return ofText(value.toString());
    span._kind = Kind::Number;
    span._value = value;
    return span;
}

Outcome<FilterSpan> FilterSpan::read(const QString &text, qsizetype field,
                                     const FilterFields &fields, FilterNotation notation)
{
    const FieldReader &reader = fields.reader(field);
    const FieldType type = reader.type();
    if (text.isEmpty())
        return FilterSpan();
    if (!isOfNumbers(type) && !isOfDates(type)) {
        const bool isPhone = type == FieldType::Phone && notation == FilterNotation::Typed;
        const QVariant read = isPhone ? reader.readTyped(text).valueOr(text) : QVariant(text);
        return ofText(fields.textOf(field, read));
    }
    if (notation == FilterNotation::Typed) {
        const Outcome<QVariant> value = reader.readTyped(text);
        if (!value)
            return value.failure();
        return ofValue(*value, isOfDates(type) && isDay(text, value->toDateTime(), reader));
    }
    const QVariant value = FieldValue::valueOf(type, text);
    if (NSObject::isNil(value))
        return Failure{FilterTexts::tr("it cannot be read")};
    return ofValue(value, !text.contains(u':'));
}

void FilterSpan::setPassesOver(const QString &passesOver)
{
    _passesOver = passesOver;
    if (_kind == Kind::Text)
        _folded = ComparedText::of(_value.toString(), passesOver);
}

std::partial_ordering FilterSpan::compareDate(const QDateTime &date) const
{
    if (date < _value.toDateTime())
        return std::partial_ordering::less;
    return date < _until ? std::partial_ordering::equivalent : std::partial_ordering::greater;
}

std::partial_ordering FilterSpan::compareText(const QString &text) const
{
    if (ComparedText::of(text, _passesOver) == _folded)
        return std::partial_ordering::equivalent;
    const auto order = ValueOrder::compare(text, _value);
    if (order != 0)
        return order;
    // They are not the same, whatever the language thinks of the difference.
    return text < _value.toString() ? std::partial_ordering::less : std::partial_ordering::greater;
}

std::partial_ordering FilterSpan::compare(const QVariant &value) const
{
    const bool isText = value.typeId() == QMetaType::QString;
    const bool isNothing = NSObject::isNil(value) || (isText && value.toString().isEmpty());
    if (isNothing && _kind == Kind::Empty)
        return std::partial_ordering::equivalent;
    if (isNothing || _kind == Kind::Empty)
        return std::partial_ordering::unordered;
    if (_kind == Kind::Text)
        return isText ? compareText(value.toString()) : std::partial_ordering::unordered;
    const bool isDate = value.metaType() == QMetaType::fromType<QDateTime>();
    if (_kind == Kind::Dates)
        return isDate ? compareDate(value.toDateTime()) : std::partial_ordering::unordered;
    return NSObject::isNumber(value) ? std::partial_ordering(NSObject::compare(value, _value))
                                     : std::partial_ordering::unordered;
}

QString FilterSpan::portableText(FieldType type) const
{
    if (_kind == Kind::Number)
        return NSDecimalNumber::decimalNumberWithNumber(_value).description();
    if (_kind != Kind::Dates)
        return _kind == Kind::Text ? _value.toString() : u""_s;
    const QDateTime local = _value.toDateTime().toTimeZone(NSCalendar::systemTimeZone());
    if (_isDay)
        return local.date().toString(Qt::ISODate);
    if (type == FieldType::Time)
        return local.time().toString(u"HH:mm:ss.zzz"_s);
    return isoDateText(_value.toDateTime());
}

QString FilterSpan::typedText(qsizetype field, const FilterFields &fields) const
{
    if (_kind == Kind::Empty)
        return u""_s;
    const FieldReader &reader = fields.reader(field);
    QString text = fields.textOf(field, _value);
    if (_kind == Kind::Text)
        return text;
    if (_isDay && reader.type() == FieldType::DateTime) {
        const FieldReader days(FieldType::Date);
        text = days.formatter()->stringForObjectValue(_value);
    }
    const Outcome<FilterSpan> again = read(text, field, fields);
    if (again && again->_kind == _kind && again->_until == _until &&
        NSObject::isEqual(again->_value, _value))
        return text;
    // The field shows fewer digits than were typed.
    if (_kind == Kind::Number)
        text = NSDecimalNumber::decimalNumberWithNumber(_value).descriptionWithLocale(
            NSLocale::currentLocale());
    return isReadAs(text, _value, reader) ? text : QString();
}

QString FilterSpan::text(FilterNotation notation, qsizetype field, const FilterFields &fields) const
{
    return notation == FilterNotation::Portable ? portableText(fields.field(field).type)
                                                : typedText(field, fields);
}
