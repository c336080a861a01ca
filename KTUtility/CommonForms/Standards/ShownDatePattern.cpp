#include "ShownDatePattern_p.h"

#include <KTUtility/Platform/Text/ICU_p.h>
#include <KTUtility/Platform/Text/ThreadCache_p.h>

#include <unicode/dtfmtsym.h>
#include <unicode/smpdtfmt.h>

#include <algorithm>
#include <span>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using PatternKind = DateElement::Kind;

/// No longer number is shown.
constexpr int MostDigits = 9;

bool isHour(char16_t letter)
{
    return letter == u'h' || letter == u'H' || letter == u'k' || letter == u'K';
}

using MonthSymbols = icu::DateFormatSymbols;

MonthSymbols::DtWidthType widthOf(int count)
{
    constexpr int Narrow = 5;
    if (count == Narrow)
        return MonthSymbols::NARROW;
    return count == 3 ? MonthSymbols::ABBREVIATED : MonthSymbols::WIDE;
}

/// The names of a field in the locale's calendar; none if it has no such.
std::span<const icu::UnicodeString> namesOf(const DateElement &element, const MonthSymbols &symbols)
{
    const auto context = element.letter == u'L' ? MonthSymbols::STANDALONE : MonthSymbols::FORMAT;
    int32_t count = 0;
    const icu::UnicodeString *names = nullptr;
    if (element.kind == PatternKind::MonthName)
        names = symbols.getMonths(count, context, widthOf(element.count));
    else if (element.kind == PatternKind::HalfOfDay)
        names = symbols.getAmPmStrings(count);
    return {names, size_t(count)};
}

/// Months are counted from 1. The last of the Hebrew names is that of the seventh month in leap
/// years, which have one more.
int numberOfName(const DateElement &element, int index)
{
    constexpr int HebrewNameOfLeapYears = 13;
    constexpr int HebrewMonthOfIt = 7;
    if (element.kind != PatternKind::MonthName)
        return index;
    return index == HebrewNameOfLeapYears ? HebrewMonthOfIt : index + 1;
}

/// The number of a field that is written in digits of any script; nothing if the field is no such.
std::optional<int> *fieldOf(ShownFields *fields, char16_t letter)
{
    switch (letter) {
    case u'y':
    case u'u':
        return &fields->year;
    case u'r':
        return &fields->commonYear;
    case u'M':
    case u'L':
        return &fields->month;
    case u'd':
        return &fields->day;
    default:
        return isHour(letter) ? &fields->hour : nullptr;
    }
}

bool setNumber(ShownFields *fields, char16_t letter, int number)
{
    if (std::optional<int> *const field = fieldOf(fields, letter)) {
        *field = number;
        return true;
    }
    if (letter != u'm' && letter != u's')
        return false;
    (letter == u'm' ? fields->minute : fields->second) = number;
    return true;
}
} // namespace

/// One text on its way through the elements.
class ShownDatePattern::Match
{
public:
    Match(const ShownDatePattern &pattern, QStringView text,
          const std::function<bool(const ShownFields &)> &accepts)
        : _pattern(pattern), _text(text), _accepts(accepts)
    {
    }

    bool from(size_t index, qsizetype at)
    {
        if (index == _pattern._elements.size())
            return at == _text.size() && _accepts(_fields);
        const Element &element = _pattern._elements[index];
        switch (element.kind) {
        case ElementKind::Literal:
            return takeLiteral(element.element->characters, index, at);
        case ElementKind::Number:
            return takeNumber(*element.element, index, at);
        case ElementKind::Name:
            return takeName(element, index, at);
        case ElementKind::Wildcard:
            break;
        }
        return skip(index, at);
    }

private:
    bool takeLiteral(const QString &characters, size_t index, qsizetype at)
    {
        return _text.sliced(at).startsWith(characters) && from(index + 1, at + characters.size());
    }

    bool takeNumber(const DateElement &element, size_t index, qsizetype at)
    {
        int number = 0;
        int digits = 0;
        qsizetype end = at;
        for (; end < _text.size() && digits < MostDigits; ++digits) {
            const int digit = digitAt(end);
            if (digit < 0)
                break;
            number = number * 10 + digit;
            end += _text[end].isHighSurrogate() ? 2 : 1;
        }
        return digits >= qMax(element.count, 1) && setNumber(&_fields, element.letter, number) &&
               from(index + 1, end);
    }

    int digitAt(qsizetype at) const
    {
        const char16_t unit = _text[at].unicode();
        if (unit < 0x80)
            return unit >= u'0' && unit <= u'9' ? unit - u'0' : -1;
        const bool isPair = QChar::isHighSurrogate(unit) && at + 1 < _text.size();
        return QChar::digitValue(isPair ? QChar::surrogateToUcs4(unit, _text[at + 1].unicode())
                                        : char32_t(unit));
    }

    bool takeName(const Element &element, size_t index, qsizetype at)
    {
        const bool isMonth = element.element->kind == PatternKind::MonthName;
        for (const Name &name : element.names) {
            if (!_text.sliced(at).startsWith(name.text))
                continue;
            (isMonth ? _fields.month : _fields.half) = name.number;
            if (from(index + 1, at + name.text.size()))
                return true;
        }
        return false;
    }

    /// The last element takes the rest; others end where the next can begin.
    bool skip(size_t index, qsizetype at)
    {
        if (index + 1 == _pattern._elements.size())
            return at < _text.size() && from(index + 1, _text.size());
        for (qsizetype end = at + 1; end < _text.size(); ++end) {
            if (from(index + 1, end))
                return true;
        }
        return false;
    }

    const ShownDatePattern &_pattern;
    QStringView _text;
    const std::function<bool(const ShownFields &)> &_accepts;
    ShownFields _fields;
};

ShownDatePattern::ShownDatePattern(const NSDateFormatter &formatter)
    : _pattern(DatePattern::patternOf(formatter.dateFormat()))
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::SimpleDateFormat format(icu::UnicodeString(), ICU::localeOf(formatter.locale()),
                                       status);
    for (const DateElement &element : _pattern->elements()) {
        const std::span<const icu::UnicodeString> names =
            U_SUCCESS(status) ? namesOf(element, *format.getDateFormatSymbols())
                              : std::span<const icu::UnicodeString>();
        _elements.push_back(elementOf(element, names));
        note(element);
    }
}

ShownDatePattern::Element ShownDatePattern::elementOf(const DateElement &element,
                                                      std::span<const icu::UnicodeString> names)
{
    Element result{&element, {}, ElementKind::Wildcard};
    ShownFields fields;
    for (size_t index = 0; index < names.size(); ++index)
        result.names.push_back({ICU::stringOf(names[index]), numberOfName(element, int(index))});
    std::stable_sort(
        result.names.begin(), result.names.end(),
        [](const Name &left, const Name &right) { return left.text.size() > right.text.size(); });
    if (element.kind == PatternKind::Literal)
        result.kind = ElementKind::Literal;
    else if (!names.empty())
        result.kind = ElementKind::Name;
    else if (element.kind != PatternKind::MonthName && setNumber(&fields, element.letter, 0))
        result.kind = ElementKind::Number;
    return result;
}

void ShownDatePattern::note(const DateElement &element)
{
    if (element.kind == PatternKind::Literal)
        return;
    _hasDay = _hasDay || element.letter == u'd';
    _hasTime = _hasTime || isHour(element.letter);
    _hasHalves = _hasHalves || element.letter == u'h' || element.letter == u'K';
}

bool ShownDatePattern::takeApart(QStringView text,
                                 const std::function<bool(const ShownFields &)> &accepts) const
{
    return Match(*this, text, accepts).from(0, 0);
}

std::shared_ptr<const ShownDatePattern>
ShownDatePattern::patternOf(const NSDateFormatter &formatter)
{
    using Key = std::pair<QString, QString>;
    using Shared = std::shared_ptr<const ShownDatePattern>;
    static thread_local ThreadCache<Key, Shared> patterns;
    const Key key{formatter.dateFormat(), formatter.locale().localeIdentifier()};
    return patterns.value(key, [&formatter] {
        return std::make_unique<Shared>(std::make_shared<const ShownDatePattern>(formatter));
    });
}
