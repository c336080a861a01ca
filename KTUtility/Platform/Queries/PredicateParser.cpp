#include "PredicateParser_p.h"

#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Values/NSDecimalNumber.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <algorithm>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Deeper parentheses are rejected.
constexpr int DeepestPredicate = 100;

bool isWordUnit(QChar unit)
{
    return unit.isLetterOrNumber() || unit == u'_' || unit == u'.' || unit == u'@' ||
           unit == u'-' || unit.isSurrogate();
}

bool isNumberUnit(QChar unit)
{
    return (unit >= u'0' && unit <= u'9') || unit == u'.' || unit == u'e' || unit == u'E' ||
           unit == u'-' || unit == u'+';
}

std::function<QVariant(const QVariant &)> constant(const QVariant &value)
{
    return [value](const QVariant &) { return value; };
}

std::function<QVariant(const QVariant &)> atKeyPath(const QString &path)
{
    return
        [path](const QVariant &object) { return NSKeyValueCoding::valueForKeyPath(object, path); };
}
} // namespace

void PredicateParser::fail() const
{
    NSException::raise(NSInvalidArgumentException,
                       NSString::stringWithFormat(u"Unable to parse the format string \"%@\"",
                                                  _format.toString()));
}

void PredicateParser::skipWhitespace()
{
    while (_position < _format.size() && _format[_position].isSpace())
        ++_position;
}

bool PredicateParser::skip(QStringView symbol)
{
    skipWhitespace();
    if (!_format.sliced(_position).startsWith(symbol))
        return false;
    _position += symbol.size();
    return true;
}

bool PredicateParser::skipWord(QStringView word)
{
    const qsizetype before = _position;
    if (takeWord().compare(word, Qt::CaseInsensitive) == 0)
        return true;
    _position = before;
    return false;
}

QString PredicateParser::takeWord()
{
    skipWhitespace();
    const qsizetype begin = _position;
    while (_position < _format.size() && isWordUnit(_format[_position]))
        ++_position;
    return _format.sliced(begin, _position - begin).toString();
}

QVariant PredicateParser::nextArgument()
{
    if (_argument >= _arguments.size())
        fail();
    return _arguments.at(_argument++);
}

NSPredicate::Block PredicateParser::parse()
{
    NSPredicate::Block block = parseOr();
    skipWhitespace();
    if (_position < _format.size())
        fail();
    return block;
}

// Conditions that are joined stand side by side: as pairs of pairs, a long row of them would need
// as many nested calls.

NSPredicate::Block PredicateParser::parseOr()
{
    std::vector<NSPredicate::Block> blocks{parseAnd()};
    while (skipWord(u"OR") || skip(u"||"))
        blocks.push_back(parseAnd());
    if (blocks.size() == 1)
        return blocks.front();
    return [blocks = std::move(blocks)](const QVariant &object) {
        return std::any_of(blocks.begin(), blocks.end(),
                           [&](const NSPredicate::Block &block) { return block(object); });
    };
}

NSPredicate::Block PredicateParser::parseAnd()
{
    std::vector<NSPredicate::Block> blocks{parseNot()};
    while (skipWord(u"AND") || skip(u"&&"))
        blocks.push_back(parseNot());
    if (blocks.size() == 1)
        return blocks.front();
    return [blocks = std::move(blocks)](const QVariant &object) {
        return std::all_of(blocks.begin(), blocks.end(),
                           [&](const NSPredicate::Block &block) { return block(object); });
    };
}

NSPredicate::Block PredicateParser::parseNot()
{
    if (++_depth > DeepestPredicate)
        fail();
    NSPredicate::Block block;
    if (skipWord(u"NOT") || skip(u"!")) {
        block = [inner = parseNot()](const QVariant &object) { return !inner(object); };
    } else if (skip(u"(")) {
        block = parseOr();
        if (!skip(u")"))
            fail();
    } else {
        block = parseComparison();
    }
    --_depth;
    return block;
}

NSPredicate::Block PredicateParser::parseComparison()
{
    for (const bool value : {true, false}) {
        if (skipWord(value ? u"TRUEPREDICATE" : u"FALSEPREDICATE"))
            return [value](const QVariant &) { return value; };
    }
    const Operand left = parseOperand();
    const QString comparison = parseOperator();
    const QString options = parseOptions();
    const Operand right = parseOperand();
    return [=](const QVariant &object) {
        return PredicateOperators::compare(comparison, options, left(object), right(object));
    };
}

QString PredicateParser::parseOperator()
{
    for (const char16_t *symbol : {u"==", u"=", u"!=", u"<>", u"<=", u"<", u">=", u">"}) {
        if (skip(symbol))
            return QString::fromUtf16(symbol);
    }
    for (const char16_t *word :
         {u"BEGINSWITH", u"ENDSWITH", u"CONTAINS", u"LIKE", u"MATCHES", u"IN"}) {
        if (skipWord(word))
            return QString::fromUtf16(word);
    }
    fail();
}

QString PredicateParser::parseOptions()
{
    if (!skip(u"["))
        return {};
    const QString options = takeWord().toLower();
    const bool areKnown =
        options == u"c" || options == u"d" || options == u"cd" || options == u"dc";
    if (!areKnown || !skip(u"]"))
        fail();
    return options;
}

PredicateParser::Operand PredicateParser::parseOperand()
{
    skipWhitespace();
    if (_position >= _format.size())
        fail();
    const QChar first = _format[_position];
    if (first == u'%')
        return parseArgument();
    if (first == u'"' || first == u'\'')
        return parseText(first);
    const bool isPrefix = first == u'-' || first == u'+' || first == u'.';
    if (isPrefix || (first >= u'0' && first <= u'9'))
        return parseNumber();
    return parseWord();
}

PredicateParser::Operand PredicateParser::parseArgument()
{
    if (skip(u"%@"))
        return constant(nextArgument());
    if (!skip(u"%K"))
        fail();
    return atKeyPath(nextArgument().toString());
}

PredicateParser::Operand PredicateParser::parseText(QChar quote)
{
    QString text = u""_s;
    for (++_position; _position < _format.size(); ++_position) {
        const QChar unit = _format[_position];
        if (unit == quote) {
            ++_position;
            return constant(text);
        }
        const bool isEscape = unit == u'\\' && _position + 1 < _format.size();
        text += isEscape ? _format[++_position] : unit;
    }
    fail();
}

PredicateParser::Operand PredicateParser::parseNumber()
{
    const qsizetype begin = _position;
    while (_position < _format.size() && isNumberUnit(_format[_position]))
        ++_position;
    const QString digits = _format.sliced(begin, _position - begin).toString();
    bool isNumber = false;
    static_cast<void>(digits.toDouble(&isNumber));
    if (!isNumber)
        fail();
    return constant(QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(digits)));
}

PredicateParser::Operand PredicateParser::parseWord()
{
    const QString word = takeWord();
    if (word.isEmpty())
        fail();
    const QString upper = word.toUpper();
    if (upper == u"TRUE" || upper == u"YES")
        return constant(true);
    if (upper == u"FALSE" || upper == u"NO")
        return constant(false);
    if (upper == u"NIL" || upper == u"NULL")
        return constant({});
    if (upper == u"SELF")
        return [](const QVariant &object) { return object; };
    return atKeyPath(upper.startsWith(u"SELF.") ? word.sliced(5) : word);
}
