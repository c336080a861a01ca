#include "KTLogLine_p.h"

#include <KTUtility/Platform/Text/ShortCopy_p.h>
#include <KTUtility/Platform/Text/UTF8_p.h>
#include <KTUtility/Platform/Text/VisibleText_p.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstdio>
#include <cstring>

using namespace KTPrivate;

namespace {
constexpr std::array<const char *, 7> Weekdays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<const char *, 12> Months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// Four UTF-16 units as they lie in memory.
using Block = quint64;
constexpr size_t BlockSize = sizeof(Block) / sizeof(char16_t);

/// What is not ASCII has one of these bits.
constexpr Block NotASCII = 0xFF80FF80FF80FF80;

/// Narrows four ASCII units and gives them back, to be tested.
Block narrowBlock(char *to, const char16_t *from)
{
    Block units = 0;
    std::memcpy(&units, from, sizeof units);
    if constexpr (std::endian::native == std::endian::little) {
        const Block pairs = (units | units >> 8) & 0x0000FFFF0000FFFF;
        const auto bytes = quint32(pairs | pairs >> 16);
        std::memcpy(to, &bytes, sizeof bytes);
    } else {
        std::copy(from, from + BlockSize, to);
    }
    return units;
}

/// Narrows a text; false, with bytes that mean nothing, if it is not ASCII.
bool narrow(char *to, QStringView text)
{
    const size_t size = size_t(text.size());
    const char16_t *const from = text.utf16();
    Block bits = 0;
    if (size < BlockSize) {
        for (size_t unit = 0; unit < size; ++unit) {
            bits |= from[unit];
            to[unit] = char(from[unit]);
        }
        return (bits & NotASCII) == 0;
    }
    for (size_t unit = 0; unit < size - BlockSize; unit += BlockSize)
        bits |= narrowBlock(to + unit, from + unit);
    // The last block may overlap with the one before.
    bits |= narrowBlock(to + size - BlockSize, from + size - BlockSize);
    return (bits & NotASCII) == 0;
}

/// A line while it is written: a buffer with room for all that will come.
class LineWriter
{
public:
    /// Makes room for \a size bytes in a buffer that only grows.
    LineWriter(std::vector<char> &bytes, size_t size)
    {
        if (bytes.size() < size)
            bytes.resize(size * 2);
        _start = _end = bytes.data();
    }

    void text(std::string_view bytes)
    {
        copyShort(_end, bytes.data(), bytes.size());
        _end += bytes.size();
    }

    template<size_t Size>
    void text(const char (&bytes)[Size])
    {
        std::memcpy(_end, bytes, Size - 1);
        _end += Size - 1;
    }

    /// The first bytes of an array, which is copied whole.
    template<size_t Size>
    void text(const std::array<char, Size> &bytes, size_t size)
    {
        std::memcpy(_end, bytes.data(), Size);
        _end += size;
    }

    void utf8(QStringView text)
    {
        if (narrow(_end, text)) {
            _end += text.size();
            return;
        }
        _end = writeUTF8(_end, text);
    }

    void number(int number) { _end = std::to_chars(_end, _end + 12, number).ptr; }

    /// A number below 1,000 in three digits.
    void milliseconds(long number)
    {
        *_end++ = char('0' + number / 100);
        *_end++ = char('0' + number / 10 % 10);
        *_end++ = char('0' + number % 10);
    }

    std::string_view written() const { return {_start, size_t(_end - _start)}; }

private:
    char *_start;
    char *_end;
};

/// Writes "Sun Nov 15 2026 16:28:00." for a second into the state.
void setDate(KTLogLine::State &state, time_t second)
{
    std::tm parts{};
    ::localtime_r(&second, &parts);
    state.second = second;
    state.dateSize = size_t(
        std::snprintf(state.date.data(), state.date.size(), "%s %s %02d %04ld %02d:%02d:%02d.",
                      Weekdays[size_t(parts.tm_wday)], Months[size_t(parts.tm_mon)], parts.tm_mday,
                      1900L + parts.tm_year, parts.tm_hour, parts.tm_min, parts.tm_sec));
}

/// Whether a thread is at its end and has dropped what it kept. Needs no destructor, and so can be
/// asked until the very end.
thread_local bool isSpareGone = false;

/// What a thread keeps for its next line. Objects that are destroyed after it may log, too.
struct SpareState
{
    ~SpareState() { isSpareGone = true; }

    std::unique_ptr<KTLogLine::State> state;
};

std::unique_ptr<KTLogLine::State> &spareState()
{
    thread_local SpareState spare;
    return spare.state;
}

/// What a thread keeps for its next line at most; a longer line is rare.
constexpr size_t MostKept = 64 * 1024;

bool isPlain(std::string_view fileName)
{
    return std::all_of(fileName.begin(), fileName.end(),
                       [](char byte) { return byte >= ' ' && byte < '\x7F'; });
}

/// The name of a source file whose bytes may mean anything.
QByteArray visibleName(std::string_view fileName)
{
    return utf8Of(visibleText(QString::fromUtf8(fileName.data(), qsizetype(fileName.size()))));
}

/// A line of names that may stand in it as they are.
QByteArrayView plainLine(KTLogLine::State &state, QStringView component, std::string_view fileName,
                         int lineNumber, QStringView message)
{
    std::timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    if (now.tv_sec != state.second)
        setDate(state, now.tv_sec);
    // Three bytes of UTF-8 at most for each UTF-16 unit.
    const size_t units = size_t(component.size()) + size_t(message.size());
    LineWriter writer(state.bytes, state.date.size() + fileName.size() + 3 * units + 64);
    writer.text(state.date, state.dateSize);
    writer.milliseconds(now.tv_nsec / 1'000'000);
    writer.text(" [");
    writer.text(fileName);
    writer.text(":");
    writer.number(lineNumber);
    writer.text("][");
    writer.utf8(component);
    writer.text("] ");
    writer.utf8(message);
    writer.text("\n");
    const std::string_view bytes = writer.written();
    return QByteArrayView(bytes.data(), qsizetype(bytes.size()));
}
} // namespace

QByteArrayView KTLogLine::line(State &state, QStringView component, std::string_view fileName,
                               int lineNumber, QStringView message)
{
    if (isPlain(fileName) && !holdsControls(component))
        return plainLine(state, component, fileName, lineNumber, message);
    const QByteArray name = visibleName(fileName);
    return plainLine(state, visibleText(component), {name.constData(), size_t(name.size())},
                     lineNumber, message);
}

std::unique_ptr<KTLogLine::State> KTLogLine::takeState()
{
    std::unique_ptr<State> state;
    if (!isSpareGone)
        state = std::move(spareState());
    return state ? std::move(state) : std::make_unique<State>();
}

void KTLogLine::keepState(std::unique_ptr<State> state)
{
    const bool isLarge = state->bytes.size() > MostKept ||
                         size_t(state->message.capacity()) > MostKept / sizeof(char16_t);
    if (!isSpareGone && !isLarge)
        spareState() = std::move(state);
}
