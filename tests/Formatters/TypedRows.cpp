#include "TypedRows.h"

#include "support/TestSupport.h"
#include "support/WallClockAt.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSCalendar>
#include <KTUtility/NSDecimalNumber>

#include <QJsonArray>
#include <QJsonDocument>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
/// Any time would do for a text that does not lean on it.
constexpr QStringView UsualReference = u"2020-06-15T12:00:00";

/// The locale of whoever types.
class TypingLocale
{
public:
    explicit TypingLocale(const QString &identifier)
    {
        NSLocale::setCurrentLocale(NSLocale(identifier));
    }
    ~TypingLocale() { NSLocale::resetCurrentLocale(); }
    TypingLocale(TypingLocale &&) = delete;
};

/// A formatter, and how rows write what it reads.
struct Field
{
    std::unique_ptr<KTReadingFormatter> formatter;
    std::function<QString(const QVariant &)> written;
};

Field dateField(std::unique_ptr<KTDateTimeFormatter> formatter, const QString &format)
{
    return {std::move(formatter), [format](const QVariant &value) {
                const QDateTime date = value.toDateTime();
                return date.toTimeZone(NSCalendar::systemTimeZone()).toString(format);
            }};
}

Field dateTimeField()
{
    auto formatter = std::make_unique<KTDateTimeFormatter>();
    formatter->setDisplayTime(true);
    return dateField(std::move(formatter), u"yyyy-MM-ddTHH:mm:ss"_s);
}

QString decimalText(const QVariant &value)
{
    return NSDecimalNumber::decimalNumberWithNumber(value).description();
}

Field moneyField(const QString &code)
{
    auto formatter = std::make_unique<KTCurrencyFormatter>();
    formatter->setCurrencyType(code);
    return {std::move(formatter),
            [code](const QVariant &value) { return QString(decimalText(value) + u' ' + code); }};
}

/// The first set of layouts with a country code that the number begins with.
int layoutsOf(const QString &number)
{
    const QList<QStringList> &sets = KTPhoneNumberFormatter::patternSets();
    const auto isOf = [&number](const QString &pattern) {
        return pattern.startsWith(u'+') && number.startsWith(pattern.section(u' ', 0, 0));
    };
    for (int index = 0; index < sets.size(); ++index) {
        if (std::any_of(sets[index].cbegin(), sets[index].cend(), isOf))
            return index;
    }
    return -1;
}

Field phoneField(const QString &number)
{
    auto formatter = std::make_unique<KTPhoneNumberFormatter>();
    formatter->setFormatIndex(layoutsOf(number));
    return {std::move(formatter), [](const QVariant &value) { return value.toString(); }};
}

Field fieldOf(const TypedRow &row)
{
    if (row.type == u"date")
        return dateField(std::make_unique<KTDateTimeFormatter>(), u"yyyy-MM-dd"_s);
    if (row.type == u"datetime")
        return dateTimeField();
    if (row.type == u"time")
        return dateField(KTTimeFormatter::createTimeFormatter(), u"HH:mm:ss"_s);
    if (row.type == u"money")
        return moneyField(row.value.section(u' ', 1));
    if (row.type == u"duration")
        return {std::make_unique<KTDurationFormatter>(), decimalText};
    if (row.type == u"phone")
        return phoneField(row.value);
    return {std::make_unique<KTNumberFormatter>(), decimalText};
}

QString digitsOf(const QString &text)
{
    QString digits;
    for (const QChar character : text) {
        if (character.digitValue() >= 0)
            digits += QChar(u'0' + character.digitValue());
    }
    return digits;
}

bool isShownRight(const TypedRow &row, const QString &shown)
{
    const auto isSame = [&shown](const QString &text) { return digitsOf(text) == digitsOf(shown); };
    return isSame(row.text) || std::any_of(row.shown.cbegin(), row.shown.cend(), isSame);
}

/// Decimals are the same however many zeros they end in.
bool isSameValue(const TypedRow &row, const QString &value)
{
    const bool isNumber = row.type == u"number" || row.type == u"money" || row.type == u"duration";
    if (!isNumber)
        return row.value == value;
    using Decimal = NSDecimalNumber;
    return Decimal::decimalNumberWithString(row.value.section(u' ', 0, 0)) ==
           Decimal::decimalNumberWithString(value.section(u' ', 0, 0));
}

TypedResult::Outcome outcomeOf(const TypedRow &row, const TypedResult &result)
{
    const bool isRight = row.type == u"phone"
                             ? result.value == row.text && isShownRight(row, result.shown)
                             : isSameValue(row, result.value);
    return isRight ? TypedResult::Read : TypedResult::Wrong;
}

TypedRow rowOf(const QJsonObject &object)
{
    TypedRow row{object[u"type"].toString(),
                 object[u"locale"].toString(),
                 object[u"text"].toString(),
                 object[u"value"].toString(),
                 {},
                 {}};
    for (const QJsonValue text : object[u"shown"].toArray())
        row.shown += text.toString();
    row.reference = QDateTime::fromString(
        object[u"reference"].toString(UsualReference.toString()) + u'Z', Qt::ISODate);
    return row;
}
} // namespace

const QStringList &TypedRows::types()
{
    static const QStringList types{u"date"_s,  u"datetime"_s, u"time"_s, u"number"_s,
                                   u"money"_s, u"duration"_s, u"phone"_s};
    return types;
}

QList<TypedRow> TypedRows::ofType(const QString &type)
{
    QList<TypedRow> rows;
    for (const QJsonObject &object : testing_support::rowsOf(u"typed/%1.jsonl"_s.arg(type)))
        rows += rowOf(object);
    return rows;
}

TypedResult TypedRows::resultOf(const TypedRow &row, bool readsCommonForms)
{
    const testing_support::WallClockAt now(row.reference);
    const TypingLocale locale(row.locale);
    const Field field = fieldOf(row);
    field.formatter->setReadsCommonForms(readsCommonForms);
    TypedResult result;
    QVariant value;
    if (field.formatter->getObjectValue(&value, row.text, &result.reason)) {
        result.value = field.written(value);
        if (row.type == u"phone")
            result.shown = field.formatter->stringForObjectValue(value);
        result.outcome = outcomeOf(row, result);
    }
    result.reading = field.formatter->reading();
    return result;
}

QString TypedRows::written(const TypedRow &row, const TypedResult &result)
{
    QJsonObject object{{u"type"_s, row.type}, {u"locale"_s, row.locale}, {u"text"_s, row.text}};
    if (!result.value.isNull())
        object[u"read"_s] = result.value;
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}
