#include "KTDurationTables_p.h"

#include <KTUtility/Platform/Files/NSBundle.h>

#include <array>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr std::array<qint64, 5> SecondsOfUnits{604'800, 86'400, 3'600, 60, 1};

// From weeks to seconds.
constexpr std::array<const char *, 5> Abbreviations{
    QT_TRANSLATE_NOOP("Durations", "w"), QT_TRANSLATE_NOOP("Durations", "d"),
    QT_TRANSLATE_NOOP("Durations", "h"), QT_TRANSLATE_NOOP("Durations", "m"),
    QT_TRANSLATE_NOOP("Durations", "s")};
constexpr std::array<const char *, 5> SingularNames{
    QT_TRANSLATE_NOOP("Durations", "week"), QT_TRANSLATE_NOOP("Durations", "day"),
    QT_TRANSLATE_NOOP("Durations", "hour"), QT_TRANSLATE_NOOP("Durations", "minute"),
    QT_TRANSLATE_NOOP("Durations", "second")};
constexpr std::array<const char *, 5> PluralNames{
    QT_TRANSLATE_NOOP("Durations", "weeks"), QT_TRANSLATE_NOOP("Durations", "days"),
    QT_TRANSLATE_NOOP("Durations", "hours"), QT_TRANSLATE_NOOP("Durations", "minutes"),
    QT_TRANSLATE_NOOP("Durations", "seconds")};

QStringList translated(const std::array<const char *, 5> &keys)
{
    QStringList words;
    for (const char *key : keys)
        words.append(NSBundle::mainBundle().localizedStringForKey(QString::fromLatin1(key), u""_s,
                                                                  u"Durations"_s));
    return words;
}
} // namespace

const KTDurationTables &KTDurationTables::shared()
{
    static const KTDurationTables tables;
    return tables;
}

KTDurationTables::KTDurationTables()
    : abbreviations(translated(Abbreviations))
    , singularNames(translated(SingularNames))
    , pluralNames(translated(PluralNames))
{
    for (qsizetype index = 0; index < qsizetype(SecondsOfUnits.size()); ++index) {
        const NSDecimalNumber seconds(SecondsOfUnits[size_t(index)]);
        const DurationUnit unit = DurationUnit(int(DurationUnit::Week) + int(index));
        // A word of two units means the smaller one.
        for (const QString &word :
             {singularNames.at(index), pluralNames.at(index), abbreviations.at(index)}) {
            convertToSeconds.insert(word, seconds);
            phrases.add(word, {unit});
        }
    }
}
