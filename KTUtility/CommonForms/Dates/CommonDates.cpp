#include "CommonDates_p.h"

#include "DateGrammar_p.h"
#include "DateMeanings_p.h"
#include "DateResolver_p.h"
#include "DateTokens_p.h"
#include <KTUtility/CommonForms/Text/FoldedText_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// What was understood of a text, told by its parts.
class Report
{
public:
    Report(const FoldedText &text, const DateTokens &tokens, const NSCalendar &calendar,
           const QString &zone)
        : _text(text), _tokens(tokens), _calendar(calendar), _zone(zone)
    {
    }

    QList<KTReadingPart> partsOf(DateSaid &said, const DateCandidate *candidate) const
    {
        if (candidate) {
            addNumber(said, candidate->yearNumber, u"year");
            addNumber(said, candidate->monthNumber, u"month");
            addNumber(said, candidate->dayNumber, u"day");
        }
        std::sort(said.parts.begin(), said.parts.end(),
                  [](const auto &left, const auto &right) { return left.token < right.token; });
        QList<KTReadingPart> parts;
        for (const DateSaid::Part &part : said.parts)
            parts.append(partOf(part));
        return parts;
    }

private:
    static void addNumber(DateSaid &said, int index, const char16_t *role)
    {
        if (index >= 0)
            said.parts.append({said.numbers[index].token, role, said.numbers[index].value});
    }

    KTReadingPart partOf(const DateSaid::Part &part) const
    {
        const DateToken &token = _tokens.at(part.token);
        const bool isZone = token.type == DateToken::Type::Zone;
        return {_text.rangeInText(token.begin, token.length), QString::fromUtf16(part.role),
                isZone ? _zone : meaningOf(part, token, _calendar)};
    }

    const FoldedText &_text;
    const DateTokens &_tokens;
    const NSCalendar _calendar;
    const QString _zone;
};

QString formOf(const DateSaid &said)
{
    if (said.isRelative())
        return u"common.relative"_s;
    if (!said.isWritten())
        return u"common.time"_s;
    return said.time ? u"common.datetime"_s : u"common.date"_s;
}

/// Whether a text says nothing but a number, which others may understand.
bool isBareNumber(const DateSaid &said)
{
    return said.numbers.size() == 1 && !said.numbers[0].isMarked && !said.month &&
           said.weekdays == 0 && !said.time && !said.era;
}

KTReading readingOf(const FoldedText &text, const DateTokens &tokens, DateSaid &said,
                    const DateResolver &resolver, const CommonDateField &field)
{
    KTReading reading;
    reading.form = formOf(said);
    reading.zone = resolver.zoneIdentifier();
    const NSCalendar calendar =
        said.isJapaneseEra ? NSCalendar(NSJapaneseCalendar) : field.calendar;
    reading.parts =
        Report(text, tokens, calendar, reading.zone).partsOf(said, resolver.candidate());
    if (const std::optional<qint64> other = resolver.alternative()) {
        reading.alternative = QDateTime::fromMSecsSinceEpoch(*other, UTC);
        reading.alternativeForm = reading.form;
    }
    return reading;
}
} // namespace

CommonDate KTPrivate::readCommonDate(const QString &text, const CommonDateField &field)
{
    const FoldedText folded(text);
    const std::shared_ptr<const DateWords> words = DateWords::wordsOf(field.locale);
    const DateTokens tokens(folded.text(), *words);
    if (!tokens.isValid())
        return {};
    std::optional<DateSaid> said = DateGrammar(tokens, *words, !field.showsDate).read();
    if (!said || isBareNumber(*said))
        return {};
    DateResolver resolver(*said, field, words->dayMonthSign(), tokens.zone());
    CommonDate result;
    result.outcome = CommonDate::Outcome::Refused;
    if (!resolver.resolve()) {
        result.reason = resolver.reason();
        return result;
    }
    result.outcome = CommonDate::Outcome::Read;
    result.date = QDateTime::fromMSecsSinceEpoch(resolver.instant(), UTC);
    result.clock = QDateTime::fromMSecsSinceEpoch(resolver.localTime(), UTC);
    result.reading = readingOf(folded, tokens, *said, resolver, field);
    return result;
}
