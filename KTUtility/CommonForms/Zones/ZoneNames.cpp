#include "ZoneNames_p.h"

#include <KTUtility/CommonForms/Text/SharedTables_p.h>
#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/strenum.h>
#include <unicode/timezone.h>
#include <unicode/tzfmt.h>
#include <unicode/tznames.h>

#include <QTimeZone>

#include <algorithm>
#include <array>
#include <memory>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using NameSeason = TypedZone::Season;

/// Under a folded name, what it means.
using Meanings = QHash<QString, std::vector<ZoneMeaning>>;

struct NameKind
{
    UTimeZoneNameType type;
    NameSeason season;
    bool isShort;
};

constexpr std::array NameKinds{
    NameKind{UTZNM_SHORT_STANDARD, NameSeason::Winter, true},
    NameKind{UTZNM_SHORT_DAYLIGHT, NameSeason::Summer, true},
    NameKind{UTZNM_SHORT_GENERIC, NameSeason::AsThen, true},
    NameKind{UTZNM_LONG_STANDARD, NameSeason::Winter, false},
    NameKind{UTZNM_LONG_DAYLIGHT, NameSeason::Summer, false},
    NameKind{UTZNM_LONG_GENERIC, NameSeason::AsThen, false},
};

enum class Lengths { All, Short };

void addName(Meanings *meanings, const icu::UnicodeString &name, const ZoneMeaning &meaning)
{
    if (name.isBogus() || name.isEmpty())
        return;
    std::vector<ZoneMeaning> &known = (*meanings)[FoldedText::folded(ICU::stringOf(name))];
    if (std::find(known.begin(), known.end(), meaning) == known.end())
        known.push_back(meaning);
}

/// Those of all kinds that \a nameOf gives for something whose time is a zone's.
template<typename NameOf>
void addKinds(Meanings *meanings, const QByteArray &zone, Lengths lengths, const NameOf &nameOf)
{
    for (const NameKind &kind : NameKinds) {
        icu::UnicodeString name;
        if (kind.isShort || lengths == Lengths::All)
            addName(meanings, nameOf(kind.type, name), {zone, kind.season});
    }
}

/// The names of what CLDR calls a metazone: zones that share their names.
void addMetazone(Meanings *meanings, const icu::TimeZoneNames &names,
                 const icu::UnicodeString &zones, const char *region, Lengths lengths)
{
    icu::UnicodeString identifier;
    names.getReferenceZoneID(zones, region, identifier);
    if (identifier.isEmpty())
        return;
    addKinds(meanings, ICU::stringOf(identifier).toLatin1(), lengths,
             [&](UTimeZoneNameType type, icu::UnicodeString &name) {
                 return names.getMetaZoneDisplayName(zones, type, name);
             });
}

/// The zones to which CLDR gives names of their own.
constexpr std::array NamedZones{"Europe/London", "Europe/Dublin", "Pacific/Honolulu"};

void addNamedZones(Meanings *meanings, const icu::TimeZoneNames &names, Lengths lengths)
{
    for (const char *const zone : NamedZones) {
        addKinds(meanings, zone, lengths, [&](UTimeZoneNameType type, icu::UnicodeString &name) {
            return names.getTimeZoneDisplayName(icu::UnicodeString(zone, -1, US_INV), type, name);
        });
    }
}

void addZoneNames(Meanings *meanings, const icu::Locale &locale, Lengths lengths)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::TimeZoneNames> names(
        icu::TimeZoneNames::createInstance(locale, status));
    const std::unique_ptr<icu::StringEnumeration> all(names ? names->getAvailableMetaZoneIDs(status)
                                                            : nullptr);
    if (U_FAILURE(status) || !all)
        return;
    const char *const country = locale.getCountry();
    while (const icu::UnicodeString *const zones = all->snext(status))
        addMetazone(meanings, *names, *zones, *country ? country : "001", lengths);
    addNamedZones(meanings, *names, lengths);
}

/// One meaning, or none. A name of both halves of the year is used all the year; one of winters,
/// which is the zone's at large as well ("CET"), is what it says.
ZoneMeaning decided(const std::vector<ZoneMeaning> &meanings)
{
    const auto has = [&meanings](NameSeason season) {
        return std::any_of(meanings.begin(), meanings.end(), [season](const ZoneMeaning &meaning) {
            return meaning.season == season;
        });
    };
    const QByteArray &zone = meanings.front().zone;
    const bool isOne =
        std::all_of(meanings.begin(), meanings.end(),
                    [&zone](const ZoneMeaning &meaning) { return meaning.zone == zone; });
    if (!isOne)
        return {};
    if (has(NameSeason::Winter) == has(NameSeason::Summer))
        return {zone, NameSeason::AsThen};
    return {zone, has(NameSeason::Winter) ? NameSeason::Winter : NameSeason::Summer};
}

PhraseTable<ZoneMeaning> tableOf(const Meanings &meanings)
{
    PhraseTable<ZoneMeaning> table;
    for (auto name = meanings.begin(); name != meanings.end(); ++name)
        table.add(name.key(), decided(name.value()));
    return table;
}

/// The English of places that have no zone in common, where CLDR has abbreviations for theirs.
constexpr std::array EnglishLocales{"en_US", "en_GB", "en_150", "en_AU", "en_NZ",
                                    "en_ZA", "en_IN", "en_IE",  "en_IL", "en_HK"};

/// Abbreviations of more zones than CLDR's English says; from the data of zones (tzdata), where
/// CST is also China's and Cuba's, IST Ireland's and Israel's, PST the Philippines', and so on.
constexpr std::array Ambiguous{"ast", "bst", "cdt", "cst", "ect", "est", "edt",
                               "gst", "hst", "ist", "mdt", "mst", "pdt", "pst",
                               "sst", "wst", "at",  "ct",  "et",  "mt",  "pt"};

PhraseTable<ZoneMeaning> makeAbbreviations()
{
    Meanings meanings;
    for (const char *const locale : EnglishLocales)
        addZoneNames(&meanings, icu::Locale(locale), Lengths::Short);
    for (const char *const name : Ambiguous) {
        if (const auto found = meanings.find(QString::fromLatin1(name)); found != meanings.end())
            found->push_back({});
    }
    return tableOf(meanings);
}

using Identifiers = QHash<QString, QByteArray>;

void addIdentifier(Identifiers *identifiers, const QByteArray &identifier)
{
    if (identifier.contains('/'))
        identifiers->insert(QString::fromLatin1(identifier).toLower(), identifier);
}

/// Qt lists the zones of places only, ICU the others, too, of which the system may lack some.
Identifiers makeIdentifiers()
{
    Identifiers identifiers;
    const std::unique_ptr<icu::StringEnumeration> all(icu::TimeZone::createEnumeration());
    UErrorCode status = U_ZERO_ERROR;
    while (const icu::UnicodeString *const name = all ? all->snext(status) : nullptr)
        addIdentifier(&identifiers, ICU::stringOf(*name).toLatin1());
    for (const QByteArray &identifier : QTimeZone::availableTimeZoneIds())
        addIdentifier(&identifiers, identifier);
    return identifiers;
}
} // namespace

std::shared_ptr<const ZoneNames> ZoneNames::namesOf(const NSLocale &locale)
{
    static SharedTables<ZoneNames> tables;
    return tables.tableOf(locale.localeIdentifier(), [&locale] { return ZoneNames(locale); });
}

const PhraseTable<ZoneMeaning> &ZoneNames::abbreviations()
{
    static const PhraseTable<ZoneMeaning> table = makeAbbreviations();
    return table;
}

QByteArray ZoneNames::identifierOf(QStringView folded)
{
    static const Identifiers identifiers = makeIdentifiers();
    const QByteArray identifier = identifiers.value(folded.toString());
    return QTimeZone(identifier).isValid() ? identifier : QByteArray();
}

ZoneNames::ZoneNames(const NSLocale &locale)
{
    Meanings meanings;
    addZoneNames(&meanings, ICU::localeOf(locale), Lengths::All);
    _names = tableOf(meanings);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::TimeZoneFormat> format(
        icu::TimeZoneFormat::createInstance(ICU::localeOf(locale), status));
    if (U_FAILURE(status))
        return;
    icu::UnicodeString text;
    const QString pattern = ICU::stringOf(format->getGMTPattern(text));
    const qsizetype at = pattern.indexOf(u"{0}"_s);
    _before = FoldedText::folded(pattern.left(qMax(at, qsizetype(0))));
    _behind = FoldedText::folded(pattern.mid(at + 3));
    _zero = FoldedText::folded(ICU::stringOf(format->getGMTZeroFormat(text)));
}
