#include <KTUtility/KTLoggerComponents>
#include <KTUtility/LogLevels>

#include "support/TestSupport.h"

#include <QSet>

#include <climits>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
QStringList listedComponents()
{
#define NAME_OF_LISTED_COMPONENT(constant, name) kLog_##constant,
    return {KT_LOGGER_COMPONENTS(NAME_OF_LISTED_COMPONENT)};
#undef NAME_OF_LISTED_COMPONENT
}

LogLevels::Levels all(int level)
{
    LogLevels::Levels levels;
    for (const QString &component : listedComponents())
        levels.emplace_back(component, level);
    return levels;
}
} // namespace

TEST(LogLevels, NothingIsOnAtFirst)
{
    const LogLevels levels;
    EXPECT_FALSE(levels.isOn(kLog_Undo, 1));
    EXPECT_FALSE(levels.isOn(kLog_Undo, INT_MIN));
    EXPECT_FALSE(levels.isOn(QString(), 0));
    EXPECT_EQ(levels.levelOf(kLog_Undo), 0);
}

TEST(LogLevels, NoTwoListedComponentsShareASlot)
{
    QSet<size_t> used;
    for (const QString &component : listedComponents())
        used.insert(LogLevels::slotOf(component));
    used.insert(LogLevels::slotOf(kLog_invalid));
    EXPECT_EQ(used.size(), listedComponents().size() + 1);
}

TEST(LogLevels, EachComponentHasItsOwn)
{
    LogLevels levels;
    LogLevels::Levels wanted;
    int next = -3;
    for (const QString &component : listedComponents())
        wanted.emplace_back(component, ++next);
    levels.set(wanted);
    for (const auto &[component, level] : wanted) {
        EXPECT_EQ(levels.levelOf(component), level);
        EXPECT_EQ(levels.isOn(component, level), level != 0);
        EXPECT_FALSE(levels.isOn(component, level + 1));
    }
    levels.set({{kLog_Undo, 2}});
    EXPECT_TRUE(levels.isOn(kLog_Undo, 2));
    EXPECT_FALSE(levels.isOn(kLog_Upgrade, -10));
}

TEST(LogLevels, NamesThatShareASlotAreToldApart)
{
    // Letters that the slot does not look at.
    const QString one = u"abcdefgh"_s;
    const QString other = u"aXcdefgh"_s;
    ASSERT_EQ(LogLevels::slotOf(one), LogLevels::slotOf(other));
    LogLevels levels;
    levels.set({{one, 4}});
    EXPECT_TRUE(levels.isOn(one, 4));
    EXPECT_FALSE(levels.isOn(other, 1));
    levels.set({{one, 4}, {other, 7}, {QString(), 1}});
    EXPECT_FALSE(levels.isOn(one, 5));
    EXPECT_TRUE(levels.isOn(other, 7));
    EXPECT_TRUE(levels.isOn(u""_s, 1));
}

TEST(LogLevels, OneThatIsOffIsOffBesideAllOthers)
{
    LogLevels levels;
    LogLevels::Levels wanted = all(7);
    wanted.pop_back();
    levels.set(wanted);
    EXPECT_FALSE(levels.isOn(kLog_Upgrade, 1));
    EXPECT_TRUE(levels.isOn(kLog_Undo, 7));
}
