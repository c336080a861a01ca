#include "FuzzTarget.h"
#include "Targets.h"

#include <KTUtility/KTColumnReading>
#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSObject>

#include <algorithm>

namespace {
/// The user's locale for one run.
class RunLocale
{
public:
    explicit RunLocale(const QString &identifier)
    {
        NSLocale::setCurrentLocale(NSLocale(identifier));
    }
    ~RunLocale() { NSLocale::resetCurrentLocale(); }
    RunLocale(RunLocale &&) = delete;
};

std::unique_ptr<KTReadingFormatter> dateFormatter(bool showsTime)
{
    auto formatter = std::make_unique<KTDateTimeFormatter>();
    formatter->setDisplayTime(showsTime);
    return formatter;
}

std::unique_ptr<KTReadingFormatter> phoneFormatter(int country)
{
    auto formatter = std::make_unique<KTPhoneNumberFormatter>();
    formatter->setFormatIndex(country);
    return formatter;
}

std::unique_ptr<KTReadingFormatter> formatterOf(int kind)
{
    switch (kind) {
    case 0:
        return dateFormatter(false);
    case 1:
        return dateFormatter(true);
    case 2:
        return KTTimeFormatter::createTimeFormatter();
    case 3:
        return std::make_unique<KTNumberFormatter>();
    case 4:
        return std::make_unique<KTCurrencyFormatter>();
    case 5:
        return std::make_unique<KTDurationFormatter>();
    default:
        return phoneFormatter(kind);
    }
}

/// The parts stand in the text, one behind the other.
void requireParts(const KTReading &reading, const QString &text)
{
    qsizetype end = 0;
    for (const KTReadingPart &part : reading.parts) {
        const auto location = qsizetype(part.range.location);
        FUZZ_REQUIRE(location >= end);
        end = location + qsizetype(part.range.length);
        FUZZ_REQUIRE(end <= text.size());
        FUZZ_REQUIRE(!part.role.isEmpty());
    }
}

/// What is read has a form, and what is not has none.
void requireReading(const KTReadingFormatter &formatter, const QString &text, bool isRead)
{
    const KTReading &reading = formatter.reading();
    FUZZ_REQUIRE(isRead || !reading.isRead());
    FUZZ_REQUIRE(reading.isRead() || reading.parts.isEmpty());
    requireParts(reading, text);
}

void readTwice(const KTReadingFormatter &formatter, const QString &text)
{
    QVariant value;
    QString error;
    const bool isRead = formatter.getObjectValue(&value, text, &error);
    requireReading(formatter, text, isRead);
    if (!isRead)
        return;
    const QString shown = formatter.stringForObjectValue(value);
    const bool isReadBack = formatter.getObjectValue(&value, shown, &error);
    requireReading(formatter, shown, isReadBack);
}

void decideColumn(KTColumnReading::Kind kind, const KTReadingFormatter &formatter,
                  const QString &text)
{
    KTColumnReading column(kind);
    const QStringList texts = text.split(u'\n');
    for (const QString &each : texts)
        column.add(each);
    FUZZ_REQUIRE(column.textCount() == texts.size());
    FUZZ_REQUIRE(column.contradictionCount() <= texts.size());
    const auto contradicting = std::count_if(
        texts.begin(), texts.end(), [&](const QString &each) { return column.contradicts(each); });
    FUZZ_REQUIRE(contradicting == column.contradictionCount());
    QVariant value;
    column.getObjectValue(formatter, &value, texts.first());
}
} // namespace

void fuzzCommonForms(FuzzInput &input)
{
    constexpr int Kinds = 8;
    const RunLocale locale(input.locale());
    const int kind = input.below(Kinds);
    const std::unique_ptr<KTReadingFormatter> formatter = formatterOf(kind);
    formatter->setReadsCommonForms(true);
    input.setOptions(formatter.get());
    auto *const dates = qobject_cast<KTDateTimeFormatter *>(formatter.get());
    // A field that shows neither date nor time is a broken contract.
    if (dates && dates->dateStyle() == NSDateFormatterNoStyle)
        dates->setTimeStyle(NSDateFormatterShortStyle);
    const QString text = input.text();
    readTwice(*formatter, text);
    constexpr KTColumnReading::Kind ColumnKinds[] = {
        KTColumnReading::Dates, KTColumnReading::Dates, KTColumnReading::Dates,
        KTColumnReading::Numbers, KTColumnReading::Amounts};
    decideColumn(kind < 5 ? ColumnKinds[kind] : KTColumnReading::Durations, *formatter, text);
}
