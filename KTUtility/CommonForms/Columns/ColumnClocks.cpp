#include "ColumnClocks_p.h"

#include <KTUtility/CommonForms/Text/PlainSign_p.h>

#include <optional>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype MostDigits = 4;
constexpr int SixtyParts = 60;

/// A clock with two parts.
struct Clock
{
    qsizetype begin = 0; ///< behind the sign
    qsizetype colon = 0;
    int first = 0;
    bool hasFraction = false;
};

/// The value of at most four digits from a position on, behind which it is then; negative if there
/// are none, or more.
int takeNumber(QStringView text, qsizetype *position)
{
    const qsizetype begin = *position;
    int value = 0;
    while (isDigitAt(text, *position) && *position - begin <= MostDigits)
        value = value * 10 + text[(*position)++].digitValue();
    const qsizetype length = *position - begin;
    return length == 0 || length > MostDigits ? -1 : value;
}

qsizetype behindDigits(QStringView text, qsizetype position)
{
    while (isDigitAt(text, position))
        ++position;
    return position;
}

bool isSign(char16_t sign)
{
    return sign == u'-' || sign == u'+';
}

/// A clock in what stands between blanks.
std::optional<Clock> clockIn(QStringView text)
{
    Clock clock;
    qsizetype position = isSign(plainSignAt(text, 0)) ? 1 : 0;
    clock.begin = position;
    clock.first = takeNumber(text, &position);
    clock.colon = position;
    if (clock.first < 0 || plainSignAt(text, position++) != u':')
        return std::nullopt;
    const int second = takeNumber(text, &position);
    if (position != clock.colon + 3 || second < 0 || second >= SixtyParts)
        return std::nullopt;
    const char16_t point = plainSignAt(text, position);
    clock.hasFraction = (point == u'.' || point == u',') && isDigitAt(text, position + 1);
    if (clock.hasFraction)
        position = behindDigits(text, position + 1);
    return position == text.size() ? std::optional(clock) : std::nullopt;
}
} // namespace

unsigned ColumnClocks::possibleUnits(QStringView text)
{
    const std::optional<Clock> clock = clockIn(text.trimmed());
    if (!clock)
        return 0;
    return clock->hasFraction ? 1U << MinutesSeconds : 1U << HoursMinutes | 1U << MinutesSeconds;
}

QString ColumnClocks::withHours(const QString &text)
{
    const QStringView trimmed = QStringView(text).trimmed();
    const std::optional<Clock> clock = clockIn(trimmed);
    if (!clock)
        return text;
    const QString start = u"%1:%2"_s.arg(clock->first / SixtyParts)
                              .arg(clock->first % SixtyParts, 2, 10, QChar(u'0'));
    return trimmed.first(clock->begin) + start + trimmed.sliced(clock->colon);
}
