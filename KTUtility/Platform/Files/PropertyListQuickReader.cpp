#include "PropertyListQuickReader_p.h"

#include <KTUtility/Platform/Values/UTC_p.h>

#include <QDateTime>
#include <QUtf8StringView>
#include <QVariantList>
#include <QVariantMap>

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>
#include <vector>

using namespace KTPrivate;

// Manifests, settings and lists of records are dictionaries and arrays of plain values, written in
// the same few bytes each time. They are read here without an XML parser, at a tenth of its cost;
// anything that looks different in any way is left to it, so that the result is always the parser's.

namespace {
/// What is nested deeper is left to the parser, which knows how deep is too deep.
constexpr int DeepestLevel = 64;

constexpr bool isDecimalUnit(char unit)
{
    return unit >= '0' && unit <= '9';
}

constexpr bool isPlainUnit(char unit)
{
    return unit >= ' ' && unit <= '~' && unit != '<' && unit != '>' && unit != '&';
}

/// Characters that no parser minds; those that may be none begin with higher bytes in UTF-8.
bool isPlainComment(std::string_view text)
{
    constexpr unsigned char FirstOfOthers = 0xEF;
    const auto isPlain = [](unsigned char unit) {
        return (unit >= ' ' && unit < FirstOfOthers) || unit == '\n' || unit == '\t';
    };
    return std::ranges::all_of(text, isPlain) &&
           QUtf8StringView(text.data(), qsizetype(text.size())).isValidUtf8();
}

/// What base64 is made of, and what stands between its lines.
constexpr bool isOfBase64(char unit)
{
    return isDecimalUnit(unit) || (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z') ||
           unit == '+' || unit == '/' || unit == '=' || unit == '\n' || unit == '\t' || unit == ' ';
}

/// How many digits stand at the beginning of a text.
size_t countOfDecimalUnits(std::string_view text)
{
    return size_t(std::ranges::find_if_not(text, isDecimalUnit) - text.begin());
}

std::string_view withoutSign(std::string_view text)
{
    return text.substr(text.starts_with('-') ? 1 : 0);
}

/// Digits that fit 64 bits whatever they are.
bool isPlainInteger(std::string_view text)
{
    constexpr size_t MostDigits = 18;
    const std::string_view digits = withoutSign(text);
    return !digits.empty() && digits.size() <= MostDigits &&
           countOfDecimalUnits(digits) == digits.size();
}

/// "12", "12.5" and "1.25e+17".
bool isPlainReal(std::string_view text)
{
    std::string_view rest = withoutSign(text);
    const auto skipDigits = [&rest] {
        const size_t count = countOfDecimalUnits(rest);
        rest.remove_prefix(count);
        return count > 0;
    };
    const auto skipOneOf = [&rest](std::string_view units) {
        const bool isNext = !rest.empty() && units.find(rest.front()) != units.npos;
        rest.remove_prefix(isNext ? 1 : 0);
        return isNext;
    };
    bool isNumber = skipDigits() && (!skipOneOf(".") || skipDigits());
    if (isNumber && skipOneOf("e")) {
        skipOneOf("+-");
        isNumber = skipDigits();
    }
    return isNumber && rest.empty();
}

/// The number that all of a text is; nothing if it does not fit.
template<typename Number>
std::optional<QVariant> plainNumberFrom(std::string_view text)
{
    Number number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = result.ec == std::errc() && result.ptr == text.data() + text.size();
    return isWhole ? std::optional(QVariant(number)) : std::nullopt;
}

/// "YYYY-MM-DDTHH:MM:SSZ"; nothing if there is no such day or time.
std::optional<QVariant> plainDateFrom(std::string_view text)
{
    constexpr std::string_view Form = "dddd-dd-ddTdd:dd:ddZ";
    const bool fits = std::ranges::equal(text, Form, [](char unit, char wanted) {
        return wanted == 'd' ? isDecimalUnit(unit) : unit == wanted;
    });
    if (!fits)
        return std::nullopt;
    const auto part = [text](size_t start, size_t count) {
        int number = 0;
        std::from_chars(text.data() + start, text.data() + start + count, number);
        return number;
    };
    const QDate day(part(0, 4), part(5, 2), part(8, 2));
    const QTime time(part(11, 2), part(14, 2), part(17, 2));
    const bool isDate = day.isValid() && time.isValid();
    return isDate ? std::optional(QVariant(QDateTime(day, time, UTC))) : std::nullopt;
}

class QuickReader
{
public:
    explicit QuickReader(const QByteArray &data) : _rest(data.constData(), size_t(data.size())) {}

    std::optional<QVariant> read()
    {
        if (!skipHead())
            return std::nullopt;
        std::optional<QVariant> value = readValue(0);
        if (!value || !skip("</plist>"))
            return std::nullopt;
        skipWhitespace();
        return _rest.empty() ? std::move(value) : std::nullopt;
    }

private:
    void skipWhitespace()
    {
        const size_t next = _rest.find_first_not_of(" \t\n");
        _rest.remove_prefix(std::min(next, _rest.size()));
    }

    /// Whether this text comes next.
    bool skipHere(std::string_view text)
    {
        const bool isNext = _rest.starts_with(text);
        _rest.remove_prefix(isNext ? text.size() : 0);
        return isNext;
    }

    /// Comments that may be none are left to the parser.
    bool skipComment()
    {
        constexpr std::string_view Start = "<!--";
        constexpr std::string_view End = "-->";
        if (!_rest.starts_with(Start))
            return false;
        const size_t end = std::min(_rest.find("--", Start.size()), _rest.size());
        if (!_rest.substr(end).starts_with(End) ||
            !isPlainComment(_rest.substr(Start.size(), end - Start.size())))
            return false;
        _rest.remove_prefix(end + End.size());
        return true;
    }

    /// Whether this text comes next, behind whitespace and comments.
    bool skip(std::string_view text)
    {
        do
            skipWhitespace();
        while (skipComment());
        return skipHere(text);
    }

    /// The lines that every writer of property lists begins with, byte for byte.
    bool skipHead()
    {
        // Only the very first bytes can be the declaration.
        return skipHere(R"(<?xml version="1.0" encoding="UTF-8"?>)") &&
               skip(R"(<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" )"
                    R"("http://www.apple.com/DTDs/PropertyList-1.0.dtd">)") &&
               skip(R"(<plist version="1.0">)");
    }

    std::optional<QVariant> readValue(int level)
    {
        if (skip("<string>"))
            return readString();
        if (skipHere("<integer>"))
            return readInteger();
        if (skipHere("<real>"))
            return readReal();
        if (skipHere("<true/>"))
            return QVariant(true);
        if (skipHere("<false/>"))
            return QVariant(false);
        if (skipHere("<date>"))
            return readDate();
        if (skipHere("<data>"))
            return readData();
        return readCollection(level);
    }

    std::optional<QVariant> readCollection(int level)
    {
        if (level > DeepestLevel)
            return std::nullopt;
        if (skipHere("<dict>"))
            return readDictionary(level);
        if (skipHere("<array>"))
            return readArray(level);
        return std::nullopt;
    }

    std::optional<QVariant> readDictionary(int level)
    {
        QVariantMap dictionary;
        while (!skip("</dict>")) {
            const std::optional<QString> key = readKey();
            const std::optional<QVariant> value = key ? readValue(level + 1) : std::nullopt;
            if (!value)
                return std::nullopt;
            // Writers sort their keys.
            dictionary.insert(dictionary.constEnd(), *key, *value);
        }
        return QVariant(dictionary);
    }

    std::optional<QVariant> readArray(int level)
    {
        QVariantList array;
        while (!skip("</array>")) {
            std::optional<QVariant> value = readValue(level + 1);
            if (!value)
                return std::nullopt;
            array.append(std::move(*value));
        }
        return QVariant(array);
    }

    std::optional<QString> readKey()
    {
        const auto text = skipHere("<key>") ? readText("</key>") : std::nullopt;
        return text ? std::optional(keyOf(*text)) : std::nullopt;
    }

    /// Records of a list have the same keys: one text for all of them.
    QString keyOf(std::string_view text)
    {
        constexpr size_t MostKeys = 16;
        for (const auto &[known, key] : _keys) {
            if (known == text)
                return key;
        }
        if (_keys.size() == MostKeys)
            _keys.clear();
        _keys.emplace_back(text, QString::fromLatin1(text.data(), qsizetype(text.size())));
        return _keys.back().second;
    }

    std::optional<QVariant> readString()
    {
        const auto text = readText("</string>");
        if (!text)
            return std::nullopt;
        return QVariant(QString::fromLatin1(text->data(), qsizetype(text->size())));
    }

    std::optional<QVariant> readInteger()
    {
        const auto text = readText("</integer>");
        return text && isPlainInteger(*text) ? plainNumberFrom<qlonglong>(*text) : std::nullopt;
    }

    std::optional<QVariant> readReal()
    {
        const auto text = readText("</real>");
        return text && isPlainReal(*text) ? plainNumberFrom<double>(*text) : std::nullopt;
    }

    std::optional<QVariant> readDate()
    {
        const auto text = readText("</date>");
        return text ? plainDateFrom(*text) : std::nullopt;
    }

    std::optional<QVariant> readData()
    {
        const std::string_view text = takeWhile(isOfBase64);
        if (!skipHere("</data>"))
            return std::nullopt;
        const auto base64 = QByteArray::fromRawData(text.data(), qsizetype(text.size()));
        const QByteArray data = QByteArray::fromBase64(base64, QByteArray::Base64Encoding);
        // Without any bytes, only the parser knows whether there was an element at all.
        return data.isEmpty() ? std::nullopt : std::optional(QVariant(data));
    }

    /// Moves behind the characters of a kind.
    template<typename IsOfKind>
    std::string_view takeWhile(const IsOfKind &isOfKind)
    {
        const auto stop = std::ranges::find_if_not(_rest, isOfKind);
        const std::string_view text = _rest.substr(0, size_t(stop - _rest.begin()));
        _rest.remove_prefix(text.size());
        return text;
    }

    /// Text that stands for itself: printable ASCII without markup.
    std::optional<std::string_view> readText(std::string_view end)
    {
        const std::string_view text = takeWhile(isPlainUnit);
        // Whitespace before the end would have to be kept.
        return skipHere(end) ? std::optional(text) : std::nullopt;
    }

    std::string_view _rest;
    std::vector<std::pair<std::string_view, QString>> _keys;
};
} // namespace

std::optional<QVariant> KTPrivate::readPlainXMLPropertyList(const QByteArray &data)
{
    return QuickReader(data).read();
}
