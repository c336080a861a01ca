#include "NSStringCompare.h"

#include "NSCharacterSet.h"

#include <unicode/normalizer2.h>
#include <unicode/ucol.h>
#include <unicode/unistr.h>

#include <QLocale>

#include <algorithm>
#include <memory>
#include <tuple>

namespace {
/// A text as ICU sees it, without a copy.
icu::UnicodeString aliasOf(QStringView text)
{
    return icu::UnicodeString(false, text.utf16(), int32_t(text.size()));
}

struct CollatorCloser
{
    void operator()(UCollator *collator) const { ucol_close(collator); }
};
using Collator = std::unique_ptr<UCollator, CollatorCloser>;

/// The collator of a locale; none if ICU cannot make it.
Collator collatorFor(const QString &localeName)
{
    UErrorCode status = U_ZERO_ERROR;
    const QByteArray name = localeName == u"C" ? QByteArray("") : localeName.toLatin1();
    Collator collator(ucol_open(name.constData(), &status));
    if (U_FAILURE(status))
        return nullptr;
    ucol_setAttribute(collator.get(), UCOL_STRENGTH, UCOL_TERTIARY, &status);
    ucol_setAttribute(collator.get(), UCOL_CASE_LEVEL, UCOL_ON, &status);
    ucol_setAttribute(collator.get(), UCOL_CASE_FIRST, UCOL_LOWER_FIRST, &status);
    ucol_setAttribute(collator.get(), UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &status);
    ucol_setAttribute(collator.get(), UCOL_NUMERIC_COLLATION, UCOL_OFF, &status);
    ucol_setAttribute(collator.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
    return collator;
}

/// What a collator depends on of a locale.
using LocaleKey = std::tuple<QLocale::Language, QLocale::Script, QLocale::Territory>;

/// The collator of the current locale; made again only when the locale changes.
const UCollator *currentCollator()
{
    thread_local LocaleKey known;
    thread_local Collator collator;
    const QLocale current;
    const LocaleKey key(current.language(), current.script(), current.territory());
    if (!collator || key != known) {
        known = key;
        collator = collatorFor(current.name());
    }
    return collator.get();
}

/// The units of a text, so that its bytes are in their order.
QByteArray bigEndian(const QString &text)
{
    QByteArray bytes;
    for (const QChar unit : text)
        bytes.append(char(unit.unicode() >> 8)).append(char(unit.unicode() & 0xFF));
    return bytes;
}

/// The canonical decomposition (NFD), case folded unless upper and lower case are distinguished.
icu::UnicodeString decomposed(QStringView text, Qt::CaseSensitivity sensitivity)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString result =
        icu::Normalizer2::getNFDInstance(status)->normalize(aliasOf(text), status);
    return sensitivity == Qt::CaseSensitive ? result : result.foldCase();
}

bool needsDecomposition(QStringView text)
{
    return std::any_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() >= 0xC0; });
}

/// True if a canonical sequence can end before \a index: no mark follows.
bool isBoundary(QStringView text, qsizetype index)
{
    UErrorCode status = U_ZERO_ERROR;
    return index >= text.size() || icu::Normalizer2::getNFDInstance(status)->hasBoundaryBefore(
                                       aliasOf(text).char32At(int32_t(index)));
}
} // namespace

std::weak_ordering NSString::localizedCompare(const QString &left, const QString &right)
{
    const UCollator *collator = currentCollator();
    if (!collator)
        return QString::compare(left, right) <=> 0;
    return int(ucol_strcoll(collator, QStringView(left).utf16(), int32_t(left.size()),
                            QStringView(right).utf16(), int32_t(right.size()))) <=> 0;
}

QByteArray NSString::localizedSortKey(const QString &text)
{
    const UCollator *collator = currentCollator();
    if (!collator)
        return bigEndian(text);
    const auto write = [&](QByteArray *key) {
        return ucol_getSortKey(collator, QStringView(text).utf16(), int32_t(text.size()),
                               reinterpret_cast<uint8_t *>(key->data()), int32_t(key->size()));
    };
    // Most keys fit in so many bytes.
    QByteArray key(3 * text.size() + 16, Qt::Uninitialized);
    const int32_t size = write(&key);
    const bool fits = size <= key.size();
    key.resize(size);
    if (!fits)
        write(&key);
    return key;
}

qsizetype NSString::lengthOfCanonicalPrefix(QStringView text, QStringView prefix,
                                            Qt::CaseSensitivity sensitivity)
{
    if (prefix.isEmpty() || !needsDecomposition(prefix))
        return !prefix.isEmpty() && text.startsWith(prefix, sensitivity) &&
                       isBoundary(text, prefix.size())
                   ? prefix.size()
                   : 0;
    // No character decomposes into more than four, so an equivalent form is at most that longer.
    const icu::UnicodeString wanted = decomposed(prefix, sensitivity);
    const qsizetype limit = std::min(text.size(), qsizetype(wanted.length()) * 2);
    for (qsizetype length = 1; length <= limit; ++length) {
        if (!isBoundary(text, length))
            continue;
        const icu::UnicodeString found = decomposed(text.first(length), sensitivity);
        if (found == wanted)
            return length;
        if (found.length() > wanted.length())
            break;
    }
    return 0;
}

qsizetype NSString::indexOfCanonical(const QString &text, QStringView string, qsizetype from,
                                     Qt::CaseSensitivity sensitivity)
{
    if (string.isEmpty())
        return -1;
    if (!needsDecomposition(string))
        return text.indexOf(string, from, sensitivity);
    const char32_t first = char32_t(decomposed(string, sensitivity).char32At(0));
    for (qsizetype index = from; index < text.size(); ++index) {
        const QStringView rest = QStringView(text).sliced(index);
        const QStringView character = rest.first(NSCodePointAt(rest, 0).length);
        if (char32_t(decomposed(character, sensitivity).char32At(0)) == first &&
            lengthOfCanonicalPrefix(rest, string, sensitivity) > 0)
            return index;
    }
    return -1;
}
