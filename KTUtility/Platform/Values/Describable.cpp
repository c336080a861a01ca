#include "Describable.h"

#include "NSObject.h"

#include <QDateTime>

#include <algorithm>
#include <array>
#include <string_view>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
struct Unit
{
    qint64 numerator;
    qint64 denominator;
    QStringView symbol;
};

constexpr std::array<Unit, 7> Units = {{{1, 1'000'000'000, u"ns"},
                                        {1, 1'000'000, u"µs"},
                                        {1, 1'000, u"ms"},
                                        {1, 1, u"s"},
                                        {60, 1, u"min"},
                                        {3'600, 1, u"h"},
                                        {86'400, 1, u"d"}}};
} // namespace

QString KTPrivate::durationText(const QVariant &count, qint64 numerator, qint64 denominator)
{
    const QString text = NSObject::description(count);
    const auto unit = std::find_if(Units.begin(), Units.end(), [&](const Unit &known) {
        return known.numerator == numerator && known.denominator == denominator;
    });
    if (unit != Units.end())
        return text + unit->symbol;
    return text + u"[%1/%2]s"_s.arg(numerator).arg(denominator);
}

QVariant KTPrivate::localDateOf(std::chrono::milliseconds sinceEpoch)
{
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch.count());
}

QVariant KTPrivate::objectAt(const QObject *object)
{
    return object ? QVariant::fromValue(const_cast<QObject *>(object)) : QVariant();
}

QVariant KTPrivate::addressOf(const void *address)
{
    return address ? QVariant::fromValue(const_cast<void *>(address)) : QVariant();
}

QString KTPrivate::characterText(char32_t character)
{
    return character < 0x110000 ? QString::fromUcs4(&character, 1)
                                : QString(QChar::ReplacementCharacter);
}

QString KTPrivate::textOfPoints(const char32_t *points, qsizetype count)
{
    const std::u32string_view all =
        count < 0 ? std::u32string_view(points) : std::u32string_view(points, size_t(count));
    QString text;
    text.reserve(qsizetype(all.size()));
    for (const char32_t point : all)
        text += characterText(point);
    return text;
}

QString KTPrivate::keyText(const QVariant &key)
{
    return NSObject::description(key);
}
