#include "NSString_KTNaming.h"

#include "KTStringTransformCache.h"
#include <KTUtility/Platform/Text/ASCII_p.h>
#include <KTUtility/Platform/Text/NSStringCase.h>
#include <KTUtility/Platform/Text/NSStringEncoding.h>
#include <KTUtility/Platform/Text/NSStringTrim.h>
#include <KTUtility/Platform/Values/NSScanner.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using Domain = KTStringTransformCache::Domain;

/// The domains of the shared cache that the transforms fill, looked up by name once.
struct Domains
{
    KTStringTransformCache &cache = *KTStringTransformCache::sharedCache();
    Domain &properties = cache.domain(u"properties"_s);
    Domain &entities = cache.domain(u"entities"_s);
    Domain &tableColumns = cache.domain(u"tableColumns"_s);
    Domain &tableNames = cache.domain(u"tableNames"_s);
};

const Domains &domains()
{
    static const Domains domains;
    return domains;
}

/// What the domain remembers for \a original; if nothing, what \a transform makes of it.
template<typename Transform>
QString remembered(Domain &domain, const QString &original, Transform transform)
{
    if (original.isNull())
        return {};
    if (const QString *const known = domain.find(original))
        return *known;
    const QString transformed = transform(original);
    domain.insert(original, transformed);
    return transformed;
}

/// Whether a text begins and ends with something in ASCII that is seen.
bool isVisiblyTrimmed(const QString &text)
{
    const auto isSeen = [](QChar unit) { return unit > u' ' && unit < u'\x7F'; };
    return !text.isEmpty() && isSeen(text.front()) && isSeen(text.back());
}

QString lastPiece(const QString &string)
{
    return string.mid(string.lastIndexOf(u'.') + 1);
}

QString capitalisedWord(const QString &word)
{
    return NSString::stringByUppercasingFirstCharacter(NSString::lowercaseString(word));
}

bool beginsWithCapital(const QString &word)
{
    return NSCharacterSet::uppercaseLetterCharacterSet().characterIsMember(
        NSCodePointAt(word, 0).character);
}

QString lowerCasedSingleWord(const QString &word)
{
    return beginsWithCapital(word) ? NSString::stringByLowercasingFirstCharacter(word) : word;
}

bool isASCIIDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

/// The same as makePropertyString() for ASCII, which most names are, in one pass.
QString makeASCIIPropertyString(const QString &trimmed)
{
    const bool isOneWord = !trimmed.contains(u' ');
    bool isFirstWord = true;
    bool isAtStart = true;
    QString result(trimmed.size(), Qt::Uninitialized);
    QChar *end = result.data();
    for (const QChar each : trimmed) {
        const char16_t unit = each.unicode();
        if (ASCII::isLetter(unit)) {
            const bool keepsCase = isOneWord && !isAtStart;
            const bool isCapital = !isFirstWord && isAtStart;
            *end++ = keepsCase ? each : QChar(char16_t(isCapital ? unit & ~0x20 : unit | 0x20));
        } else if (isASCIIDigit(unit)) {
            *end++ = each;
        }
        isAtStart = unit == u' ';
        isFirstWord = isFirstWord && !isAtStart;
    }
    result.truncate(end - result.constData());
    return result;
}

QString makePropertyString(const QString &trimmed)
{
    if (ASCII::isAllOf(trimmed))
        return makeASCIIPropertyString(trimmed);
    return KTAdditions::stringWithString(KTAdditions::bumpyCaseStringFromString(trimmed, false),
                                         NSCharacterSet::alphanumericCharacterSet());
}

QString makeLibraryEntityName(const QString &string)
{
    QString name = KTAdditions::lowerCaseNameFromString(lastPiece(string));
    if (name.isEmpty() || !NSString::canBeConvertedToEncoding(name, NSASCIIStringEncoding))
        name = u"library"_s;
    return name.startsWith(u"lib_") ? name : QString(u"lib_" + name);
}
} // namespace

QString KTAdditions::bumpyCaseStringFromString(const QString &string, bool uppercaseFirst)
{
    if (string.isEmpty())
        return string;
    const QStringList words = string.split(u' ');
    if (!uppercaseFirst && words.size() == 1)
        return lowerCasedSingleWord(string);
    QString result = uppercaseFirst ? QString() : NSString::lowercaseString(words.first());
    for (const QString &word : words.sliced(uppercaseFirst ? 0 : 1))
        result += capitalisedWord(word);
    return result;
}

QString KTAdditions::stringFromBumpyCaseString(const QString &string)
{
    if (string.isEmpty())
        return string;
    const NSCharacterSet &capitals = NSCharacterSet::uppercaseLetterCharacterSet();
    QString result;
    qsizetype start = 0;
    const auto closePiece = [&](qsizetype end) {
        const QString piece = string.sliced(start, end - start);
        result += start == 0 ? NSString::capitalizedString(piece) : QString(u' ' + piece);
        start = end;
    };
    for (qsizetype index = 0; index < string.size();) {
        const NSCodePoint point = NSCodePointAt(string, index);
        if (index > start && capitals.characterIsMember(point.character))
            closePiece(index);
        index += point.length;
    }
    closePiece(string.size());
    return result;
}

QString KTAdditions::stringWithString(const QString &string, const NSCharacterSet &andFilter)
{
    if (string.isNull())
        return {};
    const NSCharacterSet &whitespace = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    QString result = u""_s;
    result.reserve(string.size());
    for (qsizetype index = 0; index < string.size();) {
        const NSCodePoint point = NSCodePointAt(string, index);
        // Deliberate: whitespace is skipped before the set is asked.
        if (!whitespace.characterIsMember(point.character) &&
            andFilter.characterIsMember(point.character))
            result += QStringView(string).sliced(index, point.length);
        index += point.length;
    }
    return result;
}

QString KTAdditions::lowerCaseNameFromString(const QString &string)
{
    if (string.isNull())
        return {};
    const NSCharacterSet &alphanumerics = NSCharacterSet::alphanumericCharacterSet();
    QString result = u""_s;
    qsizetype start = NSFindCharacter(string, 0, alphanumerics);
    while (start < string.size()) {
        const qsizetype end = NSSkipCharacters(string, start, alphanumerics);
        if (!result.isEmpty())
            result += u'_';
        result += NSString::lowercaseString(string.sliced(start, end - start));
        start = NSFindCharacter(string, end, alphanumerics);
    }
    return result;
}

QString KTAdditions::propertyStringFromString(const QString &string)
{
    return remembered(
        domains().properties,
        isVisiblyTrimmed(string) ? string : NSString::stringByTrimmingWhitespaceAndNewlines(string),
        makePropertyString);
}

QString KTAdditions::entityStringFromString(const QString &string)
{
    return remembered(domains().entities, string, [](const QString &original) {
        return bumpyCaseStringFromString(lastPiece(original), true);
    });
}

QString KTAdditions::libraryEntityNameFromString(const QString &string)
{
    return remembered(domains().entities, string, makeLibraryEntityName);
}

QString KTAdditions::propertyString(const QString &receiver)
{
    return propertyStringFromString(receiver);
}

QString KTAdditions::entityString(const QString &receiver)
{
    return entityStringFromString(receiver);
}

QString KTAdditions::libraryEntityName(const QString &receiver)
{
    return libraryEntityNameFromString(receiver);
}

QString KTAdditions::labelString(const QString &receiver)
{
    return stringFromBumpyCaseString(receiver);
}

QString KTAdditions::tableColumnString(const QString &receiver)
{
    return remembered(domains().tableColumns, receiver, [](const QString &original) {
        return QString(u"kt_" + propertyStringFromString(original));
    });
}

QString KTAdditions::tableNameString(const QString &receiver)
{
    return remembered(domains().tableNames, receiver, [](const QString &original) {
        return QString(u"kt_" + lowerCaseNameFromString(lastPiece(original)));
    });
}

QString KTAdditions::properNounString(const QString &receiver)
{
    return NSString::stringByUppercasingFirstCharacter(receiver);
}
