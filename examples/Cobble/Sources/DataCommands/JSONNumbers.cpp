#include "JSONNumbers.h"

#include <KTUtility/NSDecimalNumber>

#include <QLocale>

#include <algorithm>

namespace {
/// A double has each number of so many digits.
constexpr qsizetype DigitsOfDoubles = 15;

bool isInNumber(char character)
{
    return (character >= '0' && character <= '9') || QByteArrayView("+-.eE").contains(character);
}

/// The place behind the text in quotation marks that begins at a place.
qsizetype behindText(const QByteArray &json, qsizetype place)
{
    for (++place; place < json.size() && json[place] != '"'; ++place) {
        if (json[place] == '\\')
            ++place;
    }
    return place + 1;
}

bool isExact(const QByteArray &number)
{
    bool isWhole = false;
    static_cast<void>(number.toLongLong(&isWhole));
    const auto digits = std::count_if(number.begin(), number.end(),
                                      [](char each) { return each >= '0' && each <= '9'; });
    if (isWhole || digits <= DigitsOfDoubles)
        return true;
    const QString kept = QString::number(number.toDouble(), 'g', QLocale::FloatingPointShortest);
    return NSDecimalNumber::decimalNumberWithString(kept) ==
           NSDecimalNumber::decimalNumberWithString(QString::fromLatin1(number));
}
} // namespace

QString JSONNumbers::firstInexact(const QByteArray &json)
{
    qsizetype place = 0;
    while (place < json.size()) {
        if (json[place] == '"') {
            place = behindText(json, place);
            continue;
        }
        qsizetype end = place;
        while (end < json.size() && isInNumber(json[end]))
            ++end;
        if (end > place && !isExact(json.sliced(place, end - place)))
            return QString::fromLatin1(json.sliced(place, end - place));
        place = std::max(end, place + 1);
    }
    return {};
}
