#include "FilterOperator.h"

#include "ComparedText.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
struct Spelling
{
    QStringView text;
    FilterOperator operation;
};

/// The first of an operator is how it is written; what begins with another one comes before it.
constexpr std::array<Spelling, 22> Spellings = {{
    {u"==", FilterOperator::Equal},
    {u"=", FilterOperator::Equal},
    {u"!=", FilterOperator::NotEqual},
    {u"<>", FilterOperator::NotEqual},
    {u"≠", FilterOperator::NotEqual},
    {u"<=", FilterOperator::LessOrEqual},
    {u"≤", FilterOperator::LessOrEqual},
    {u"<", FilterOperator::Less},
    {u">=", FilterOperator::GreaterOrEqual},
    {u"≥", FilterOperator::GreaterOrEqual},
    {u">", FilterOperator::Greater},
    {u"BETWEEN", FilterOperator::Between},
    {u"IN", FilterOperator::In},
    {u"CONTAINS", FilterOperator::Contains},
    {u"BEGINSWITH", FilterOperator::BeginsWith},
    {u"BEGINS WITH", FilterOperator::BeginsWith},
    {u"ENDSWITH", FilterOperator::EndsWith},
    {u"ENDS WITH", FilterOperator::EndsWith},
    {u"LIKE", FilterOperator::Like},
    {u"MATCHES", FilterOperator::Matches},
    {u"IS EMPTY", FilterOperator::Empty},
    {u"IS NOT EMPTY", FilterOperator::Empty},
}};

bool isWordSpelling(QStringView text)
{
    return text.front().isLetter();
}

/// How much of the text is the spelling, in which any number of spaces stands for one; 0 if it is
/// not there.
qsizetype lengthOf(QStringView spelling, QStringView text)
{
    qsizetype place = 0;
    for (const QChar unit : spelling) {
        if (place >= text.size() || text[place].toUpper() != unit)
            return 0;
        ++place;
        while (unit == u' ' && place < text.size() && text[place].isSpace())
            ++place;
    }
    const bool goesOn =
        spelling.back().isLetter() && place < text.size() && ComparedText::isOfWord(text[place]);
    return goesOn ? 0 : place;
}

bool beginsAfterSpace(QStringView text, qsizetype position)
{
    if (position == 0)
        return false;
    const QChar before = text[position - 1];
    return before.isSpace() || before == u'"' || before == u'\'';
}

std::optional<FilterOperators::Found> plainAt(QStringView text, qsizetype position)
{
    for (const Spelling &spelling : Spellings) {
        if (isWordSpelling(spelling.text) && !beginsAfterSpace(text, position))
            continue;
        if (const qsizetype length = lengthOf(spelling.text, text.sliced(position)))
            return FilterOperators::Found{spelling.operation, spelling.text.contains(u" NOT "),
                                          length};
    }
    return std::nullopt;
}
} // namespace

std::optional<FilterOperators::Found> FilterOperators::at(QStringView text, qsizetype position)
{
    if (position >= text.size())
        return std::nullopt;
    const qsizetype negation =
        beginsAfterSpace(text, position) ? lengthOf(u"NOT ", text.sliced(position)) : 0;
    if (negation == 0)
        return plainAt(text, position);
    std::optional<Found> found = plainAt(text, position + negation);
    if (!found || !isWord(found->operation) || found->operation == FilterOperator::Empty)
        return std::nullopt;
    found->isNegated = true;
    found->length += negation;
    return found;
}

QString FilterOperators::spelled(FilterOperator operation, bool isNegated)
{
    switch (operation) {
    case FilterOperator::Equal:
        return u"="_s;
    case FilterOperator::Empty:
        return isNegated ? u"IS NOT EMPTY"_s : u"IS EMPTY"_s;
    case FilterOperator::During:
        return spelled(FilterOperator::In, isNegated);
    default:
        break;
    }
    for (const Spelling &spelling : Spellings) {
        if (spelling.operation == operation)
            return (isNegated ? u"NOT "_s : QString()) + spelling.text;
    }
    return {};
}

bool FilterOperators::isForTexts(FilterOperator operation)
{
    return operation >= FilterOperator::Contains && operation <= FilterOperator::Matches;
}

bool FilterOperators::isWord(FilterOperator operation)
{
    return operation >= FilterOperator::Between;
}
