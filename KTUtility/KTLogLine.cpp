#include "KTLogLine_p.h"

#include <QStringEncoder>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

namespace {
/// Enough bytes for a date and time, whatever the year.
constexpr size_t DateSize = 64;

constexpr std::array<const char *, 7> Weekdays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<const char *, 12> Months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// Without a branch for each unit, so that the compiler makes vector code of it.
bool isAscii(QStringView text)
{
    char16_t bits = 0;
    for (const QChar unit : text)
        bits = char16_t(bits | unit.unicode());
    return bits < 0x80;
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
        std::memcpy(_end, bytes.data(), bytes.size());
        _end += bytes.size();
    }

    template<size_t Size>
    void text(const char (&bytes)[Size])
    {
        std::memcpy(_end, bytes, Size - 1);
        _end += Size - 1;
    }

    void utf8(QStringView text)
    {
        if (isAscii(text)) {
            for (const QChar unit : text)
                *_end++ = char(unit.unicode());
            return;
        }
        QStringEncoder encoder(QStringEncoder::Utf8);
        _end = encoder.appendToBuffer(_end, text);
    }

    /// A number in at least \a width digits.
    void digits(long number, long width)
    {
        std::array<char, 20> digits{};
        const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
        for (auto missing = width - (end - digits.begin()); missing > 0; --missing)
            *_end++ = '0';
        _end = std::copy(digits.begin(), end, _end);
    }

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

/// "Sun Nov 15 2026 16:28:00." for a second.
std::string dateText(time_t second)
{
    std::tm parts{};
    ::localtime_r(&second, &parts);
    std::vector<char> bytes;
    LineWriter date(bytes, DateSize);
    date.text(std::string_view(Weekdays[size_t(parts.tm_wday)]));
    date.text(" ");
    date.text(std::string_view(Months[size_t(parts.tm_mon)]));
    date.text(" ");
    date.digits(parts.tm_mday, 2);
    date.text(" ");
    date.digits(1900L + parts.tm_year, 4);
    date.text(" ");
    date.digits(parts.tm_hour, 2);
    date.text(":");
    date.digits(parts.tm_min, 2);
    date.text(":");
    date.digits(parts.tm_sec, 2);
    date.text(".");
    return std::string(date.written());
}
} // namespace

std::string_view KTLogLine::lastPathComponent(const char *path)
{
    std::string_view rest = path ? path : "";
    while (rest.size() > 1 && rest.ends_with('/'))
        rest.remove_suffix(1);
    const size_t slash = rest.rfind('/');
    return slash == std::string_view::npos || rest.size() == 1 ? rest : rest.substr(slash + 1);
}

QByteArrayView KTLogLine::line(State &state, QStringView component, std::string_view fileName,
                               int lineNumber, QStringView message)
{
    std::timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    if (now.tv_sec != state.second) {
        state.date = dateText(now.tv_sec);
        state.second = now.tv_sec;
    }
    // Three bytes of UTF-8 at most for each UTF-16 unit.
    const size_t units = size_t(component.size()) + size_t(message.size());
    LineWriter line(state.bytes, DateSize + fileName.size() + 3 * units + 64);
    line.text(std::string_view(state.date));
    line.milliseconds(now.tv_nsec / 1'000'000);
    line.text(" [");
    line.text(fileName);
    line.text(":");
    line.digits(lineNumber, 1);
    line.text("][");
    line.utf8(component);
    line.text("] ");
    line.utf8(message);
    line.text("\n");
    const std::string_view bytes = line.written();
    return QByteArrayView(bytes.data(), qsizetype(bytes.size()));
}
