#include "DatePatternWords_p.h"

#include "DateWords_p.h"
#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/datefmt.h>
#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>

#include <QStringView>

#include <memory>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using Kind = DateWord::Kind;

constexpr char16_t None = 0;

bool isTime(char16_t field)
{
    return QStringView(u"HhKkmsSaBbzvOXx").contains(QChar(field));
}

bool isHour(char16_t field)
{
    return QStringView(u"HhKk").contains(QChar(field));
}

/// A text between two fields of a pattern, or before the first or behind the last.
struct Literal
{
    QString text;
    char16_t before = None;
    char16_t behind = None;

    bool isAttached() const { return !text.isEmpty() && text.front().isLetter(); }
    bool isAttachedToNext() const { return !text.isEmpty() && text.back().isLetter(); }
};

/// Goes through a pattern and hands out its literals.
class PatternLiterals
{
public:
    explicit PatternLiterals(QString pattern) : _pattern(std::move(pattern)) {}

    template<typename Take>
    void forEach(const Take &take)
    {
        while (_at < _pattern.size()) {
            readLiteral();
            const char16_t field = _at < _pattern.size() ? _pattern[_at].unicode() : None;
            _literal.behind = field;
            if (!_literal.text.isEmpty())
                take(_literal);
            while (_at < _pattern.size() && _pattern[_at] == QChar(field))
                ++_at;
            _literal = {QString(), field, None};
        }
    }

private:
    bool isField() const
    {
        const char16_t unit = _pattern[_at].unicode();
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
    }

    void readLiteral()
    {
        bool isQuoted = false;
        for (; _at < _pattern.size() && (isQuoted || !isField()); ++_at) {
            if (_pattern[_at] != u'\'')
                _literal.text += _pattern[_at];
            else if (_at + 1 < _pattern.size() && _pattern[_at + 1] == u'\'')
                _literal.text += _pattern[_at++];
            else
                isQuoted = !isQuoted;
        }
    }

    const QString _pattern;
    qsizetype _at = 0;
    Literal _literal;
};

Kind kindOfTimeLiteral(const Literal &literal)
{
    switch (literal.before) {
    case u'm':
        return Kind::MinuteMark;
    case u's':
        return Kind::SecondMark;
    default:
        return isHour(literal.before) ? Kind::HourMark : Kind::Filler;
    }
}

Kind kindOfDateLiteral(const Literal &literal)
{
    if (!literal.isAttached())
        return Kind::Filler;
    switch (literal.before) {
    case u'y':
        return Kind::YearMark;
    case u'M':
    case u'L':
        return Kind::MonthMark;
    default:
        return literal.before == u'd' ? Kind::DayMark : Kind::Filler;
    }
}

Kind kindOfLiteral(const Literal &literal)
{
    const bool isBeforeTime = isTime(literal.behind);
    if (isTime(literal.before))
        return isBeforeTime || literal.behind == None ? kindOfTimeLiteral(literal) : Kind::Filler;
    return isBeforeTime ? Kind::TimeMark : kindOfDateLiteral(literal);
}

/// The words of a literal without what stands between any words.
QString wordsOf(const QString &literal)
{
    qsizetype begin = 0;
    qsizetype end = literal.size();
    const auto isOfAWord = [](QChar unit) {
        return unit.isLetter() || unit.isMark() || unit == u'\'' || unit == u'\u2019';
    };
    while (begin < end && !isOfAWord(literal[begin]))
        ++begin;
    while (end > begin && !isOfAWord(literal[end - 1]))
        --end;
    return literal.mid(begin, end - begin);
}

bool isMonth(char16_t field)
{
    return field == u'M' || field == u'L';
}

/// "ב" before the names of months, "ын" behind them.
void addMonthsWith(DateWords &words, const Literal &literal, const QString &found)
{
    if (found.isEmpty())
        return;
    if (isMonth(literal.behind) && literal.isAttachedToNext() && !found.contains(u' '))
        words.addMonthsWith(found, QString());
    if (isMonth(literal.before) && literal.isAttached() && !found.contains(u' '))
        words.addMonthsWith(QString(), found);
}

void addLiteralsOf(DateWords &words, const icu::UnicodeString &pattern)
{
    PatternLiterals(ICU::stringOf(pattern)).forEach([&words](const Literal &literal) {
        const QString found = wordsOf(literal.text);
        if (!found.contains(u'('))
            words.add(found, {kindOfLiteral(literal)});
        if (kindOfLiteral(literal) == Kind::Filler && found.contains(u' ')) {
            for (const QString &word : found.split(u' ', Qt::SkipEmptyParts))
                words.add(word, {Kind::Filler});
        }
        addMonthsWith(words, literal, found);
    });
}

/// From a pattern such as "d/M".
void setDayMonthSign(DateWords &words, const QString &pattern)
{
    PatternLiterals(pattern).forEach([&words](const Literal &literal) {
        if (literal.before == u'd' && isMonth(literal.behind))
            words.setDayMonthSign(literal.text.front().unicode());
    });
}

void addLiteralsOfStyles(DateWords &words, const icu::Locale &locale)
{
    using Format = icu::DateFormat;
    for (const auto date : {Format::kFull, Format::kLong, Format::kMedium, Format::kShort}) {
        const std::unique_ptr<icu::DateFormat> format(
            icu::DateFormat::createDateTimeInstance(date, Format::kShort, locale));
        icu::UnicodeString pattern;
        if (const auto *simple = dynamic_cast<icu::SimpleDateFormat *>(format.get()))
            simple->toPattern(pattern);
        addLiteralsOf(words, pattern);
    }
}
} // namespace

void KTPrivate::addDatePatternWords(DateWords &words, const icu::Locale &locale)
{
    addLiteralsOfStyles(words, locale);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> patterns(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status))
        return;
    for (const char *skeleton : {"yMMMMEEEEd", "yMMMMd", "MMMMEEEEd", "MMMMd", "yMMMM", "yMMMd",
                                 "MMMd", "yMd", "Md", "y", "d", "H", "Hm", "Hms", "h"})
        addLiteralsOf(words, patterns->getBestPattern(skeleton, status));
    setDayMonthSign(words, ICU::stringOf(patterns->getBestPattern(u"Md", status)));
    const UDateFormatHourCycle cycle = patterns->getDefaultHourCycle(status);
    const QString twelve = ICU::stringOf(patterns->getBestPattern(u"hm", status));
    words.setHasHourZero(twelve.contains(u'K'));
    words.setHasTwelveHours(cycle == UDAT_HOUR_CYCLE_11 || cycle == UDAT_HOUR_CYCLE_12);
}
