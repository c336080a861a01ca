#include "NSData_KTBase64.h"

#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Text/ASCII_p.h>

#include <algorithm>
#include <array>
#include <cstring>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

// Base64 with an end mark. Between end marks whole groups go through tables: two letters for each
// twelve bits, and back four letters with one look at each.

namespace {
constexpr char Alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char16_t Padding = '=';
constexpr quint8 EndMark = 0xFF;
constexpr quint8 Invalid = 127;
constexpr qsizetype GroupBytes = 3;
constexpr qsizetype GroupLetters = 4;

using Byte = quint8;

const Byte *bytesOf(const QByteArray &data)
{
    return reinterpret_cast<const Byte *>(data.constData());
}

/// Two letters for each value of twelve bits.
using LetterPair = std::array<char16_t, 2>;

const std::array<LetterPair, 4096> &letterPairs()
{
    static const auto pairs = [] {
        std::array<LetterPair, 4096> made{};
        for (size_t value = 0; value < made.size(); ++value)
            made[value] = {char16_t(Alphabet[value >> 6]), char16_t(Alphabet[value & 63])};
        return made;
    }();
    return pairs;
}

/// The value of each letter; Invalid for what is none, the padding included.
const std::array<Byte, 256> &inverse()
{
    static const auto table = [] {
        std::array<Byte, 256> made{};
        made.fill(Invalid);
        for (Byte value = 0; value < 64; ++value)
            made[Byte(Alphabet[value])] = value;
        return made;
    }();
    return table;
}

/// Writes the letters of data, a group at a time.
class Encoder
{
public:
    explicit Encoder(const QByteArray &data)
        : _at(bytesOf(data))
        , _end(_at + data.size())
        , _text(groupsIn(data) * GroupLetters, Qt::Uninitialized)
        , _out(reinterpret_cast<char16_t *>(_text.data()))
    {
    }

    QString run()
    {
        while (_at < _end) {
            const Byte *const mark = nextMark();
            writeWholeGroups((mark - _at) / GroupBytes);
            if (_at >= _end || *_at == EndMark)
                break;
            writeLastOfRun();
        }
        _text.truncate(_out - reinterpret_cast<const char16_t *>(_text.constData()));
        return _text.isEmpty() ? u""_s : _text;
    }

private:
    /// How many groups there are at most; with end marks a group may be two bytes.
    static qsizetype groupsIn(const QByteArray &data)
    {
        const qsizetype bytes = data.contains(char(EndMark)) ? GroupBytes - 1 : GroupBytes;
        return (data.size() + bytes - 1) / bytes;
    }

    const Byte *nextMark() const
    {
        const void *const mark = std::memchr(_at, EndMark, size_t(_end - _at));
        return mark ? static_cast<const Byte *>(mark) : _end;
    }

    /// Pointers of its own, since what is written could otherwise be the members.
    void writeWholeGroups(qsizetype count)
    {
        const auto &pairs = letterPairs();
        const Byte *at = _at;
        char16_t *out = _out;
        for (; count > 0; --count, at += GroupBytes, out += GroupLetters) {
            const unsigned bits = unsigned(at[0]) << 16 | unsigned(at[1]) << 8 | at[2];
            std::memcpy(out, &pairs[bits >> 12], sizeof(LetterPair));
            std::memcpy(out + 2, &pairs[bits & 4095], sizeof(LetterPair));
        }
        _at = at;
        _out = out;
    }

    /// One or two bytes before an end mark or the end; a mark in the group is consumed with it.
    void writeLastOfRun()
    {
        const qsizetype left = _end - _at;
        const bool hasTwo = left > 1 && _at[1] != EndMark;
        const unsigned bits = unsigned(_at[0]) << 16 | (hasTwo ? unsigned(_at[1]) << 8 : 0);
        *_out++ = char16_t(Alphabet[bits >> 18]);
        *_out++ = char16_t(Alphabet[bits >> 12 & 63]);
        *_out++ = hasTwo ? char16_t(Alphabet[bits >> 6 & 63]) : Padding;
        *_out++ = Padding;
        _at += std::min(left, hasTwo ? GroupBytes : GroupBytes - 1);
    }

    const Byte *_at;
    const Byte *_end;
    QString _text;
    char16_t *_out;
};

/// The value of each letter at each place of a group, shifted there; above 24 bits for what is no
/// letter.
using PlaceTable = std::array<quint32, 128>;

const std::array<PlaceTable, GroupLetters> &placeTables()
{
    static const auto tables = [] {
        constexpr quint32 NoLetter = 1U << 24;
        std::array<PlaceTable, GroupLetters> made{};
        for (size_t place = 0; place < made.size(); ++place) {
            for (size_t unit = 0; unit < made[place].size(); ++unit) {
                const quint32 value = inverse()[unit];
                made[place][unit] =
                    value == Invalid ? NoLetter : value << (6 * (made.size() - 1 - place));
            }
        }
        return made;
    }();
    return tables;
}

/// Collects the bytes of ASCII letters.
class Decoder
{
public:
    explicit Decoder(QStringView text)
        : _at(text.utf16())
        , _end(_at + text.size())
        , _data((text.size() / GroupLetters + 1) * GroupBytes, Qt::Uninitialized)
        , _out(reinterpret_cast<Byte *>(_data.data()))
    {
    }

    QByteArray run()
    {
        bool isPadded = false;
        while (!isPadded && _at < _end) {
            readPlainGroups();
            if (skipToLetter())
                isPadded = !readGroup();
        }
        _data.truncate(_out - bytesOf(_data));
        return _data;
    }

private:
    /// Four letters after four letters, as long as nothing else stands between.
    void readPlainGroups()
    {
        const auto &[first, second, third, fourth] = placeTables();
        const char16_t *at = _at;
        Byte *out = _out;
        for (; _end - at >= GroupLetters; at += GroupLetters, out += GroupBytes) {
            const quint32 bits = first[at[0]] | second[at[1]] | third[at[2]] | fourth[at[3]];
            if (bits >> 24 != 0)
                break;
            out[0] = Byte(bits >> 16);
            out[1] = Byte(bits >> 8);
            out[2] = Byte(bits);
        }
        _at = at;
        _out = out;
    }

    static bool isLetter(char16_t unit) { return unit == Padding || inverse()[unit] != Invalid; }

    bool skipToLetter()
    {
        while (_at < _end && !isLetter(*_at))
            ++_at;
        return _at < _end;
    }

    /// \return whether the group was a full one.
    bool readGroup()
    {
        std::array<char16_t, GroupLetters> group;
        group.fill(Padding);
        size_t count = 0;
        while (count < group.size() && skipToLetter())
            group[count++] = *_at++;
        if (count < group.size())
            KTLog(kLog_invalid, 4, u"Base64Error: Premature end of Base64 string");
        return appendGroup(group);
    }

    bool appendGroup(const std::array<char16_t, GroupLetters> &group)
    {
        const auto value = [&group](size_t index) { return unsigned(inverse()[group[index]]); };
        const bool hasFirst = group[0] != Padding && group[1] != Padding;
        const bool hasSecond = group[2] != Padding;
        const bool hasThird = group[3] != Padding;
        if (hasFirst)
            *_out++ = Byte(value(0) << 2 | (value(1) & 0x30) >> 4);
        if (hasSecond)
            *_out++ = Byte((value(1) & 0x0F) << 4 | (value(2) & 0x3C) >> 2);
        if (hasThird)
            *_out++ = Byte((value(2) & 0x03) << 6 | value(3));
        return hasFirst && hasSecond && hasThird;
    }

    const char16_t *_at;
    const char16_t *_end;
    QByteArray _data;
    Byte *_out;
};
} // namespace

QString KTAdditions::base64String(const QByteArray &data)
{
    return Encoder(data).run();
}

QByteArray KTAdditions::initWithBase64String(const QString &string)
{
    return ASCII::isAllOf(string) ? Decoder(string).run() : QByteArray("");
}
