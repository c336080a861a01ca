#include "NSStringCase.h"

#include "NSCharacterSet.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <algorithm>

namespace {
using Mapping = int32_t (*)(UChar *, int32_t, const UChar *, int32_t, const char *, UErrorCode *);

/// Applies one of ICU's mappings of whole texts, with the root locale's rules.
QString mapped(QStringView text, Mapping mapping)
{
    QString result(text.size() + 8, Qt::Uninitialized);
    for (;;) {
        UErrorCode status = U_ZERO_ERROR;
        const int32_t length =
            mapping(reinterpret_cast<UChar *>(result.data()), int32_t(result.size()), text.utf16(),
                    int32_t(text.size()), "", &status);
        const bool fits = length <= result.size();
        result.resize(length);
        if (fits)
            return result;
    }
}

int32_t toTitle(UChar *target, int32_t capacity, const UChar *source, int32_t length,
                const char *locale, UErrorCode *status)
{
    return u_strToTitle(target, capacity, source, length, nullptr, locale, status);
}

bool isAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 0x80; });
}

/// The title-case form of one character. ICU makes a break iterator for each call, so ASCII is
/// mapped here.
QString titled(QStringView character)
{
    return isAscii(character) ? character.toString().toUpper() : mapped(character, toTitle);
}

QString lowered(QStringView text)
{
    return isAscii(text) ? text.toString().toLower() : mapped(text, u_strToLower);
}

QString withFirstCharacterMapped(const QString &text, Mapping mapping)
{
    if (text.isEmpty())
        return text;
    const qsizetype length = NSCodePointAt(text, 0).length;
    const QString first = mapped(QStringView(text).first(length), mapping);
    return first == QStringView(text).first(length) ? text : QString(first + text.mid(length));
}

/// Walks a text from cased letter to cased letter and writes it capitalised.
class Capitalizer
{
public:
    explicit Capitalizer(const QString &text) : _text(text) { _result.reserve(text.size()); }

    QString run()
    {
        for (qsizetype index = 0; index < _text.size();) {
            const NSCodePoint point = NSCodePointAt(_text, index);
            append(point, index);
            index += point.length;
        }
        flushWord();
        return _result;
    }

private:
    void append(NSCodePoint point, qsizetype index)
    {
        const auto character = UChar32(point.character);
        const bool isCased = u_hasBinaryProperty(character, UCHAR_CASED);
        if (!isCased && !u_hasBinaryProperty(character, UCHAR_CASE_IGNORABLE)) {
            flushWord();
            _result += QStringView(_text).sliced(index, point.length);
            return;
        }
        if (isCased && _casedAt < 0)
            _casedAt = _word.size();
        _word += QStringView(_text).sliced(index, point.length);
    }

    void flushWord()
    {
        if (_casedAt < 0) {
            _result += _word;
        } else {
            const qsizetype length = NSCodePointAt(_word, _casedAt).length;
            // Lower-casing the whole word keeps the context of a final sigma.
            const QString lower = lowered(_word);
            const qsizetype head = lowered(QStringView(_word).first(_casedAt + length)).size();
            _result += QStringView(_word).first(_casedAt) +
                       titled(QStringView(_word).sliced(_casedAt, length)) + lower.sliced(head);
        }
        _word.clear();
        _casedAt = -1;
    }

    const QString &_text;
    QString _result;
    QString _word;
    qsizetype _casedAt = -1;
};
} // namespace

QString NSString::lowercaseString(const QString &text)
{
    return lowered(text);
}

QString NSString::uppercaseString(const QString &text)
{
    return isAscii(text) ? text.toUpper() : mapped(text, u_strToUpper);
}

QString NSString::capitalizedString(const QString &text)
{
    return text.isEmpty() ? text : Capitalizer(text).run();
}

QString NSString::stringByUppercasingFirstCharacter(const QString &text)
{
    return withFirstCharacterMapped(text, u_strToUpper);
}

QString NSString::stringByLowercasingFirstCharacter(const QString &text)
{
    return withFirstCharacterMapped(text, u_strToLower);
}
