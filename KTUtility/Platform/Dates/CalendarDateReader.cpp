#include "CalendarDateReader_p.h"

#include "DateFields_p.h"
#include <KTUtility/Platform/Text/ICU_p.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Values/NSScanner.h>

using namespace KTPrivate;

namespace {
/// What a text says about a date; what it does not say is the default date's.
struct Fields : DateFields
{
    explicit Fields(const DateReading &reading)
        : DateFields(defaultFields(reading.defaultTime, *reading.rules)), rules(reading.rules)
    {
    }

    const TimeZoneRules *rules;
    int dayOfYear = 0; ///< 0: month and day count
    std::optional<bool> isPM;
    std::optional<int> offset; ///< milliseconds
};

/// The instant, if there is such a day.
std::optional<qint64> timeOf(Fields fields)
{
    if (!fields.isExistingDay())
        return {};
    if (fields.isPM)
        fields.hour = fields.hour % 12 + (*fields.isPM ? 12 : 0);
    if (fields.dayOfYear > 0) {
        fields.month = 1;
        fields.day = fields.dayOfYear;
    }
    const qint64 local = fields.localTime();
    return fields.offset ? local - *fields.offset : fields.rules->instantOf(local);
}

/// Walks through a text as a pattern says.
class Reader
{
public:
    Reader(QStringView text, const DateReading &reading)
        : fields(reading), _text(text), _environment(*reading.environment)
    {
    }

    /// Reads what a directive or a character of the pattern stands for.
    bool readDirective(char16_t directive)
    {
        return readDate(directive) || readTime(directive) || readOther(directive);
    }

    bool readLiteral(QChar unit)
    {
        if (unit.isSpace()) {
            skipWhitespace();
            return true;
        }
        const bool isHere = at < _text.size() && _text[at] == unit;
        at += isHere ? 1 : 0;
        return isHere;
    }

    Fields fields;
    qsizetype at = 0;

private:
    void skipWhitespace()
    {
        at = NSSkipCharacters(_text, at, NSCharacterSet::whitespaceAndNewlineCharacterSet());
    }

    std::optional<int> number(int maximalDigits)
    {
        skipWhitespace();
        int value = 0;
        const qsizetype start = at;
        while (at < _text.size() && at - start < maximalDigits && _text[at] >= u'0' &&
               _text[at] <= u'9')
            value = value * 10 + (_text[at++].unicode() - u'0');
        return at > start ? std::optional(value) : std::nullopt;
    }

    template<typename Int>
    bool readNumber(Int *field, int maximalDigits, int minimum, int maximum)
    {
        const std::optional<int> value = number(maximalDigits);
        if (!value || *value < minimum || *value > maximum)
            return false;
        *field = *value;
        return true;
    }

    /// The index of the longest name that stands here.
    std::optional<int> readName(NSDateFormatterSymbols kind)
    {
        skipWhitespace();
        const QStringList names = _environment.symbolsOf(kind);
        std::optional<int> best;
        for (int index = 0; index < names.size(); ++index) {
            const bool isLonger = !best || names[index].size() > names[*best].size();
            if (!names[index].isEmpty() && isLonger &&
                _text.sliced(at).startsWith(names[index], Qt::CaseInsensitive))
                best = index;
        }
        if (best)
            at += names[*best].size();
        return best;
    }

    bool readMonthName()
    {
        std::optional<int> month = readName(NSDateFormatterSymbols::Month);
        if (!month)
            month = readName(NSDateFormatterSymbols::ShortMonth);
        fields.month = month.value_or(0) + 1;
        return month.has_value();
    }

    bool readWeekdayName()
    {
        return readName(NSDateFormatterSymbols::Weekday) ||
               readName(NSDateFormatterSymbols::ShortWeekday);
    }

    bool readTwoDigitYear()
    {
        const int start = _environment.customs.twoDigitStartYear;
        int year = 0;
        if (!readNumber(&year, 2, 0, 99))
            return false;
        fields.year = start - start % 100 + year + (year < start % 100 ? 100 : 0);
        return true;
    }

    bool readDate(char16_t directive)
    {
        int weekday = 0;
        switch (directive) {
        case u'a':
        case u'A':
            return readWeekdayName();
        case u'b':
        case u'B':
            return readMonthName();
        case u'd':
        case u'e':
            return readNumber(&fields.day, 2, 1, 31);
        case u'j':
            return readNumber(&fields.dayOfYear, 3, 1, 366);
        case u'm':
            return readNumber(&fields.month, 2, 1, 12);
        case u'w':
            return readNumber(&weekday, 1, 0, 6);
        case u'y':
            return readTwoDigitYear();
        case u'Y':
            return readNumber(&fields.year, 4, 1, 9999);
        default:
            return false;
        }
    }

    bool readTime(char16_t directive)
    {
        switch (directive) {
        case u'F':
            return readNumber(&fields.millisecond, 3, 0, 999);
        case u'H':
            return readNumber(&fields.hour, 2, 0, 24);
        case u'I':
            return readNumber(&fields.hour, 2, 1, 12);
        case u'M':
            return readNumber(&fields.minute, 2, 0, 59);
        case u'S':
            return readNumber(&fields.second, 2, 0, 60);
        case u'p':
            return readHalfOfDay();
        default:
            return false;
        }
    }

    bool readHalfOfDay()
    {
        const std::optional<int> half = readName(NSDateFormatterSymbols::AMPM);
        if (half)
            fields.isPM = *half == 1;
        return half.has_value();
    }

    bool readOther(char16_t directive)
    {
        switch (directive) {
        case u'%':
            return readLiteral(u'%');
        case u'z':
            return readOffset();
        case u'Z':
            return readZone();
        default:
            return false;
        }
    }

    /// "+hhmm"
    bool readOffset()
    {
        skipWhitespace();
        if (at == _text.size() || (_text[at] != u'+' && _text[at] != u'-'))
            return false;
        const int sign = _text[at++] == u'-' ? -1 : 1;
        const qsizetype start = at;
        const std::optional<int> value = number(4);
        if (!value || at - start != 4 || *value % 100 > 59)
            return false;
        fields.offset = sign * (*value / 100 * 60 + *value % 100) * 60'000;
        return true;
    }

    /// A zone's identifier, or GMT and an offset.
    bool readZone()
    {
        skipWhitespace();
        qsizetype end = at;
        while (end < _text.size() && !_text[end].isSpace())
            ++end;
        const QStringView word = _text.sliced(at, end - at);
        const bool isOffset = word.startsWith(u"GMT") && word.size() > 3;
        if (isOffset) {
            at += 3;
            return readOffset();
        }
        const std::unique_ptr<icu::TimeZone> zone(
            icu::TimeZone::createTimeZone(ICU::aliasOf(word)));
        if (word.isEmpty() || *zone == icu::TimeZone::getUnknown())
            return false;
        at = end;
        fields.rules = &TimeZoneRules::rulesOf(QTimeZone(word.toLatin1()));
        return true;
    }

    QStringView _text;
    const DateEnvironment &_environment;
};

bool readPattern(const QString &pattern, Reader *reader)
{
    for (qsizetype at = 0; at < pattern.size(); ++at) {
        const bool isDirective = pattern[at] == u'%' && at + 1 < pattern.size();
        if (isDirective ? !reader->readDirective(pattern[++at].unicode())
                        : !reader->readLiteral(pattern[at]))
            return false;
    }
    return !pattern.isEmpty();
}
} // namespace

bool CalendarDateReader::parse(const QString &pattern, QStringView text, const DateReading &reading,
                               DateMatch *match)
{
    Reader reader(text, reading);
    const bool isRead = readPattern(pattern, &reader);
    match->length = reader.at;
    const std::optional<qint64> time = isRead ? timeOf(reader.fields) : std::nullopt;
    match->time = time.value_or(0);
    match->localTime = reading.rules->localTimeOf(match->time);
    return time.has_value();
}
