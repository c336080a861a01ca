#include "KTLogLine_p.h"

#include <QByteArray>
#include <QStringEncoder>

#include <array>
#include <charconv>
#include <ctime>

namespace
{
constexpr std::array<const char *, 7> Weekdays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<const char *, 12> Months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

void appendDigits(QByteArray &bytes, long number, int width)
{
    std::array<char, 20> digits;
    const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
    for (auto missing = width - (end - digits.begin()); missing > 0; --missing)
        bytes += '0';
    bytes.append(digits.data(), end - digits.begin());
}

void appendUtf8(QByteArray &bytes, QStringView text)
{
    QStringEncoder encoder(QStringEncoder::Utf8);
    const qsizetype start = bytes.size();
    bytes.resize(start + encoder.requiredSpace(text.size()));
    const char *const end = encoder.appendToBuffer(bytes.data() + start, text);
    bytes.truncate(end - bytes.constData());
}

QByteArray dateText(time_t second)
{
    std::tm parts{};
    ::localtime_r(&second, &parts);
    QByteArray text;
    text.append(Weekdays[size_t(parts.tm_wday)]).append(' ').append(Months[size_t(parts.tm_mon)]);
    text += ' ';
    appendDigits(text, parts.tm_mday, 2);
    text += ' ';
    appendDigits(text, 1900L + parts.tm_year, 4);
    text += ' ';
    appendDigits(text, parts.tm_hour, 2);
    text += ':';
    appendDigits(text, parts.tm_min, 2);
    text += ':';
    appendDigits(text, parts.tm_sec, 2);
    return text;
}

/// The date and time to the millisecond. What changes once a second is made once a second.
void appendNow(QByteArray &bytes)
{
    thread_local time_t cachedSecond = 0;
    thread_local QByteArray cachedText;
    std::timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    if (cachedText.isEmpty() || now.tv_sec != cachedSecond) {
        cachedSecond = now.tv_sec;
        cachedText = dateText(now.tv_sec);
    }
    bytes += cachedText;
    bytes += '.';
    appendDigits(bytes, now.tv_nsec / 1'000'000, 3);
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

QByteArrayView KTLogLine::line(QStringView component, std::string_view fileName, int lineNumber,
                               QStringView message)
{
    thread_local QByteArray bytes;
    bytes.resize(0);
    appendNow(bytes);
    bytes.append(" [").append(fileName.data(), qsizetype(fileName.size())).append(':');
    appendDigits(bytes, lineNumber, 0);
    bytes.append("][");
    appendUtf8(bytes, component);
    bytes.append("] ");
    appendUtf8(bytes, message);
    bytes += '\n';
    return bytes;
}
