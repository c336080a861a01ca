// What becomes of a controller when its objects change or are destroyed.

#include <KTUtility/NSArrayController>

#include <KTUtility/KTPropertyBinder>
#include <KTUtility/NSEditor>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSKeyValueObservation>

#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <QPointer>
#include <QSignalSpy>
#include <QThread>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
class NSArrayControllerObjects : public testing_support::WindowedTest
{
protected:
    explicit NSArrayControllerObjects(int count = 5)
    {
        QVariantList content;
        for (int index = 0; index < count; ++index) {
            records.push_back(
                std::make_unique<ObservedRecord>(QString(QChar(u'A' + index % 26)), index));
            content += QVariant::fromValue(records.back().get());
        }
        controller.setContent(content);
    }

    static QString namesOf(const QVariantList &objects)
    {
        QString names;
        for (const QVariant &object : objects)
            names += object.isValid() ? object.value<ObservedRecord *>()->name() : u"-"_s;
        return names;
    }
    QString content() const { return namesOf(controller.content()); }
    QString shown() const { return namesOf(controller.arrangedObjects()); }
    QString selected() const { return namesOf(controller.selectedObjects()); }
    QVariant selection(const QString &key)
    {
        return NSKeyValueCoding::valueForKeyPath(&controller, u"selection."_s + key);
    }
    void sortDescending() { controller.setSortDescriptors({{u"number"_s, false}}); }
    void hideOdd()
    {
        controller.setFilterPredicate(
            NSPredicate::where([](const ObservedRecord &each) { return each.number() % 2 == 0; }));
    }

    std::vector<std::unique_ptr<ObservedRecord>> records;
    NSArrayController controller;
};

/// Calls a function when it is asked for its value.
class GettingRecord : public ObservedStandIn
{
public:
    std::optional<QVariant> valueForKey(const QString &key) const override
    {
        if (key != u"silent")
            return std::nullopt;
        if (asked)
            asked(this);
        return 3;
    }

    std::function<void(const GettingRecord *)> asked;
};

class NSArrayControllerManyObjects : public NSArrayControllerObjects
{
protected:
    NSArrayControllerManyObjects() : NSArrayControllerObjects(20'000) {}
};
} // namespace

TEST_F(NSArrayControllerObjects, WhoIsDestroyedLeaves)
{
    sortDescending();
    controller.setSelectionIndexes({0, 1, 3});
    EXPECT_EQ(selected(), u"EDB"_s);
    const QSignalSpy contents(&controller, &NSArrayController::contentChanged);
    const QSignalSpy arranged(&controller, &NSArrayController::arrangedObjectsChanged);
    const QSignalSpy selections(&controller, &NSArrayController::selectionChanged);
    records[3].reset();
    EXPECT_EQ(content(), u"ABCE"_s);
    EXPECT_EQ(shown(), u"ECBA"_s);
    EXPECT_EQ(selected(), u"EB"_s);
    EXPECT_EQ(contents.count(), 1);
    EXPECT_EQ(arranged.count(), 1);
    EXPECT_EQ(selections.count(), 1);
    controller.setSortDescriptors({{u"number"_s, true}});
    EXPECT_EQ(shown(), u"ABCE"_s);
    records.clear();
    EXPECT_TRUE(controller.content().isEmpty());
    EXPECT_EQ(controller.selectionIndex(), -1);
}

TEST_F(NSArrayControllerObjects, NobodyAsksADestroyedObjectForValues)
{
    controller.setSelectionIndexes({1, 2});
    QVariantList told;
    const NSKeyValueObservation names(
        &controller, u"selection.name"_s, NSKeyValueObservingOptionNew,
        [&](const NSKeyValueChange &change) { told += *change.newValue; });
    QObject::connect(&controller, &NSArrayController::contentChanged,
                     [&] { EXPECT_NE(selection(u"name"_s), QVariant(u"B"_s)); });
    records[1].reset();
    EXPECT_EQ(told, QVariantList({u"C"_s}));
    records[2]->setName(u"X"_s);
    EXPECT_EQ(told.last(), QVariant(u"X"_s));
}

TEST_F(NSArrayControllerObjects, DestroyedObjectsThatAreNotShownLeaveTheContent)
{
    hideOdd();
    controller.setSelectionIndex(2);
    const QSignalSpy selections(&controller, &NSArrayController::selectionChanged);
    records[1].reset();
    EXPECT_EQ(content(), u"ACDE"_s);
    EXPECT_EQ(shown(), u"ACE"_s);
    EXPECT_EQ(selections.count(), 0);
    // The one that is selected moves, and stays selected.
    records[0].reset();
    EXPECT_EQ(selected(), u"E"_s);
    EXPECT_EQ(selections.count(), 1);
    controller.setFilterPredicate({});
    EXPECT_EQ(shown(), u"CDE"_s);
}

TEST_F(NSArrayControllerObjects, AnObjectThatIsThereTwiceLeavesTwice)
{
    const QVariant first = QVariant::fromValue(records[0].get());
    const QVariant guarded = QVariant::fromValue(QPointer<ObservedRecord>(records[1].get()));
    controller.setContent({first, guarded, QVariant(), 3, first});
    records[0].reset();
    EXPECT_EQ(controller.content(), QVariantList({guarded, QVariant(), 3}));
    records[1].reset();
    EXPECT_EQ(controller.content(), QVariantList({QVariant(), 3}));
}

TEST_F(NSArrayControllerObjects, WhatWasTakenOutIsNotWatched)
{
    const QVariant second = QVariant::fromValue(records[1].get());
    controller.addObject(second);
    controller.addObject(QVariant::fromValue(records[2].get()));
    controller.removeObject(second);
    const QSignalSpy contents(&controller, &NSArrayController::contentChanged);
    records[1].reset();
    EXPECT_EQ(contents.count(), 0);
    EXPECT_EQ(content(), u"ACDEC"_s);
    records[2].reset();
    EXPECT_EQ(content(), u"ADE"_s);
}

TEST_F(NSArrayControllerObjects, WhoIsToldMayDestroyOthersAndTheController)
{
    auto other = std::make_unique<NSArrayController>();
    other->setContent(controller.content());
    QObject::connect(&controller, &NSArrayController::contentChanged, [&] { records[4].reset(); });
    QObject::connect(other.get(), &NSArrayController::contentChanged, [&] { other.reset(); });
    records[0].reset();
    EXPECT_EQ(content(), u"BCD"_s);
    EXPECT_EQ(other, nullptr);
}

TEST_F(NSArrayControllerObjects, WhoIsDestroyedIsToldOfNothing)
{
    int told = 0;
    QObject::connect(&controller, &NSArrayController::contentChanged, records[0].get(),
                     [&] { ++told; });
    records[0].reset();
    EXPECT_EQ(told, 0);
    EXPECT_EQ(content(), u"BCDE"_s);
}

TEST_F(NSArrayControllerManyObjects, MayAllBeDestroyedAtOnce)
{
    sortDescending();
    controller.setSelectionIndexes({0, 5, 7000, 19'999});
    const testing_support::ProcessorTime clock;
    for (size_t index = 0; index < records.size(); index += 2)
        records[index].reset();
    // Those that are too many for one turn are nil until its end.
    EXPECT_LT(controller.content().count(QVariant()), 10'000);
    EXPECT_GT(controller.content().count(QVariant()), 9'000);
    EXPECT_EQ(controller.arrangedObjects().count(QVariant()),
              controller.content().count(QVariant()));
    EXPECT_EQ(selection(u"name"_s), NSMultipleValuesMarker());
    turn();
    EXPECT_EQ(controller.content().size(), 10'000);
    EXPECT_EQ(controller.arrangedObjects().size(), 10'000);
    EXPECT_EQ(controller.arrangedObjects().count(QVariant()), 0);
    EXPECT_EQ(controller.selectionIndexes(), QList<qsizetype>({0, 3500}));
    EXPECT_LT(clock.elapsed(), 10'000);
}

TEST_F(NSArrayControllerManyObjects, ThoseThatWaitLeaveBeforeTheListChanges)
{
    controller.setSelectionIndex(19'998);
    for (size_t index = 0; index < 1000; ++index)
        records[index].reset();
    EXPECT_GT(controller.content().count(QVariant()), 0);
    controller.setFilterPredicate(NSPredicate::where(&ObservedRecord::number));
    EXPECT_EQ(controller.arrangedObjects().size(), 19'000);
    EXPECT_EQ(selected(), records[19'998]->name());
    for (size_t index = 1000; index < 2000; ++index)
        records[index].reset();
    controller.addObject(u"end"_s);
    EXPECT_EQ(controller.content().size(), 18'001);
    turn();
    EXPECT_EQ(controller.content().size(), 18'001);
}

TEST_F(NSArrayControllerObjects, WhatStandsInTheListsMayBeGivenToThem)
{
    sortDescending();
    controller.removeObject(controller.content().first());
    EXPECT_EQ(content(), u"BCDE"_s);
    controller.addObject(controller.content().first());
    EXPECT_EQ(content(), u"BCDEB"_s);
    controller.removeObject(controller.arrangedObjects().first());
    EXPECT_EQ(content(), u"BCDB"_s);
    const QSignalSpy contents(&controller, &NSArrayController::contentChanged);
    records[0].reset();
    records[4].reset();
    EXPECT_EQ(contents.count(), 0);
    records[1].reset();
    EXPECT_EQ(content(), u"CD"_s);
    controller.setContent(controller.arrangedObjects());
    EXPECT_EQ(content(), u"DC"_s);
}

TEST_F(NSArrayControllerObjects, WhoIsToldMayDestroyWhatHasJustLeft)
{
    const QVariant second = QVariant::fromValue(records[1].get());
    controller.setSelectionIndexes({1, 2});
    QStringList met;
    QObject::connect(&controller, &NSArrayController::contentChanged, [&] {
        records[1].reset();
        met += shown() + u'/' + selected() + u'/' + selection(u"name"_s).toString();
    });
    controller.removeObject(second);
    EXPECT_EQ(met, QStringList({u"ACDE/C/"_s, u"ACDE/C/C"_s}));
    EXPECT_EQ(shown(), u"ACDE"_s);
    EXPECT_EQ(selected(), u"C"_s);
}

TEST_F(NSArrayControllerObjects, WhoIsToldMayDestroyWhatAnotherListHasNot)
{
    const QVariantList others{QVariant::fromValue(records[0].get())};
    controller.setSelectionIndexes({0, 3});
    QObject::connect(&controller, &NSArrayController::contentChanged, [&] {
        for (const size_t index : {1u, 3u, 4u})
            records[index].reset();
        EXPECT_EQ(content(), u"A"_s);
        EXPECT_EQ(shown().remove(u'C'), u"A"_s);
    });
    controller.setContent(others);
    EXPECT_EQ(shown(), u"A"_s);
    EXPECT_EQ(selected(), u"A"_s);
    const QSignalSpy contents(&controller, &NSArrayController::contentChanged);
    records[2].reset();
    EXPECT_EQ(contents.count(), 0);
}

TEST_F(NSArrayControllerObjects, WhatIsHiddenMayBeDestroyedBeforeTheSelectionIsTold)
{
    controller.setSelectionIndexes({0, 1});
    QVariant met;
    QObject::connect(&controller, &NSArrayController::arrangedObjectsChanged, [&] {
        records[1].reset();
        met = selection(u"number"_s);
    });
    hideOdd();
    EXPECT_NE(met, 1);
    EXPECT_EQ(shown(), u"ACE"_s);
    EXPECT_EQ(selection(u"number"_s), 0);
}

TEST_F(NSArrayControllerObjects, NilsOfOtherTypesStay)
{
    const QVariantList nils{QVariant(QString()), QVariant(QMetaType::fromType<int>()),
                            QVariant::fromValue(nullptr), 5};
    controller.setContent(QVariantList{QVariant::fromValue(records[0].get())} + nils);
    records[0].reset();
    EXPECT_EQ(controller.content().size(), nils.size());
    EXPECT_EQ(controller.content().first().typeId(), QMetaType::QString);
}

TEST_F(NSArrayControllerManyObjects, MayBeGuardedAndDestroyedAtOnce)
{
    QVariantList guarded;
    for (const auto &record : records)
        guarded += QVariant::fromValue(QPointer<ObservedRecord>(record.get()));
    controller.setContent(guarded);
    records.clear();
    turn();
    EXPECT_TRUE(controller.content().isEmpty());
    EXPECT_TRUE(controller.arrangedObjects().isEmpty());
}

TEST_F(NSArrayControllerObjects, TheSameObjectsAreSelectedAfterACommit)
{
    struct Editor : QObject, NSEditor
    {
        bool commitEditing() override
        {
            commit();
            return true;
        }
        void discardEditing() override {}
        std::function<void()> commit;
    } editor;
    sortDescending();
    editor.commit = [&] {
        controller.objectDidEndEditing(&editor);
        records[0]->setNumber(9);
        controller.rearrangeObjects();
    };
    controller.setCommitsBeforeSelecting(true);
    controller.objectDidBeginEditing(&editor);
    // The second one, which is the third when the first has come before them.
    EXPECT_TRUE(controller.setSelectionIndex(1));
    EXPECT_EQ(shown(), u"AEDCB"_s);
    EXPECT_EQ(selected(), u"D"_s);
}

// --- Rearranging --------------------------------------------------------------------------------

TEST_F(NSArrayControllerObjects, RearrangesByItselfIfItIsTo)
{
    EXPECT_FALSE(controller.automaticallyRearranges());
    sortDescending();
    controller.setSelectionIndex(0);
    records[0]->setNumber(9);
    turn();
    EXPECT_EQ(shown(), u"EDCBA"_s);
    controller.setAutomaticallyRearranges(true);
    records[1]->setNumber(8);
    records[2]->setNumber(7);
    const QSignalSpy arranged(&controller, &NSArrayController::arrangedObjectsChanged);
    EXPECT_EQ(shown(), u"EDCBA"_s);
    turn();
    EXPECT_EQ(shown(), u"ABCED"_s);
    EXPECT_EQ(selected(), u"E"_s);
    EXPECT_EQ(arranged.count(), 1);
    // What changes nothing is not told.
    records[0]->setName(u"Z"_s);
    records[0]->setNumber(10);
    turn();
    EXPECT_EQ(arranged.count(), 1);
    controller.setAutomaticallyRearranges(false);
    records[3]->setNumber(11);
    turn();
    EXPECT_EQ(shown(), u"ZBCED"_s);
}

TEST_F(NSArrayControllerObjects, ChangedObjectsPassTheFilterOrNot)
{
    controller.setAutomaticallyRearranges(true);
    hideOdd();
    EXPECT_EQ(shown(), u"ACE"_s);
    records[0]->setNumber(1);
    records[1]->setNumber(2);
    turn();
    EXPECT_EQ(shown(), u"BCE"_s);
    const auto late = std::make_unique<ObservedRecord>(u"L"_s, 3);
    controller.addObject(QVariant::fromValue(late.get()));
    late->setNumber(4);
    turn();
    EXPECT_EQ(shown(), u"BCEL"_s);
}

TEST_F(NSArrayControllerObjects, KeyPathsAndKeysWithoutSignalAreFollowed)
{
    ObservedRecord next(u"N"_s, 100);
    records[0]->setNext(&next);
    controller.setAutomaticallyRearranges(true);
    controller.setSortDescriptors({{u"next.number"_s, false}, {u"silent"_s, false}});
    EXPECT_EQ(shown(), u"ABCDE"_s);
    NSKeyValueCoding::setValue(records[2].get(), 5, u"silent"_s);
    turn();
    EXPECT_EQ(shown(), u"ACBDE"_s);
    next.setNumber(-1);
    records[4]->setNext(&next);
    next.setNumber(7);
    turn();
    EXPECT_EQ(shown(), u"AECBD"_s);
    controller.setSortDescriptors({NSSortDescriptor::by(&ObservedRecord::name, false)});
    EXPECT_EQ(shown(), u"EDCBA"_s);
    records[0]->setName(u"X"_s);
    turn();
    EXPECT_EQ(shown(), u"XEDCB"_s);
}

TEST_F(NSArrayControllerObjects, ObservedGettersMayDestroyOthersAndRaise)
{
    NSArrayController other;
    std::vector<std::unique_ptr<GettingRecord>> getting;
    QVariantList objects;
    for (int index = 0; index < 3; ++index) {
        getting.push_back(std::make_unique<GettingRecord>());
        objects += QVariant::fromValue(getting.back().get());
    }
    other.setContent(objects);
    other.setSortDescriptors({{u"silent"_s}});
    const auto destroyOthers = [&](const GettingRecord *asked) {
        for (auto &each : getting) {
            if (each && each.get() != asked)
                each.reset();
        }
    };
    for (const auto &each : getting)
        each->asked = destroyOthers;
    other.setAutomaticallyRearranges(true);
    EXPECT_EQ(other.content().size(), 1);
    EXPECT_EQ(other.arrangedObjects(), other.content());
    const QVariant raising = other.content().first();
    other.setAutomaticallyRearranges(false);
    raising.value<GettingRecord *>()->asked = [](const GettingRecord *) { throw 5; };
    other.setAutomaticallyRearranges(true);
    EXPECT_EQ(other.content(), QVariantList{raising});
}

TEST_F(NSArrayControllerObjects, AGetterMayDestroyWhatIsBeingArranged)
{
    controller.setSortDescriptors({NSSortDescriptor::by([this](const ObservedRecord &each) {
        records[3].reset();
        return -each.number();
    })});
    EXPECT_EQ(content(), u"ABCE"_s);
    EXPECT_EQ(shown(), u"ECBA"_s);
}

TEST_F(NSArrayControllerObjects, WhatChangedInAThreadMayHaveLeftMeanwhile)
{
    controller.setAutomaticallyRearranges(true);
    sortDescending();
    QThread thread;
    thread.start();
    records[0]->moveToThread(&thread);
    QMetaObject::invokeMethod(
        records[0].get(), [this] { records[0]->setNumber(9); }, Qt::BlockingQueuedConnection);
    controller.removeObject(QVariant::fromValue(records[0].get()));
    turn();
    EXPECT_EQ(shown(), u"EDCB"_s);
    thread.quit();
    thread.wait();
}

TEST_F(NSArrayControllerObjects, WhatRaisesWhileItRearrangesIsLogged)
{
    controller.setAutomaticallyRearranges(true);
    bool isBroken = false;
    controller.setFilterPredicate(
        NSPredicate::predicateWithBlock([&isBroken](const QVariant &) -> bool {
            if (isBroken)
                throw std::runtime_error("broken filter");
            return true;
        }));
    isBroken = true;
    records[0]->setNumber(9);
    const QString logged = testing_support::standardErrorOf([this] { turn(); });
    EXPECT_TRUE(logged.contains(u"broken filter"_s));
    EXPECT_EQ(shown(), u"ABCDE"_s);
}

TEST_F(NSArrayControllerManyObjects, AreSortedAgainQuicklyWhenTheyAreSearched)
{
    sortDescending();
    const auto search = [this](int rest) {
        controller.setFilterPredicate(NSPredicate::where(
            [rest](const ObservedRecord &each) { return each.number() % 3 <= rest; }));
    };
    search(1);
    records[2]->setNumber(0);
    search(0);
    const QVariantList found = controller.arrangedObjects();
    EXPECT_EQ(found, NSSortDescriptor::sorted(found, {{u"number"_s, false}}));
    EXPECT_EQ(found.last().value<ObservedRecord *>(), records[2].get());
}
