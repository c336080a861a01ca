#include "DateWriter_p.h"

#include "DateFields_p.h"

#include <array>

using namespace KTPrivate;

namespace {
/// Room for a date without allocating twice.
constexpr qsizetype UsualLength = 32;
/// More letters are left to ICU.
constexpr int LongestNumber = 9;

class GregorianWriter
{
public:
    GregorianWriter(const DateEnvironment &environment, qint64 localTime,
                    const std::function<QString(int)> &zoneName)
        : _names(environment.shownNames())
        , _fields(DateFields::fieldsOf(localTime))
        , _zoneName(zoneName)
    {
        _text.reserve(UsualLength);
    }

    bool write(const DateElement &element)
    {
        using Kind = DateElement::Kind;
        switch (element.kind) {
        case Kind::Literal:
            _text += element.characters;
            return true;
        case Kind::Number:
            return writeNumber(element.letter, element.count);
        case Kind::MonthName:
            return writeMonth(element);
        case Kind::Weekday:
            return writeName(
                _names.weekdays, element.count,
                Civil::weekdayOf(Civil::daysOf(_fields.year, _fields.month, _fields.day)) - 1);
        case Kind::HalfOfDay:
            return writeName(_names.halvesOfDay, element.count, _fields.hour / 12);
        default:
            return writeZoneName(element);
        }
    }

    QString _text;

private:
    bool writeNumber(char16_t letter, int digits)
    {
        if (digits > LongestNumber)
            return false;
        if (letter == u'y' && digits == 2)
            append(int(_fields.year % 100), 2);
        else
            append(valueOf(letter), digits);
        return true;
    }

    int valueOf(char16_t letter) const
    {
        switch (letter) {
        case u'y':
            return int(_fields.year);
        case u'M':
        case u'L':
            return _fields.month;
        case u'd':
            return _fields.day;
        case u'm':
            return _fields.minute;
        case u's':
            return _fields.second;
        default:
            return hourOf(letter);
        }
    }

    int hourOf(char16_t letter) const
    {
        switch (letter) {
        case u'H':
            return _fields.hour;
        case u'k':
            return _fields.hour == 0 ? 24 : _fields.hour;
        case u'K':
            return _fields.hour % 12;
        default:
            return (_fields.hour + 11) % 12 + 1;
        }
    }

    void append(int value, int digits)
    {
        std::array<char16_t, size_t(LongestNumber)> buffer;
        size_t start = buffer.size();
        while (value > 0 || digits > 0) {
            buffer[--start] = char16_t(u'0' + value % 10);
            value /= 10;
            --digits;
        }
        _text += QStringView(buffer.data() + start, buffer.data() + buffer.size());
    }

    int weekday() const
    {
        return Civil::weekdayOf(Civil::daysOf(_fields.year, _fields.month, _fields.day));
    }

    bool writeMonth(const DateElement &element)
    {
        const auto &lists = element.letter == u'L' ? _names.standaloneMonths : _names.months;
        return writeName(lists, element.count, _fields.month - 1);
    }

    /// One to three letters are the abbreviated name, four the wide one.
    bool writeName(const DateShownNames::Lists &lists, int count, int index)
    {
        if (count > 4)
            return false;
        const QStringList &names = lists[count == 4 ? 1 : 0];
        if (index >= names.size())
            return false;
        _text += names[index];
        return true;
    }

    bool writeZoneName(const DateElement &element)
    {
        if (!element.isZoneName() || !_zoneName)
            return false;
        _text += _zoneName(element.count);
        return true;
    }

    const DateShownNames &_names;
    const DateFields _fields;
    const std::function<QString(int)> &_zoneName;
};
} // namespace

bool DateWriter::write(const DatePattern &pattern, const DateEnvironment &environment,
                       const TimeZoneRules &rules, qint64 time,
                       const std::function<QString(int)> &zoneName, QString *text)
{
    if (pattern.needsICUForMoreThanZones() || !environment.isGregorian ||
        !environment.hasASCIIDigits || !Civil::isSafe(time))
        return false;
    GregorianWriter writer(environment, rules.localTimeOf(time), zoneName);
    for (const DateElement &element : pattern.elements()) {
        if (!writer.write(element))
            return false;
    }
    *text = writer._text;
    return true;
}
