#include "FilterParser.h"

#include "ComparedText.h"
#include "FilterTexts.h"

using namespace Qt::StringLiterals;

namespace {
/// What people type is shorter; what was made to keep a program busy is not.
constexpr qsizetype LongestFilter = 20000;
constexpr int Deepest = 100;
/// Written in the portable notation, names and values may be that many times as long, and groups
/// stand in parentheses that nobody has typed.
constexpr qsizetype PortableLength = 100;
constexpr int PortableDepth = 3;
/// Longer names have to be put in quotes.
constexpr qsizetype LongestBareName = 200;

bool isQuote(QChar unit)
{
    return unit == u'"' || unit == u'\'';
}
} // namespace

/// A field where its name stands.
struct FilterParser::Named
{
    qsizetype field;
    qsizetype position;
    qsizetype length;
};

std::nullopt_t FilterParser::fail(const QString &reason, qsizetype position, qsizetype length)
{
    _problem = {reason, position, qMin(length, _text.size() - position)};
    return std::nullopt;
}

bool FilterParser::refuse(const QString &reason, qsizetype position, qsizetype length)
{
    (void)fail(reason, position, length);
    return false;
}

void FilterParser::skipSpaces()
{
    while (_position < _text.size() && _text.at(_position).isSpace())
        ++_position;
}

bool FilterParser::skip(QChar character)
{
    skipSpaces();
    const bool isThere = _position < _text.size() && _text.at(_position) == character;
    _position += isThere;
    return isThere;
}

/// The length of AND or OR at a place, with its sign; 0 if it is not there.
qsizetype FilterParser::joiningWord(qsizetype position, FilterNode::Kind kind) const
{
    const bool isAnd = kind == FilterNode::Kind::All;
    const QStringView rest = QStringView(_text).sliced(qMin(position, _text.size()));
    if (rest.startsWith(isAnd ? u"&&" : u"||"))
        return 2;
    const QStringView word = isAnd ? QStringView(u"AND") : QStringView(u"OR");
    const bool begins = position > 0 && !ComparedText::isOfWord(at(position - 1));
    if (!begins || !rest.startsWith(word, Qt::CaseInsensitive))
        return 0;
    return ComparedText::isOfWord(at(position + word.size())) ? 0 : word.size();
}

qsizetype FilterParser::anyJoiningWord(qsizetype position) const
{
    const qsizetype length = joiningWord(position, FilterNode::Kind::All);
    return length ? length : joiningWord(position, FilterNode::Kind::Any);
}

std::optional<FilterNode> FilterParser::parse()
{
    const bool isTyped = _notation == FilterNotation::Typed;
    if (_text.size() > (isTyped ? LongestFilter : PortableLength * LongestFilter))
        return fail(FilterTexts::tr("the filter is too long"), LongestFilter);
    Parsed node = parseJoined(FilterNode::Kind::Any);
    skipSpaces();
    if (node && _position < _text.size())
        return fail(FilterTexts::tr("AND or OR is missing here"), _position);
    return node;
}

/// OR joins what AND joins.
FilterParser::Parsed FilterParser::parseJoined(FilterNode::Kind kind)
{
    const bool isAny = kind == FilterNode::Kind::Any;
    FilterNode joined{kind, {}, {}};
    for (;;) {
        Parsed part = isAny ? parseJoined(FilterNode::Kind::All) : parsePart();
        if (!part)
            return part;
        joined.parts.push_back(*std::move(part));
        skipSpaces();
        const qsizetype length = joiningWord(_position, kind);
        if (length == 0)
            return joined.parts.size() == 1 ? joined.parts.front() : joined;
        _position += length;
    }
}

FilterParser::Parsed FilterParser::parsePart()
{
    skipSpaces();
    const qsizetype begin = _position;
    if (++_depth > (_notation == FilterNotation::Typed ? Deepest : PortableDepth * Deepest))
        return fail(FilterTexts::tr("there are too many parentheses"), begin);
    const QStringView rest = QStringView(_text).sliced(begin);
    const bool isSign = rest.startsWith(u'!') && !rest.startsWith(u"!=");
    const bool isWord =
        rest.startsWith(u"NOT", Qt::CaseInsensitive) && !ComparedText::isOfWord(at(begin + 3));
    Parsed part;
    if (isSign || (isWord && !longestName())) {
        _position += isSign ? 1 : 3;
        part = parseNegated();
    } else {
        part = skip(u'(') ? parseGroup() : parseComparison();
    }
    --_depth;
    return part;
}

FilterParser::Parsed FilterParser::parseNegated()
{
    Parsed part = parsePart();
    if (!part)
        return part;
    if (part->kind == FilterNode::Kind::Comparison) {
        part->comparison.isNegated = !part->comparison.isNegated;
        return part;
    }
    // Twice negated is not negated.
    if (part->kind == FilterNode::Kind::Not)
        return part->parts.front();
    return FilterNode{FilterNode::Kind::Not, {}, {*std::move(part)}};
}

FilterParser::Parsed FilterParser::parseGroup()
{
    const qsizetype begin = _position - 1;
    Parsed group = parseJoined(FilterNode::Kind::Any);
    if (group && !skip(u')'))
        return fail(FilterTexts::tr("the parenthesis is not closed"), begin);
    return group;
}

FilterParser::Parsed FilterParser::parseComparison()
{
    const std::optional<Named> name = parseName();
    if (!name)
        return std::nullopt;
    skipSpaces();
    const auto found = FilterOperators::at(_text, _position);
    if (!found)
        return fail(
            FilterTexts::tr("a comparison such as = or CONTAINS is missing behind the field"),
            name->position, name->length);
    _position += found->length;
    FilterNode node{FilterNode::Kind::Comparison, {}, {}};
    node.comparison.field = name->field;
    node.comparison.operation = found->operation;
    node.comparison.isNegated = found->isNegated;
    if (!parseOptions(&node.comparison) || !parseValues(&node.comparison))
        return std::nullopt;
    return node;
}

// --- Names --------------------------------------------------------------------------------------

std::optional<FilterParser::Named> FilterParser::parseName()
{
    skipSpaces();
    const qsizetype begin = _position;
    if (begin >= _text.size())
        return fail(FilterTexts::tr("a field is missing here"), begin);
    if (const auto name = longestName()) {
        _position += name->length;
        return name;
    }
    const bool isInQuotes = isQuote(at(begin));
    const qsizetype end = placeOfOperator(begin);
    const std::optional<QString> quoted = isInQuotes ? parseQuoted() : std::nullopt;
    if (isInQuotes && !quoted)
        return std::nullopt;
    const QString name = quoted ? *quoted : _text.sliced(begin, end - begin).trimmed();
    const qsizetype length = quoted ? _position - begin : name.size();
    const Outcome<qsizetype> field = _fields.named(name, _notation);
    if (!field)
        return fail(field.reason(), begin, length);
    _position = begin + length;
    return Named{*field, begin, length};
}

/// The field whose unquoted name is the longest one that stands here before an operator.
std::optional<FilterParser::Named> FilterParser::longestName() const
{
    std::optional<Named> longest;
    qsizetype begin = _position;
    while (at(begin).isSpace())
        ++begin;
    // Spaces in names may be typed more often.
    const qsizetype last =
        qMin(_text.size(), begin + 2 * qMin(_fields.longestName(), LongestBareName) + 1);
    for (qsizetype end = begin + 1; end <= last; ++end) {
        qsizetype place = end;
        while (at(place).isSpace())
            ++place;
        if (!FilterOperators::at(_text, place) && end < _text.size())
            continue;
        const QString name = _text.sliced(begin, end - begin).trimmed();
        const Outcome<qsizetype> field = _fields.named(name, _notation);
        if (field)
            longest = Named{*field, begin, name.size()};
    }
    return longest;
}

/// Where the next operator begins, or a comparison ends without one.
qsizetype FilterParser::placeOfOperator(qsizetype from) const
{
    qsizetype place = from + 1;
    while (place < _text.size() && !FilterOperators::at(_text, place) && at(place) != u')' &&
           anyJoiningWord(place) == 0)
        ++place;
    return qMin(place, _text.size());
}

// --- Values -------------------------------------------------------------------------------------

std::optional<QString> FilterParser::parseQuoted()
{
    const qsizetype begin = _position;
    const QChar quote = at(begin);
    QString text = u""_s;
    for (++_position; _position < _text.size(); ++_position) {
        const QChar unit = at(_position);
        if (unit == quote) {
            ++_position;
            return text;
        }
        const bool isEscape = unit == u'\\' && _position + 1 < _text.size();
        text += isEscape ? at(++_position) : unit;
    }
    return fail(FilterTexts::tr("the quotation mark is not closed"), begin);
}

/// The place behind a text in quotes that begins at a place; the place itself if none does.
qsizetype FilterParser::behindQuotes(qsizetype position) const
{
    const QChar quote = at(position);
    if (!isQuote(quote))
        return position;
    for (++position; position < _text.size() && at(position) != quote; ++position)
        position += at(position) == u'\\';
    return qMin(position + 1, _text.size());
}

bool FilterParser::parseOptions(FilterComparison *comparison)
{
    const qsizetype begin = _position;
    if (at(begin) != u'[')
        return true;
    const qsizetype end = _text.indexOf(u']', begin);
    const QString options =
        end < 0 ? QString() : _text.sliced(begin + 1, end - begin - 1).trimmed().toLower();
    static const QStringList known{u""_s, u"c"_s, u"d"_s, u"cd"_s, u"dc"_s};
    if (end < 0 || !known.contains(options))
        return refuse(FilterTexts::tr("only [c], [d], [cd] and [] can stand here"), begin, 3);
    comparison->passesOver = options;
    _position = end + 1;
    return true;
}

bool FilterParser::isOfDates(qsizetype field) const
{
    const FieldType type = _fields.field(field).type;
    return type == FieldType::Date || type == FieldType::DateTime;
}

bool FilterParser::parseValues(FilterComparison *comparison)
{
    if (comparison->operation == FilterOperator::Empty)
        return true;
    skipSpaces();
    const QChar first = at(_position);
    const bool isList = first == u'(' || first == u'{';
    if (comparison->operation == FilterOperator::In && !isList && isOfDates(comparison->field))
        comparison->operation = FilterOperator::During;
    if (comparison->operation == FilterOperator::Between)
        return parseRange(comparison);
    if (comparison->operation == FilterOperator::In && isList)
        return parseList(comparison, first == u'(' ? u')' : u'}');
    return parseValue(comparison);
}

bool FilterParser::parseRange(FilterComparison *comparison)
{
    const qsizetype begin = _position;
    if (at(begin) == u'{') {
        if (!parseList(comparison, u'}'))
            return false;
    } else {
        const qsizetype quotesEnd = behindQuotes(begin);
        if (quotesEnd > begin ? !parseValue(comparison) : !addBare(comparison, endOfValue(true)))
            return false;
        skipSpaces();
        const qsizetype length = joiningWord(_position, FilterNode::Kind::All);
        _position += length;
        if (length > 0 && !parseValue(comparison))
            return false;
    }
    if (comparison->values.size() == 2)
        return true;
    return refuse(FilterTexts::tr("BETWEEN needs two values with AND between them"), begin,
                  _position - begin);
}

bool FilterParser::parseValue(FilterComparison *comparison)
{
    skipSpaces();
    const qsizetype begin = _position;
    if (!isQuote(at(begin)))
        return addBare(comparison, endOfValue(false));
    const std::optional<QString> text = parseQuoted();
    if (text)
        comparison->values += FilterValue{*text, begin, _position - begin};
    return text.has_value();
}

/// Takes what stands between here and a place as a value.
bool FilterParser::addBare(FilterComparison *comparison, qsizetype end)
{
    const qsizetype begin = _position;
    const QString text = _text.sliced(begin, end - begin).trimmed();
    if (text.isEmpty())
        return refuse(FilterTexts::tr("a value is missing here"), begin);
    comparison->values += FilterValue{text, begin, text.size()};
    _position = end;
    return true;
}

/// Whether what stands behind AND or OR is a comparison, and not more of a value.
bool FilterParser::beginsCondition(qsizetype position) const
{
    while (at(position).isSpace())
        ++position;
    const QStringView rest = QStringView(_text).sliced(qMin(position, _text.size()));
    const bool isNot = rest.startsWith(u"NOT ", Qt::CaseInsensitive);
    if (isNot || rest.startsWith(u'(') || rest.startsWith(u'!') || rest.isEmpty() ||
        isQuote(rest.front()))
        return true;
    const qsizetype place = placeOfOperator(position);
    return FilterOperators::at(_text, place).has_value();
}

/// Where a value without quotes ends that begins here.
qsizetype FilterParser::endOfValue(bool isFirstOfRange) const
{
    int depth = 0;
    for (qsizetype place = _position; place < _text.size(); ++place) {
        const QChar unit = at(place);
        if (unit == u')' && --depth < 0)
            return place;
        depth += unit == u'(';
        const qsizetype length = depth == 0 ? anyJoiningWord(place) : 0;
        if (length > 0 && (isFirstOfRange || beginsCondition(place + length)))
            return place;
    }
    return _text.size();
}

// --- Lists --------------------------------------------------------------------------------------

/// What stands between the elements of the list that begins here. Only where an element begins, an
/// apostrophe is a quotation mark: "O'Brien; D'Arcy" are two.
QChar FilterParser::separatorBefore(QChar close) const
{
    bool beginsElement = true;
    for (qsizetype place = _position; place < _text.size(); ++place) {
        if (beginsElement)
            place = behindQuotes(place);
        const QChar unit = at(place);
        if (unit == u';')
            return u';';
        if (unit == close)
            break;
        beginsElement = unit == u',' || (beginsElement && unit.isSpace());
    }
    return u',';
}

bool FilterParser::parseList(FilterComparison *comparison, QChar close)
{
    const qsizetype begin = _position++;
    const QChar separator = separatorBefore(close);
    do {
        if (!parseElement(comparison, close, separator))
            return false;
    } while (skip(separator));
    return skip(close) || refuse(FilterTexts::tr("the list is not closed"), begin);
}

bool FilterParser::parseElement(FilterComparison *comparison, QChar close, QChar separator)
{
    skipSpaces();
    return isQuote(at(_position)) ? parseValue(comparison)
                                  : addBare(comparison, endOfElement(close, separator));
}

qsizetype FilterParser::endOfElement(QChar close, QChar separator) const
{
    int depth = 0;
    for (qsizetype place = _position; place < _text.size(); ++place) {
        const QChar unit = at(place);
        if (depth == 0 && (unit == close || unit == separator))
            return place;
        depth += (unit == u'(') - (unit == u')');
    }
    return _text.size();
}
