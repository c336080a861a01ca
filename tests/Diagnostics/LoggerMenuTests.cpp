#include <KTUtility/KTLogger>
#include <KTUtility/NSException>
#include <KTUtility/NSMenuItem>

#include "support/TestSupport.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace {
/// A logger in a fresh home folder, and its menu.
class LoggerMenuTests : public testing::Test
{
protected:
    void SetUp() override
    {
        testing_support::useFreshHome();
        testing_support::needApplication();
        logger = std::make_unique<KTLogger>();
        menu = std::make_unique<QMenu>();
        logger->populateComponentLoggingMenu(menu->menuAction());
    }

    QAction *item(const QString &title) const
    {
        for (QAction *action : menu->actions()) {
            if (NSMenuItem::title(action) == title)
                return action;
        }
        return nullptr;
    }

    /// The item of a component's submenu that sets a level.
    QAction *levelItem(const QString &component, int level) const
    {
        return item(component)->menu()->actions().at(7 - level);
    }

    /// The titles of the checked items of a menu that is about to be shown.
    static QStringList checkedTitles(QMenu *shown)
    {
        Q_EMIT shown->aboutToShow();
        QStringList titles;
        for (QAction *action : shown->actions()) {
            if (action->isChecked())
                titles += NSMenuItem::title(action);
        }
        return titles;
    }

    std::unique_ptr<KTLogger> logger;
    std::unique_ptr<QMenu> menu;
};
} // namespace

TEST_F(LoggerMenuTests, HoldsItsItemsInOrder)
{
    const QList<QAction *> actions = menu->actions();
    ASSERT_EQ(actions.size(), 7 + 39);
    QStringList titles;
    for (QAction *action : actions)
        titles += action->isSeparator() ? u"-"_s : NSMenuItem::title(action);
    EXPECT_EQ(titles.mid(0, 7), QStringList({u"Log To Console"_s, u"Log To File"_s, u"-"_s,
                                             u"Display File and Line"_s, u"-"_s,
                                             u"Clear all logging state"_s, u"-"_s}));
    EXPECT_EQ(titles.mid(7), logger->allComponentsArray());
    for (QAction *action : actions)
        EXPECT_TRUE(action->shortcut().isEmpty());
    EXPECT_EQ(NSMenuItem::action(actions[0]), NSSelector("setOutputToConsole:"));
    EXPECT_EQ(NSMenuItem::action(actions[1]), NSSelector("setOutputToFile:"));
    EXPECT_EQ(NSMenuItem::action(actions[3]), NSSelector("setDisplayFileLine:"));
    EXPECT_EQ(NSMenuItem::action(actions[5]), NSSelector("clearAllLoggingState:"));
    EXPECT_TRUE(NSMenuItem::action(actions[7]).isNull());
    EXPECT_EQ(NSMenuItem::target(actions[0]), logger.get());
}

TEST_F(LoggerMenuTests, AmpersandsAreShownAndMarkNoShortcut)
{
    EXPECT_EQ(item(kLog_DragDrop)->text(), u"Drag && Drop"_s);
}

TEST_F(LoggerMenuTests, SubmenusHoldEightLevelsWithTheirTags)
{
    const auto submenu = logger->createLogLevelSubmenuWithBase(170);
    EXPECT_EQ(submenu->title(), u"submenu"_s);
    const QList<QAction *> actions = submenu->actions();
    ASSERT_EQ(actions.size(), 8);
    EXPECT_EQ(NSMenuItem::title(actions[0]), u"7 (most detail)"_s);
    EXPECT_EQ(NSMenuItem::title(actions[7]), u"0 (off)"_s);
    for (int index = 0; index < 8; ++index) {
        EXPECT_EQ(NSMenuItem::tag(actions[index]), 177 - index);
        EXPECT_EQ(NSMenuItem::action(actions[index]), NSSelector("setComponentLogLevel:"));
        EXPECT_EQ(NSMenuItem::target(actions[index]), logger.get());
        if (index > 0 && index < 7) {
            EXPECT_EQ(NSMenuItem::title(actions[index]), QString::number(7 - index));
        }
    }
}

TEST_F(LoggerMenuTests, ChoosingALevelStoresIt)
{
    QAction *three = levelItem(kLog_FormattersCurrency, 3);
    EXPECT_EQ(NSMenuItem::tag(three), 173);
    three->trigger();
    EXPECT_EQ(logger->levelOfComponent(kLog_FormattersCurrency), 3);
    EXPECT_EQ(checkedTitles(item(kLog_FormattersCurrency)->menu()), QStringList{u"3"_s});
    levelItem(kLog_FormattersCurrency, 0)->trigger();
    EXPECT_EQ(logger->levelOfComponent(kLog_FormattersCurrency), 0);
}

TEST_F(LoggerMenuTests, WithoutSettingsEverySubmenuMarksOff)
{
    for (const QString &component : logger->allComponentsArray())
        EXPECT_EQ(checkedTitles(item(component)->menu()), QStringList{u"0 (off)"_s});
    EXPECT_EQ(checkedTitles(menu.get()), QStringList{u"Log To File"_s});
}

TEST_F(LoggerMenuTests, MarksFollowTheSettings)
{
    levelItem(kLog_Undo, 7)->trigger();
    item(u"Log To Console"_s)->trigger();
    item(u"Display File and Line"_s)->trigger();
    EXPECT_EQ(checkedTitles(menu.get()),
              QStringList({u"Log To Console"_s, u"Display File and Line"_s}));
    item(u"Log To Console"_s)->trigger();
    EXPECT_FALSE(logger->writeToFile());
    EXPECT_TRUE(item(u"Log To Console"_s)->isChecked());
    item(u"Clear all logging state"_s)->trigger();
    EXPECT_EQ(logger->levelOfComponent(kLog_Undo), 0);
}

TEST_F(LoggerMenuTests, EveryItemStaysEnabledAndOthersKeepTheirMark)
{
    QAction foreign(u"foreign"_s);
    foreign.setCheckable(true);
    foreign.setChecked(true);
    EXPECT_TRUE(logger->validateMenuItem(&foreign));
    EXPECT_TRUE(foreign.isChecked());
    EXPECT_TRUE(logger->validateMenuItem(nullptr));
    for (QAction *action : menu->actions())
        EXPECT_TRUE(logger->validateMenuItem(action));
}

TEST_F(LoggerMenuTests, ItemsWorkOnAFreshAccountAndTellWhatCannotBeSaved)
{
    const QString log =
        testing_support::standardErrorOf([&] { item(u"Log To Console"_s)->trigger(); });
    EXPECT_TRUE(log.contains(u"*** exception in the action setOutputToConsole:: "))
        << log.toStdString();
    EXPECT_FALSE(logger->writeToFile());
    EXPECT_EQ(checkedTitles(menu.get()), QStringList{u"Log To Console"_s});
    levelItem(u"Undo"_s, 4)->trigger();
    EXPECT_FALSE(KTLogger().writeToFile());
}

TEST_F(LoggerMenuTests, TagsBeyondTheComponentsRaise)
{
    QAction stray;
    NSMenuItem::setTag(&stray, 391);
    EXPECT_RAISES(logger->setComponentLogLevel(&stray), NSRangeException,
                  u"index (39) beyond bounds (39)"_s);
    logger->setComponentLogLevel(nullptr);
    EXPECT_EQ(logger->components()->value(kLog_AppleScript), QVariant(0));
}

TEST_F(LoggerMenuTests, TagsBelowZeroRaise)
{
    for (const int tag : {-1, -5, -10, -173}) {
        QAction outside;
        NSMenuItem::setTag(&outside, tag);
        EXPECT_THROW(logger->setComponentLogLevel(&outside), NSException) << tag;
    }
    EXPECT_FALSE(logger->components());
}

TEST_F(LoggerMenuTests, ChosenBeforeAnyLevelItLogsWhyAndGoesOn)
{
    const QString log =
        testing_support::standardErrorOf([this] { item(u"Log To Console"_s)->trigger(); });
    EXPECT_TRUE(log.contains(u"attempt to insert nil value (key: components)"))
        << log.toStdString();
    EXPECT_FALSE(logger->writeToFile());
}

TEST_F(LoggerMenuTests, AnItemWithoutSubmenuIsLeftAlone)
{
    QAction plain;
    logger->populateComponentLoggingMenu(&plain);
    logger->populateComponentLoggingMenu(nullptr);
    EXPECT_EQ(plain.menu(), nullptr);
}

TEST_F(LoggerMenuTests, AMenuOutlivesItsLogger)
{
    logger.reset();
    EXPECT_TRUE(checkedTitles(menu.get()).isEmpty());
    item(u"Log To Console"_s)->trigger();
    EXPECT_EQ(NSMenuItem::target(item(u"Log To File"_s)), nullptr);
}
