#include "NSPredicate.h"

#include "PredicateParser_p.h"
#include <KTUtility/Platform/Text/ICU_p.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QRegularExpression>

#include <unicode/normalizer2.h>

#include <algorithm>

using namespace KTPrivate;

namespace {
/// Qt would take the letters apart in place, each for the length of what is behind it.
QString decomposed(const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString parts =
        icu::Normalizer2::getNFDInstance(status)->normalize(ICU::aliasOf(text), status);
    return U_SUCCESS(status) ? ICU::stringOf(parts) : text;
}

/// A text without diacritics where they do not count.
QString unmarked(const QVariant &value, const QString &options)
{
    QString text = value.toString();
    if (options.contains(u'd')) {
        const auto isMark = [](QChar unit) { return unit.category() == QChar::Mark_NonSpacing; };
        // To put a long run of marks in order takes square time: those of the text go first.
        text.removeIf(isMark);
        text = decomposed(text);
        text.removeIf(isMark);
    }
    return text;
}

/// A text as it is compared: without case or diacritics where they do not count.
QString folded(const QVariant &value, const QString &options)
{
    const QString text = unmarked(value, options);
    return options.contains(u'c') ? text.toCaseFolded() : text;
}

bool isList(const QVariant &value)
{
    return KeyValueTarget::ofVariant(value).kind == KeyValueTarget::Kind::Collection;
}

bool isElement(const QVariant &element, const QVariant &list)
{
    const QVariantList elements = list.value<QVariantList>();
    return std::any_of(elements.begin(), elements.end(),
                       [&](const QVariant &each) { return NSObject::isEqualTo(each, element); });
}

bool isInOrder(const QString &comparison, const QVariant &left, const QVariant &right)
{
    if (NSObject::isNil(left) || NSObject::isNil(right))
        return false;
    const auto order = NSObject::compare(left, right);
    if (comparison == u"<")
        return order < 0;
    if (comparison == u"<=")
        return order <= 0;
    return comparison == u">" ? order > 0 : order >= 0;
}

bool isEqual(const QVariant &left, const QVariant &right, const QString &options)
{
    const bool areTexts =
        left.typeId() == QMetaType::QString && right.typeId() == QMetaType::QString;
    return areTexts && !options.isEmpty() ? folded(left, options) == folded(right, options)
                                          : NSObject::isEqual(left, right);
}

/// The case of a pattern says what it means ("\S" is not "\s"), so that the expression is told to
/// ignore that of letters.
bool matches(const QString &text, const QString &pattern, bool ignoresCase)
{
    // Letters are those of all languages: "ë" is a character of words, too.
    QRegularExpression::PatternOptions options = QRegularExpression::DotMatchesEverythingOption |
                                                 QRegularExpression::UseUnicodePropertiesOption;
    options.setFlag(QRegularExpression::CaseInsensitiveOption, ignoresCase);
    const QRegularExpression expression(QRegularExpression::anchoredPattern(pattern), options);
    // "a)|(b" would be an expression between the parentheses that make it match the whole text.
    return expression.isValid() && expression.match(text).hasMatch() &&
           QRegularExpression(pattern, options).isValid();
}

/// The place behind a character, which may be a surrogate pair.
qsizetype behind(QStringView text, qsizetype position)
{
    const bool isPair = text[position].isHighSurrogate() && position + 1 < text.size() &&
                        text[position + 1].isLowSurrogate();
    return position + (isPair ? 2 : 1);
}

/// Whether "?" and "*" of a pattern can stand for what a text has there. Only the last "*" is ever
/// tried again, so that the time is bounded by the product of the lengths.
bool isLike(QStringView text, QStringView pattern)
{
    qsizetype position = 0;
    qsizetype index = 0;
    qsizetype starIndex = -1;
    qsizetype starPosition = 0;
    while (position < text.size()) {
        const QChar unit = index < pattern.size() ? pattern[index] : QChar();
        if (index < pattern.size() && unit == u'*') {
            starIndex = index++;
            starPosition = position;
        } else if (index < pattern.size() && (unit == u'?' || unit == text[position])) {
            position = unit == u'?' ? behind(text, position) : position + 1;
            ++index;
        } else if (starIndex >= 0) {
            index = starIndex + 1;
            position = starPosition = behind(text, starPosition);
        } else {
            return false;
        }
    }
    const QStringView rest = pattern.sliced(index);
    return std::all_of(rest.begin(), rest.end(), [](QChar unit) { return unit == u'*'; });
}

bool compareTexts(const QString &comparison, const QString &left, const QString &right)
{
    if (comparison == u"BEGINSWITH")
        return left.startsWith(right);
    if (comparison == u"ENDSWITH")
        return left.endsWith(right);
    if (comparison == u"CONTAINS")
        return left.contains(right);
    return isLike(left, right);
}
} // namespace

bool PredicateOperators::compare(const QString &comparison, const QString &options,
                                 const QVariant &left, const QVariant &right)
{
    if (comparison == u"=" || comparison == u"==")
        return isEqual(left, right, options);
    if (comparison == u"!=" || comparison == u"<>")
        return !isEqual(left, right, options);
    if (comparison.startsWith(u'<') || comparison.startsWith(u'>'))
        return isInOrder(comparison, left, right);
    if (comparison == u"IN" && isList(right))
        return isElement(left, right);
    if (comparison == u"CONTAINS" && isList(left))
        return isElement(right, left);
    const bool areTexts =
        left.typeId() == QMetaType::QString && right.typeId() == QMetaType::QString;
    if (!areTexts || NSObject::isNil(left) || NSObject::isNil(right))
        return false;
    if (comparison == u"IN")
        return folded(right, options).contains(folded(left, options));
    if (comparison == u"MATCHES")
        return matches(unmarked(left, options), unmarked(right, options), options.contains(u'c'));
    return compareTexts(comparison, folded(left, options), folded(right, options));
}

NSPredicate NSPredicate::predicateWithBlock(Block block)
{
    return NSPredicate(std::move(block));
}

NSPredicate NSPredicate::predicateWithFormat(QStringView format, const QVariantList &arguments)
{
    return NSPredicate(PredicateParser(format, arguments).parse());
}

NSPredicate NSPredicate::predicateWithValue(bool value)
{
    return NSPredicate([value](const QVariant &) { return value; });
}
