#include "TypedZone_p.h"

#include "ZoneNames_p.h"
#include <KTUtility/CommonForms/Text/TextCursor_p.h>
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include <QTimeZone>

#include <array>
#include <iterator>
#include <memory>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr int MinuteOfOffset = 60'000;
constexpr int MinutesOfHour = 60;
constexpr qint64 MonthOfOffset = qint64(30) * 24 * 60 * MinuteOfOffset;

using ZoneSeason = TypedZone::Season;

TypedZone fixedZone(qsizetype length, int minutes)
{
    TypedZone zone;
    zone.length = length;
    zone.offset = minutes * MinuteOfOffset;
    return zone;
}

/// How much the clocks are put forward in summer, around a time; 0 if they are not.
int savingAround(const TimeZoneRules &rules, qint64 instant)
{
    constexpr int MonthsOfAYear = 12;
    for (int months = 0; months <= MonthsOfAYear; ++months) {
        for (const int direction : {1, -1}) {
            if (const int saving =
                    rules.fullOffsetAt(instant + direction * months * MonthOfOffset).saving)
                return saving;
        }
    }
    return 0;
}

std::optional<int> offsetInSeason(const TimeZoneRules &rules, qint64 localTime, ZoneSeason season)
{
    const qint64 instant = rules.instantOf(localTime);
    const TimeZoneRules::Offset offset = rules.fullOffsetAt(instant);
    if (season == ZoneSeason::AsThen)
        return offset.total;
    const int winter = offset.total - offset.saving;
    if (season == ZoneSeason::Winter)
        return winter;
    const int saving = savingAround(rules, instant);
    return saving == 0 ? std::nullopt : std::optional(winter + saving);
}

/// The minutes behind the hours of an offset: "0100", "01:00"; none is 0.
/// \param takesPoint whether they may stand behind a point, as in Finnish.
std::optional<int> takeMinutes(TextCursor &cursor, bool takesPoint)
{
    const bool hasColon =
        (cursor.unit() == u':' || (takesPoint && cursor.unit() == u'.')) && cursor.isDigit(1);
    if (!hasColon && !cursor.isDigit())
        return 0;
    if (hasColon)
        cursor.moveTo(cursor.position() + 1);
    const auto minutes = cursor.takeNumber(2, 2);
    return minutes && *minutes < MinutesOfHour ? minutes : std::nullopt;
}

/// A sign with hours and minutes, in minutes; hours have at least \a leastDigits.
std::optional<int> takeOffset(TextCursor &cursor, qsizetype leastDigits)
{
    const bool isWest = cursor.unit() == u'-';
    if (!cursor.take(u'+') && !cursor.take(u'-'))
        return std::nullopt;
    const qsizetype digits = cursor.digits();
    const bool isOneDigit = leastDigits == 1 && (digits == 1 || digits == 3);
    const auto hours = cursor.takeDigits(isOneDigit ? 1 : 2);
    const auto minutes = hours ? takeMinutes(cursor, leastDigits == 1) : std::nullopt;
    if (!minutes)
        return std::nullopt;
    const int offset = (*hours * MinutesOfHour + *minutes) * (isWest ? -1 : 1);
    return offset >= FurthestWest && offset <= FurthestEast ? std::optional(offset) : std::nullopt;
}

bool isEndOfZone(const TextCursor &cursor)
{
    return !cursor.isDigit() && isWordEnd(cursor.text(), cursor.position());
}

/// "gmt", "gmt+2", "utc +02:00".
TypedZone readUniversal(TextCursor cursor, qsizetype start)
{
    if (!isEndOfZone(cursor))
        return {};
    const TextCursor behindWord = cursor;
    cursor.take(u' ');
    if (const auto offset = takeOffset(cursor, 1); offset && isEndOfZone(cursor))
        return fixedZone(cursor.position() - start, *offset);
    const bool hasSign = cursor.unit() == u'+' || cursor.unit() == u'-';
    return hasSign && cursor.position() == behindWord.position()
               ? TypedZone()
               : fixedZone(behindWord.position() - start, 0);
}

TypedZone universalAt(QStringView folded, qsizetype position)
{
    for (const QStringView word : {u"utc", u"gmt", u"ut"}) {
        TextCursor cursor(folded, position);
        if (!cursor.take(word))
            continue;
        if (const TypedZone zone = readUniversal(cursor, position); zone.length > 0)
            return zone;
    }
    return {};
}

/// The same in the locale's words, before or behind the offset.
TypedZone localUniversalAt(QStringView folded, qsizetype position, const ZoneNames &names)
{
    for (const QString &word : {names.wordBeforeOffset(), names.wordForUTC()}) {
        TextCursor cursor(folded, position);
        if (word.isEmpty() || !cursor.take(word))
            continue;
        if (const TypedZone zone = readUniversal(cursor, position); zone.length > 0)
            return zone;
    }
    return {};
}

/// An offset with what stands behind it in the locale, as in Persian.
TypedZone offsetBeforeWordAt(QStringView folded, qsizetype position, const NSLocale &locale)
{
    TextCursor cursor(folded, position);
    const auto offset = takeOffset(cursor, 1);
    if (!offset || cursor.isAtEnd())
        return {};
    cursor.take(u' ');
    const std::shared_ptr<const ZoneNames> names = ZoneNames::namesOf(locale);
    const QString &word = names->wordBehindOffset();
    if (word.isEmpty() || !cursor.take(word) || !isEndOfZone(cursor))
        return {};
    return fixedZone(cursor.position() - position, *offset);
}

bool isOfAnIdentifier(const TextCursor &cursor, qsizetype ahead)
{
    const char16_t unit = cursor.unit(ahead);
    return cursor.isLetter(ahead) || cursor.isDigit(ahead) || unit == u'/' || unit == u'_' ||
           unit == u'-' || unit == u'+';
}

TypedZone identifierAt(QStringView folded, qsizetype position)
{
    const TextCursor cursor(folded, position);
    qsizetype length = 0;
    bool hasSlash = false;
    for (; isOfAnIdentifier(cursor, length); ++length)
        hasSlash = hasSlash || cursor.unit(length) == u'/';
    if (!hasSlash)
        return {};
    TypedZone zone;
    zone.zone = ZoneNames::identifierOf(folded.sliced(position, length));
    zone.length = zone.zone.isEmpty() ? 0 : length;
    return zone;
}

/// Letters of all scripts, and a bracket: "[GMT]+05:30" in Marathi.
bool mayStartName(QChar unit)
{
    return unit.isLetter() || unit.isSurrogate() || unit == u'[';
}

TypedZone namedZone(const PhraseTable<ZoneMeaning>::Match &match)
{
    if (match.length == 0)
        return {};
    const ZoneMeaning &meaning = match.meanings.front();
    TypedZone zone;
    zone.length = match.length;
    zone.isAmbiguous = meaning.zone.isEmpty();
    zone.zone = meaning.zone;
    zone.season = meaning.season;
    return zone;
}

/// The locale's own meaning before that of the world.
TypedZone nameAt(QStringView folded, qsizetype position, const ZoneNames &names)
{
    const TypedZone own = namedZone(names.names().longestAt(folded, position));
    if (own.isRead())
        return own;
    const TypedZone common = namedZone(ZoneNames::abbreviations().longestAt(folded, position));
    return common.length > own.length ? common : own;
}

struct MailZone
{
    const char16_t *name;
    int hours;
};

/// RFC 5322, 4.3.
constexpr std::array MailZones{MailZone{u"est", -5}, MailZone{u"edt", -4}, MailZone{u"cst", -6},
                               MailZone{u"cdt", -5}, MailZone{u"mst", -7}, MailZone{u"mdt", -6},
                               MailZone{u"pst", -8}, MailZone{u"pdt", -7}};
} // namespace

std::optional<int> TypedZone::offsetWhen(qint64 localTime) const
{
    if (offset)
        return offset;
    return offsetInSeason(TimeZoneRules::rulesOf(QTimeZone(zone)), localTime, season);
}

std::optional<qint64> TypedZone::instantOf(qint64 localTime) const
{
    if (!offset && season == ZoneSeason::AsThen)
        return TimeZoneRules::rulesOf(QTimeZone(zone)).instantOf(localTime);
    const auto distance = offsetWhen(localTime);
    return distance ? std::optional(localTime - *distance) : std::nullopt;
}

QString TypedZone::identifier(qint64 localTime) const
{
    if (!offset && season == ZoneSeason::AsThen)
        return QString::fromLatin1(zone);
    const int minutes = offsetWhen(localTime).value_or(0) / MinuteOfOffset;
    if (minutes == 0)
        return u"UTC"_s;
    const auto twoDigits = [](int number) {
        return QString::number(number).rightJustified(2, u'0');
    };
    return u"UTC"_s + (minutes < 0 ? u'-' : u'+') + twoDigits(qAbs(minutes) / MinutesOfHour) +
           u':' + twoDigits(qAbs(minutes) % MinutesOfHour);
}

TypedZone KTPrivate::offsetAt(QStringView folded, qsizetype position)
{
    TextCursor cursor(folded, position);
    if (cursor.take(u'z'))
        return isEndOfZone(cursor) ? fixedZone(1, 0) : TypedZone();
    const auto offset = takeOffset(cursor, 2);
    return offset && isEndOfZone(cursor) ? fixedZone(cursor.position() - position, *offset)
                                         : TypedZone();
}

TypedZone KTPrivate::zoneAt(QStringView folded, qsizetype position, const NSLocale &locale)
{
    if (const TypedZone offset = offsetBeforeWordAt(folded, position, locale); offset.length > 0)
        return offset;
    if (const TypedZone offset = offsetAt(folded, position); offset.length > 0)
        return offset;
    if (const TypedZone universal = universalAt(folded, position); universal.length > 0)
        return universal;
    if (position >= folded.size() || !mayStartName(folded[position]))
        return {};
    if (const TypedZone zone = identifierAt(folded, position); zone.length > 0)
        return zone;
    const std::shared_ptr<const ZoneNames> names = ZoneNames::namesOf(locale);
    if (const TypedZone zone = localUniversalAt(folded, position, *names); zone.length > 0)
        return zone;
    return nameAt(folded, position, *names);
}

TypedZone KTPrivate::mailZoneAt(QStringView folded, qsizetype position, const NSLocale &locale)
{
    for (const MailZone &zone : MailZones) {
        TextCursor cursor(folded, position);
        if (cursor.take(QStringView(zone.name)) && isEndOfZone(cursor))
            return fixedZone(cursor.position() - position, zone.hours * MinutesOfHour);
    }
    return zoneAt(folded, position, locale);
}
