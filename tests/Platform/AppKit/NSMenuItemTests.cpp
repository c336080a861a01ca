#include <KTUtility/NSException>
#include <KTUtility/NSMenuItem>

#include "support/TestSupport.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace {
/// Takes actions and decides which are enabled.
class Target : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void choose(QAction *sender) { chosen += NSMenuItem::tag(sender); }
    Q_INVOKABLE bool validateMenuItem(QAction *item) { return NSMenuItem::tag(item) != 13; }
    Q_INVOKABLE void removeItem(QAction *sender) { delete sender; }
    Q_INVOKABLE void fail(QAction *) { NSException::raise(u"Broken"_s, u"by hand"_s); }

    QList<int> chosen;
};

/// Cannot say which items are enabled.
class FailingJudge : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE bool validateMenuItem(QAction *)
    {
        NSException::raise(u"Broken"_s, u"by hand"_s);
        return true;
    }
    Q_INVOKABLE void choose(QAction *) { isChosen = true; }

    bool isChosen = false;
};
} // namespace

TEST(NSMenuItem, SendsItsActionWithItself)
{
    testing_support::needApplication();
    QMenu menu;
    Target target;
    QAction *item = NSMenuItem::addItem(&menu, u"3"_s, "choose:", &target);
    EXPECT_EQ(NSMenuItem::tag(item), 0);
    NSMenuItem::setTag(item, 173);
    item->trigger();
    EXPECT_EQ(target.chosen, QList<int>{173});
    EXPECT_EQ(NSMenuItem::target(item), &target);
}

TEST(NSMenuItem, AsksItsTargetBeforeTheMenuIsShown)
{
    testing_support::needApplication();
    QMenu menu;
    Target target;
    QAction *rejected = NSMenuItem::addItem(&menu, u"a"_s, "choose:", &target);
    QAction *allowed = NSMenuItem::addItem(&menu, u"b"_s, "choose:", &target);
    NSMenuItem::setTag(rejected, 13);
    Q_EMIT menu.aboutToShow();
    EXPECT_FALSE(rejected->isEnabled());
    EXPECT_TRUE(allowed->isEnabled());
    rejected->trigger();
    EXPECT_TRUE(target.chosen.isEmpty());
}

TEST(NSMenuItem, TargetsMayDieAndItemsMayBeRemovedByTheirAction)
{
    testing_support::needApplication();
    QMenu menu;
    auto target = std::make_unique<Target>();
    QPointer<QAction> item = NSMenuItem::addItem(&menu, u"x"_s, "removeItem:", target.get());
    item->trigger();
    EXPECT_TRUE(item.isNull());
    QAction *orphan = NSMenuItem::addItem(&menu, u"y"_s, "choose:", target.get());
    target.reset();
    orphan->trigger();
    Q_EMIT menu.aboutToShow();
    EXPECT_EQ(NSMenuItem::target(orphan), nullptr);
}

TEST(NSMenuItem, AnExceptionOfAnActionIsLoggedAndGoesNoFurther)
{
    testing_support::needApplication();
    QMenu menu;
    Target target;
    QAction *item = NSMenuItem::addItem(&menu, u"Fail"_s, "fail:", &target);
    const QString log = testing_support::standardErrorOf([item] { item->trigger(); });
    EXPECT_TRUE(log.endsWith(u"*** exception in the action fail:: Broken: by hand\n"))
        << log.toStdString();
    EXPECT_TRUE(item->isEnabled());
    EXPECT_NO_THROW(item->trigger());
}

TEST(NSMenuItem, TitlesKeepTheirAmpersands)
{
    testing_support::needApplication();
    QMenu menu;
    for (const QString &title : {u"Drag & Drop"_s, u"&&"_s, u"&a"_s, u""_s})
        EXPECT_EQ(NSMenuItem::title(NSMenuItem::addItem(&menu, title, NSSelector(), nullptr)),
                  title);
}
TEST(NSMenuItem, ShortcutsAskAgainAfterTheMenuWasSeen)
{
    testing_support::needApplication();
    QMenu menu;
    Target target;
    QObject indifferent;
    QAction *rejected = NSMenuItem::addItem(&menu, u"a"_s, "choose:", &target);
    NSMenuItem::setTag(rejected, 13);
    QAction *other = NSMenuItem::addItem(&menu, u"b"_s, "choose:", &indifferent);
    other->setEnabled(false);
    menu.popup(QPoint());
    EXPECT_FALSE(rejected->isEnabled());
    menu.hide();
    EXPECT_TRUE(rejected->isEnabled());
    EXPECT_FALSE(other->isEnabled());
    rejected->trigger();
    EXPECT_TRUE(target.chosen.isEmpty());
    EXPECT_TRUE(rejected->isEnabled());
}

TEST(NSMenuItem, AnExceptionOfAValidationIsLoggedAndDisablesTheItem)
{
    testing_support::needApplication();
    QMenu menu;
    FailingJudge judge;
    QAction *item = NSMenuItem::addItem(&menu, u"Fail"_s, "choose:", &judge);
    const QString log = testing_support::standardErrorOf([&] {
        Q_EMIT menu.aboutToShow();
        item->trigger();
    });
    EXPECT_FALSE(item->isEnabled());
    EXPECT_FALSE(judge.isChosen);
    EXPECT_TRUE(log.contains(u"validation of a menu item"_s)) << qPrintable(log);
}

TEST(NSMenuItem, FunctionsAreCalledWhileTheirObjectLives)
{
    testing_support::needApplication();
    QMenu menu;
    auto context = std::make_unique<QObject>();
    int calls = 0;
    QAction *const item = NSMenuItem::addItem(&menu, u"a"_s, context.get(), [&] { ++calls; });
    EXPECT_EQ(NSMenuItem::target(item), context.get());
    EXPECT_TRUE(NSMenuItem::action(item).isNull());
    item->trigger();
    EXPECT_EQ(calls, 1);
    context.reset();
    item->trigger();
    Q_EMIT menu.aboutToShow();
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(item->isEnabled());
}

TEST(NSMenuItem, AFunctionSaysWhetherAnItemCanBeChosen)
{
    testing_support::needApplication();
    QMenu menu;
    QObject context;
    bool isWanted = false;
    int calls = 0;
    const auto validation = [&](QAction *item) {
        NSMenuItem::setState(item, !isWanted);
        return isWanted;
    };
    QAction *const item = NSMenuItem::addItem(
        &menu, u"a"_s, &context, [&] { ++calls; }, validation);
    Q_EMIT menu.aboutToShow();
    EXPECT_FALSE(item->isEnabled());
    EXPECT_TRUE(item->isChecked());
    Q_EMIT menu.aboutToHide();
    item->trigger();
    EXPECT_EQ(calls, 0);
    isWanted = true;
    item->trigger();
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(item->isChecked());
}

TEST(NSMenuItem, FunctionsMayRaiseOrRemoveTheItem)
{
    testing_support::needApplication();
    QMenu menu;
    QObject context;
    QPointer<QAction> item = NSMenuItem::addItem(&menu, u"Tea & cake"_s, &context, [] { throw 5; });
    const QString log = testing_support::standardErrorOf([&] { item->trigger(); });
    EXPECT_TRUE(log.endsWith(
        u"*** exception in the action of the menu item Tea & cake: unknown exception\n"))
        << log.toStdString();
    const auto fail = [](QAction *) -> bool { throw 5; };
    QAction *const judged = NSMenuItem::addItem(
        &menu, u"b"_s, &context, [] { FAIL(); }, fail);
    testing_support::standardErrorOf([&] { judged->trigger(); });
    item = NSMenuItem::addItem(&menu, u"c"_s, &context, [&] { delete item; });
    item->trigger();
    EXPECT_TRUE(item.isNull());
    const auto remove = [](QAction *removed) {
        delete removed;
        return true;
    };
    item = NSMenuItem::addItem(
        &menu, u"d"_s, &context, [] { FAIL(); }, remove);
    item->trigger();
    EXPECT_TRUE(item.isNull());
}

TEST(NSMenuItem, AValidationMayRemoveItemsAndMenus)
{
    testing_support::needApplication();
    QPointer<QMenu> menu = new QMenu;
    QObject context;
    QPointer<QAction> last;
    bool removesMenu = false;
    int asked = 0;
    const auto validation = [&](QAction *) {
        ++asked;
        delete last;
        if (removesMenu)
            delete menu;
        return true;
    };
    for (const QString &title : {u"a"_s, u"b"_s, u"c"_s})
        last = NSMenuItem::addItem(
            menu, title, &context, [] {}, validation);
    NSMenuItem::validateMenu(menu);
    EXPECT_TRUE(last.isNull());
    EXPECT_EQ(asked, 2);
    removesMenu = true;
    NSMenuItem::validateMenu(menu);
    EXPECT_TRUE(menu.isNull());
    EXPECT_EQ(asked, 3);
}

TEST(NSMenuItem, WhoeverSeesAnItemComeBackMayRemoveOthers)
{
    testing_support::needApplication();
    QMenu menu;
    QObject context;
    const auto validation = [](QAction *) { return false; };
    QAction *const first = NSMenuItem::addItem(
        &menu, u"a"_s, &context, [] {}, validation);
    QPointer<QAction> second = NSMenuItem::addItem(
        &menu, u"b"_s, &context, [] {}, validation);
    Q_EMIT menu.aboutToShow();
    QObject::connect(first, &QAction::enabledChanged, &context, [&] { delete second; });
    Q_EMIT menu.aboutToHide();
    EXPECT_TRUE(first->isEnabled());
    EXPECT_TRUE(second.isNull());
}

TEST(NSMenuItem, WhatItsOwnActionDisablesStaysSoIfNobodyIsAsked)
{
    testing_support::needApplication();
    QMenu menu;
    QObject context;
    QAction *item = nullptr;
    item = NSMenuItem::addItem(&menu, u"a"_s, &context, [&] { item->setEnabled(false); });
    item->trigger();
    EXPECT_FALSE(item->isEnabled());
    QAction *asked = nullptr;
    asked = NSMenuItem::addItem(
        &menu, u"b"_s, &context, [&] { asked->setEnabled(false); }, [](QAction *) { return true; });
    asked->trigger();
    EXPECT_TRUE(asked->isEnabled());
}

TEST(NSMenuItem, AnItemForASubmenuMayBeAddedInAllWays)
{
    testing_support::needApplication();
    QMenu menu;
    QObject context;
    int calls = 0;
    const NSMenuItem::Action action = [&] { ++calls; };
    for (QAction *const item : {NSMenuItem::addItem(&menu, u"a"_s, {}, nullptr),
                                NSMenuItem::addItem(&menu, u"b"_s, NSSelector(), {})}) {
        EXPECT_TRUE(NSMenuItem::action(item).isNull());
        EXPECT_EQ(NSMenuItem::target(item), nullptr);
    }
    NSMenuItem::addItem(&menu, u"c"_s, &context, action)->trigger();
    NSMenuItem::addItem(&menu, u"d"_s, &context, [calls = &calls]() mutable {
        ++*calls;
    })->trigger();
    EXPECT_EQ(calls, 2);
}

TEST(NSMenuItem, AMissingSelectorIsToldWhenTheItemIsMade)
{
    testing_support::needApplication();
    QMenu menu;
    Target target;
    const QString log = testing_support::standardErrorOf(
        [&] { NSMenuItem::addItem(&menu, u"a"_s, "chose:", &target); });
    EXPECT_TRUE(
        log.endsWith(u"*** the target of a menu item: -[Target chose:]: there is no such method\n"))
        << log.toStdString();
    const QString silence = testing_support::standardErrorOf([&] {
        NSMenuItem::addItem(&menu, u"a"_s, "choose:", &target);
        NSMenuItem::addItem(&menu, u"a"_s, "choose:", nullptr);
        NSMenuItem::addItem(&menu, u"a"_s, NSSelector(), &target);
    });
    EXPECT_EQ(silence, QString());
}

#include "NSMenuItemTests.moc"
