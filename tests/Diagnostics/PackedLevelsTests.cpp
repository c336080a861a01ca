#include <KTUtility/Diagnostics/PackedLevels_p.h>

#include "support/TestSupport.h"

#include <climits>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

TEST(PackedLevels, EachNameHasItsLevel)
{
    PackedLevels levels;
    levels.add(u"Undo", 4);
    levels.add(u"Import", INT_MIN);
    levels.add(u"", 7);
    levels.add(u"Undo", 5);
    levels.squeeze();
    ASSERT_EQ(levels.count(), 4u);
    EXPECT_EQ(levels.nameAt(0), u"Undo"_s);
    EXPECT_EQ(levels.nameAt(1), u"Import"_s);
    EXPECT_EQ(levels.nameAt(2), u""_s);
    EXPECT_EQ(levels.levelAt(3), 5);
    EXPECT_EQ(levels.levelOf(u"Undo"), 4);
    EXPECT_EQ(levels.levelOf(u"Import"), INT_MIN);
    EXPECT_EQ(levels.levelOf(u""), 7);
    EXPECT_EQ(levels.levelOf(u"Und"), 0);
}

TEST(PackedLevels, AreEqualWithTheSameNamesAndLevels)
{
    const auto levels = [](QStringView first, QStringView second, int level) {
        PackedLevels made;
        made.add(first, 1);
        made.add(second, level);
        return made;
    };
    EXPECT_EQ(levels(u"ab", u"c", 2), levels(u"ab", u"c", 2));
    EXPECT_NE(levels(u"ab", u"c", 2), levels(u"a", u"bc", 2));
    EXPECT_NE(levels(u"ab", u"c", 2), levels(u"ab", u"c", 3));
}

TEST(StoredLevels, GivesBackWhatItWasMadeFrom)
{
    const QVariantMap tables[] = {
        {},
        {{u"Undo"_s, 4}, {u"Import"_s, 0}},
        {{u"Undo"_s, qlonglong(4)}, {u"Import"_s, qlonglong(INT_MAX) + 1}},
        {{u"Undo"_s, 4}, {u"Import"_s, qlonglong(5)}},
        {{u"Undo"_s, u"4"_s}, {u"Import"_s, true}, {u"Find"_s, 2.5}, {u"Menu"_s, QVariant()}},
        {{u""_s, 3}, {u"Undo"_s, INT_MIN}},
    };
    for (const QVariantMap &table : tables) {
        const QVariantMap levels = StoredLevels(table).levels();
        ASSERT_EQ(levels, table);
        for (auto entry = table.begin(); entry != table.end(); ++entry)
            EXPECT_EQ(levels.value(entry.key()).metaType(), entry.value().metaType());
    }
}
