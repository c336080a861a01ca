// What zones are called.

#include <KTUtility/CommonForms/Zones/ZoneNames_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// What a name means: "America/New_York", "several", or nothing.
QString zoneOf(const PhraseTable<ZoneMeaning> &table, QStringView name)
{
    const auto match = table.longestAt(name, 0);
    if (match.length != name.size())
        return {};
    const ZoneMeaning &meaning = match.meanings.front();
    return meaning.zone.isEmpty() ? u"several"_s : QString::fromLatin1(meaning.zone);
}
} // namespace

TEST(ZoneNames, ArePeculiarToTheLocale)
{
    const auto english = ZoneNames::namesOf(NSLocale(u"en_US"_s));
    const auto german = ZoneNames::namesOf(NSLocale(u"de_DE"_s));
    EXPECT_EQ(zoneOf(english->names(), u"pst"), u"America/Los_Angeles");
    EXPECT_EQ(zoneOf(german->names(), u"pst"), QString());
    EXPECT_FALSE(zoneOf(german->names(), u"mesz").isEmpty());
    EXPECT_EQ(zoneOf(english->names(), u"mesz"), QString());
}

TEST(ZoneNames, AreMadeOnce)
{
    const auto names = ZoneNames::namesOf(NSLocale(u"fr_FR"_s));
    EXPECT_EQ(names, ZoneNames::namesOf(NSLocale(u"fr_FR"_s)));
    EXPECT_GT(names->names().size(), 100);
}

TEST(ZoneNames, SayTheSeason)
{
    const auto shared = ZoneNames::namesOf(NSLocale(u"en_US"_s));
    const auto &names = shared->names();
    using Season = TypedZone::Season;
    EXPECT_EQ(names.longestAt(u"est", 0).meanings.front().season, Season::Winter);
    EXPECT_EQ(names.longestAt(u"edt", 0).meanings.front().season, Season::Summer);
    EXPECT_EQ(names.longestAt(u"et", 0).meanings.front().season, Season::AsThen);
}

TEST(ZoneNames, AbbreviationsOfSeveralZonesMeanNone)
{
    const auto &table = ZoneNames::abbreviations();
    for (const QStringView name : {u"cst", u"ist", u"pst", u"est", u"bst"})
        EXPECT_EQ(zoneOf(table, name), u"several") << qPrintable(name.toString());
    EXPECT_EQ(zoneOf(table, u"cest"), zoneOf(table, u"cet"));
}

TEST(ZoneNames, FindIdentifiersInAnyCase)
{
    EXPECT_EQ(ZoneNames::identifierOf(u"europe/berlin"), "Europe/Berlin");
    EXPECT_EQ(ZoneNames::identifierOf(u"america/new_york"), "America/New_York");
    EXPECT_EQ(ZoneNames::identifierOf(u"europe/nowhere"), QByteArray());
    EXPECT_EQ(ZoneNames::identifierOf(u"utc"), QByteArray());
}

TEST(ZoneNames, KnowTheWordsAroundOffsets)
{
    EXPECT_EQ(ZoneNames::namesOf(NSLocale(u"en_US"_s))->wordBeforeOffset(), u"gmt");
    EXPECT_EQ(ZoneNames::namesOf(NSLocale(u"fr_FR"_s))->wordBeforeOffset(), u"utc");
    EXPECT_FALSE(ZoneNames::namesOf(NSLocale(u"fa_IR"_s))->wordBehindOffset().isEmpty());
}
