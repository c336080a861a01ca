#include "CalendarDateWriter_p.h"

#include "DateEngine_p.h"
#include <KTUtility/Platform/Text/ICU_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>

#include <QDateTime>

#include <cstdlib>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// A date on its way to text: the wall clock, and what names things.
class CalendarWriter
{
public:
    CalendarWriter(qint64 time, const DateEnvironment &environment, const TimeZoneRules &rules)
        : _time(time)
        , _environment(environment)
        , _rules(rules)
        , _clock(QDateTime::fromMSecsSinceEpoch(rules.localTimeOf(time), UTC))
    {
    }

    /// What a directive stands for; null if there is no such directive.
    QString textOf(char16_t directive) const
    {
        const QString date = dateText(directive);
        return date.isNull() ? timeText(directive) : date;
    }

private:
    static QString number(qint64 value, int digits)
    {
        return u"%1"_s.arg(value, digits, 10, QLatin1Char('0'));
    }

    QString name(NSDateFormatterSymbols kind, int index) const
    {
        return _environment.symbolsOf(kind).value(index, u""_s);
    }

    QString dateText(char16_t directive) const
    {
        const QDate date = _clock.date();
        switch (directive) {
        case u'a':
            return name(NSDateFormatterSymbols::ShortWeekday, date.dayOfWeek() % 7);
        case u'A':
            return name(NSDateFormatterSymbols::Weekday, date.dayOfWeek() % 7);
        case u'b':
            return name(NSDateFormatterSymbols::ShortMonth, date.month() - 1);
        case u'B':
            return name(NSDateFormatterSymbols::Month, date.month() - 1);
        case u'd':
            return number(date.day(), 2);
        case u'e':
            return number(date.day(), 1);
        case u'j':
            return number(date.dayOfYear(), 3);
        case u'm':
            return number(date.month(), 2);
        case u'w':
            return number(date.dayOfWeek() % 7, 1);
        case u'y':
            return number(std::abs(date.year()) % 100, 2);
        case u'Y':
            return number(date.year(), 4);
        default:
            return {};
        }
    }

    QString timeText(char16_t directive) const
    {
        const QTime time = _clock.time();
        switch (directive) {
        case u'F':
            return number(time.msec(), 3);
        case u'H':
            return number(time.hour(), 2);
        case u'I':
            return number((time.hour() + 11) % 12 + 1, 2);
        case u'M':
            return number(time.minute(), 2);
        case u'p':
            return name(NSDateFormatterSymbols::AMPM, time.hour() / 12);
        case u'S':
            return number(time.second(), 2);
        default:
            return otherText(directive);
        }
    }

    QString otherText(char16_t directive) const
    {
        switch (directive) {
        case u'%':
            return u"%"_s;
        case u'c':
            return styledText(NSDateFormatterShortStyle, NSDateFormatterMediumStyle);
        case u'x':
            return styledText(NSDateFormatterShortStyle, NSDateFormatterNoStyle);
        case u'X':
            return styledText(NSDateFormatterNoStyle, NSDateFormatterMediumStyle);
        case u'z':
            return offsetText();
        case u'Z':
            return zoneName();
        default:
            return {};
        }
    }

    QString styledText(unsigned dateStyle, unsigned timeStyle) const
    {
        const auto pattern =
            DatePattern::patternOf(_environment.patternOfStyles(dateStyle, timeStyle));
        return DateEngine::engineOf(_environment, _rules, false).stringOf(*pattern, _time);
    }

    QString offsetText() const
    {
        const int minutes = _rules.offsetAt(_time) / 60'000;
        const int amount = std::abs(minutes);
        return (minutes < 0 ? u'-' : u'+') + number(amount / 60, 2) + number(amount % 60, 2);
    }

    QString zoneName() const
    {
        int32_t standard = 0;
        int32_t saving = 0;
        UErrorCode status = U_ZERO_ERROR;
        _rules.zone().getOffset(double(_time), false, standard, saving, status);
        icu::UnicodeString name;
        _rules.zone().getDisplayName(UBool(saving != 0 ? 1 : 0), icu::TimeZone::SHORT,
                                     _environment.locale, name);
        return ICU::stringOf(name);
    }

    const qint64 _time;
    const DateEnvironment &_environment;
    const TimeZoneRules &_rules;
    const QDateTime _clock;
};
} // namespace

QString CalendarDateWriter::stringOf(const QString &pattern, qint64 time,
                                     const DateEnvironment &environment, const TimeZoneRules &rules)
{
    const CalendarWriter writer(time, environment, rules);
    QString result = u""_s;
    for (qsizetype at = 0; at < pattern.size(); ++at) {
        const bool isDirective = pattern[at] == u'%' && at + 1 < pattern.size();
        const QString text = isDirective ? writer.textOf(pattern[at + 1].unicode()) : QString();
        if (text.isNull()) {
            result += pattern[at];
            continue;
        }
        result += text;
        ++at;
    }
    return result;
}
