#include <KTUtility/NSKeyValueObservation>

#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSKeyValueObserving>
#include <KTUtility/NSObject>

#include "support/ObservedModel.h"
#include "support/Reading.h"
#include "support/TestSupport.h"

#include <functional>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {
constexpr NSKeyValueObservingOptions Both =
    NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld;

/// An observation that writes down what it is notified of: "kind old>new".
class Recorder
{
public:
    Recorder(QObject *object, const QString &keyPath, NSKeyValueObservingOptions options = Both)
        : _observation(object, keyPath, options,
                       [this](const NSKeyValueChange &change) { _told += textOf(change); })
    {
    }

    /// What was notified since the last call.
    QStringList told() { return std::exchange(_told, {}); }
    bool isActive() const { return _observation.isActive(); }
    void invalidate() { _observation.invalidate(); }

private:
    static QString textOf(const std::optional<QVariant> &value)
    {
        if (!value)
            return u"-"_s;
        return NSObject::isNil(*value) ? u"nil"_s : NSObject::description(*value);
    }
    static QString textOf(const NSKeyValueChange &change)
    {
        QString text = textOf(change.oldValue) + u'>' + textOf(change.newValue);
        if (change.kind != NSKeyValueChangeSetting)
            text = QString::number(int(change.kind)) + u' ' + text;
        for (const qsizetype index : change.indexes)
            text += u" @" + QString::number(index);
        return change.isPrior ? QString(u"before " + text) : text;
    }

    QStringList _told;
    NSKeyValueObservation _observation;
};

/// A record that is told who observes it.
class ObservedNumber : public ObservedRecord, public NSKeyValueCodingObject
{
public:
    std::optional<QVariant> valueForKey(const QString &) const override { return std::nullopt; }
    bool setValueForKey(const QVariant &, const QString &) override { return false; }
    void *qt_metacast(const char *iid) override
    {
        if (qstrcmp(iid, qobject_interface_iid<NSKeyValueCodingObject *>()) == 0)
            return static_cast<NSKeyValueCodingObject *>(this);
        return ObservedRecord::qt_metacast(iid);
    }
};

QString q(const char16_t *text)
{
    return QString::fromUtf16(text);
}

QStringList words(const char16_t *text)
{
    return q(text).split(u' ', Qt::SkipEmptyParts);
}
} // namespace

TEST(NSKeyValueObservation, TellsOldAndNewValues)
{
    ObservedRecord record(q(u"a"), 1);
    Recorder recorder(&record, q(u"number"));
    record.setNumber(2);
    record.setNumber(2);
    EXPECT_EQ(recorder.told(), words(u"1>2 2>2"));
    record.setName(q(u"b"));
    EXPECT_EQ(recorder.told(), QStringList());
}

TEST(NSKeyValueObservation, TellsWhatWasAskedFor)
{
    ObservedRecord record(q(u"a"), 1);
    Recorder nothing(&record, q(u"number"), 0);
    Recorder newOnly(&record, q(u"number"), NSKeyValueObservingOptionNew);
    Recorder oldOnly(&record, q(u"number"), NSKeyValueObservingOptionOld);
    record.setNumber(2);
    EXPECT_EQ(nothing.told(), words(u"->-"));
    EXPECT_EQ(newOnly.told(), words(u"->2"));
    EXPECT_EQ(oldOnly.told(), words(u"1>-"));
}

TEST(NSKeyValueObservation, FollowsBindablePropertiesWithoutSignal)
{
    auto record = std::make_unique<Reading>();
    Recorder recorder(record.get(), u"quiet"_s);
    record->setQuiet(2);
    EXPECT_EQ(recorder.told().size(), 1);
    record->setQuiet(2);
    EXPECT_EQ(recorder.told(), QStringList());
    // By key it is told once, too.
    NSKeyValueCoding::setValue(record.get(), 3, u"quiet"_s);
    EXPECT_EQ(recorder.told().size(), 1);
    QProperty<int> source(7);
    record->bindableQuiet().setBinding([&] { return source.value(); });
    EXPECT_EQ(recorder.told().size(), 1);
    source = 8;
    EXPECT_EQ(recorder.told().size(), 1);
    EXPECT_EQ(record->quiet(), 8);
    recorder.invalidate();
    source = 9;
    EXPECT_EQ(recorder.told(), QStringList());
    Recorder last(record.get(), u"quiet"_s);
    record.reset();
    EXPECT_FALSE(last.isActive());
}

TEST(NSKeyValueObservation, ABindablePropertyMayGoWithWhoIsTold)
{
    auto record = std::make_unique<Reading>();
    NSKeyValueObservation ended;
    ended = NSKeyValueObservation(record.get(), u"quiet", NSKeyValueObservingOptionNew,
                                  [&](const NSKeyValueChange &) { ended.invalidate(); });
    int calls = 0;
    const NSKeyValueObservation counted(record.get(), u"quiet", NSKeyValueObservingOptionNew,
                                        [&](const NSKeyValueChange &) { ++calls; });
    record->setQuiet(2);
    record->setQuiet(3);
    EXPECT_FALSE(ended.isActive());
    EXPECT_EQ(calls, 2);
    NSKeyValueObservation alone;
    alone = NSKeyValueObservation(record.get(), u"quiet", NSKeyValueObservingOptionNew,
                                  [&](const NSKeyValueChange &) { alone.invalidate(); });
    record->setQuiet(4);
    EXPECT_FALSE(alone.isActive());
}

TEST(NSKeyValueObservation, TheInitialCallHasNoOldValue)
{
    ObservedRecord record(q(u"a"), 1);
    Recorder recorder(&record, q(u"number"), Both | NSKeyValueObservingOptionInitial);
    EXPECT_EQ(recorder.told(), words(u"->1"));
    Recorder nil(&record, q(u"next.name"), Both | NSKeyValueObservingOptionInitial);
    EXPECT_EQ(nil.told(), words(u"->nil"));
}

TEST(NSKeyValueObservation, TellsOfValuesThatFollowFromOthers)
{
    ObservedRecord record(q(u"a"));
    Recorder recorder(&record, q(u"greeting"));
    record.setName(q(u"b"));
    EXPECT_EQ(recorder.told(), QStringList(q(u"Hello a>Hello b")));
}

TEST(NSKeyValueObservation, CallsOnceForASetByKey)
{
    ObservedRecord record;
    Recorder recorder(&record, q(u"number"));
    NSKeyValueCoding::setValue(&record, 5, q(u"number"));
    EXPECT_EQ(recorder.told(), words(u"0>5"));
}

TEST(NSKeyValueObservation, FollowsPathsThroughObjects)
{
    ObservedRecord first, second, third(q(u"third"), 3), other(q(u"other"), 4);
    first.setNext(&second);
    second.setNext(&third);
    Recorder recorder(&first, q(u"next.next.number"));
    third.setNumber(30);
    EXPECT_EQ(recorder.told(), words(u"3>30"));
    second.setNext(&other);
    EXPECT_EQ(recorder.told(), words(u"30>4"));
    third.setNumber(31);
    EXPECT_EQ(recorder.told(), QStringList());
    other.setNumber(40);
    EXPECT_EQ(recorder.told(), words(u"4>40"));
    first.setNext(nullptr);
    EXPECT_EQ(recorder.told(), words(u"40>nil"));
    other.setNumber(41);
    second.setNext(&third);
    EXPECT_EQ(recorder.told(), QStringList());
    first.setNext(&second);
    EXPECT_EQ(recorder.told(), words(u"nil>31"));
    third.setNumber(32);
    EXPECT_EQ(recorder.told(), words(u"31>32"));
}

TEST(NSKeyValueObservation, FollowsOneObjectTwiceOnThePath)
{
    ObservedRecord record(q(u"a"), 1);
    record.setNext(&record);
    Recorder recorder(&record, q(u"next.next.number"));
    record.setNumber(2);
    EXPECT_EQ(recorder.told(), words(u"1>2"));
    record.setNext(nullptr);
    EXPECT_EQ(recorder.told().first(), q(u"2>nil"));
    record.setNumber(3);
    EXPECT_EQ(recorder.told(), QStringList());
}

TEST(NSKeyValueObservation, BeyondMapsAndListsTheRestIsRead)
{
    ObservedRecord record;
    record.setMap({{q(u"color"), q(u"red")}});
    Recorder color(&record, q(u"map.color"));
    record.setMap({{q(u"color"), q(u"blue")}});
    record.setMap({});
    EXPECT_EQ(color.told(), words(u"red>blue blue>nil"));
    Recorder count(&record, q(u"list.@count"));
    record.setList({1, 2, 3});
    EXPECT_EQ(count.told(), words(u"0>3"));
}

TEST(NSKeyValueObservation, TellsOfDynamicProperties)
{
    // Their events are sent by the application.
    testing_support::needApplication();
    ObservedRecord record;
    record.setProperty("extra", 1);
    Recorder recorder(&record, q(u"extra"));
    record.setProperty("extra", 2);
    record.setProperty("other", 3);
    EXPECT_EQ(recorder.told(), words(u"1>2"));
    record.setProperty("extra", QVariant());
    EXPECT_EQ(recorder.told(), words(u"2>nil"));
}

TEST(NSKeyValueObservation, PropertiesWithoutSignalAreSilentUnlessTold)
{
    ObservedRecord record;
    Recorder recorder(&record, q(u"silent"));
    record.setSilent(1);
    EXPECT_EQ(recorder.told(), QStringList());
    NSKeyValueObserving::didChangeValueForKey(&record, q(u"silent"));
    EXPECT_EQ(recorder.told(), words(u"0>1"));
}

TEST(NSKeyValueObservation, AnnouncedChangesAreToldOnceAndBefore)
{
    ObservedRecord record(q(u"a"), 1);
    Recorder recorder(&record, q(u"number"), Both | NSKeyValueObservingOptionPrior);
    Recorder plain(&record, q(u"number"));
    NSKeyValueObserving::willChangeValueForKey(&record, q(u"number"));
    EXPECT_EQ(recorder.told(), QStringList(q(u"before 1>-")));
    record.setNumber(2);
    EXPECT_EQ(recorder.told(), QStringList());
    NSKeyValueObserving::didChangeValueForKey(&record, q(u"number"));
    EXPECT_EQ(recorder.told(), words(u"1>2"));
    EXPECT_EQ(plain.told(), words(u"1>2"));
    record.setNumber(3);
    EXPECT_EQ(recorder.told(), words(u"2>3"));
}

TEST(NSKeyValueObservation, AnnouncementsNest)
{
    ObservedRecord record(q(u"a"), 1);
    Recorder recorder(&record, q(u"number"));
    NSKeyValueObserving::willChangeValueForKey(&record, q(u"number"));
    NSKeyValueObserving::willChangeValueForKey(&record, q(u"number"));
    record.setNumber(2);
    NSKeyValueObserving::didChangeValueForKey(&record, q(u"number"));
    EXPECT_EQ(recorder.told(), QStringList());
    NSKeyValueObserving::didChangeValueForKey(&record, q(u"number"));
    EXPECT_EQ(recorder.told(), words(u"1>2"));
}

TEST(NSKeyValueObservation, ChangesOfListsHaveKindsAndIndexes)
{
    ObservedRecord record;
    Recorder recorder(&record, q(u"list"), NSKeyValueObservingOptionPrior);
    for (const NSKeyValueChangeKind kind :
         {NSKeyValueChangeInsertion, NSKeyValueChangeRemoval, NSKeyValueChangeReplacement}) {
        NSKeyValueObserving::willChange(kind, &record, {0, 2}, q(u"list"));
        NSKeyValueObserving::didChange(kind, &record, {0, 2}, q(u"list"));
    }
    EXPECT_EQ(recorder.told(),
              QStringList({q(u"before 2 ->- @0 @2"), q(u"2 ->- @0 @2"), q(u"before 3 ->- @0 @2"),
                           q(u"3 ->- @0 @2"), q(u"before 4 ->- @0 @2"), q(u"4 ->- @0 @2")}));
}

TEST(NSKeyValueObservation, TellsInTheOrderOfAdding)
{
    ObservedRecord record, other;
    record.setNext(&other);
    QStringList order;
    const auto note = [&order](const char16_t *name) {
        return [&order, name](const NSKeyValueChange &) { order += q(name); };
    };
    const NSKeyValueObservation first(&record, q(u"next.number"), 0, note(u"1"));
    const NSKeyValueObservation second(&other, q(u"number"), 0, note(u"2"));
    const NSKeyValueObservation third(&other, q(u"number"), 0, note(u"3"));
    other.setNumber(1);
    EXPECT_EQ(order, words(u"1 2 3"));
    // The first one comes back to the same object, and to its place.
    record.setNext(nullptr);
    record.setNext(&other);
    order.clear();
    other.setNumber(2);
    EXPECT_EQ(order, words(u"1 2 3"));
}

TEST(NSKeyValueObservation, AChangeInsideOfANotificationIsToldAtOnce)
{
    ObservedRecord record(q(u"a"), 1);
    const NSKeyValueObservation corrects(&record, q(u"number"), 0, [&](const NSKeyValueChange &) {
        if (record.number() == 2)
            record.setNumber(3);
    });
    Recorder recorder(&record, q(u"number"));
    record.setNumber(2);
    EXPECT_EQ(recorder.told(), words(u"1>3 3>3"));
}

TEST(NSKeyValueObservation, TheObservedObjectMayGoFirst)
{
    auto record = std::make_unique<ObservedRecord>();
    Recorder recorder(record.get(), q(u"number"));
    EXPECT_TRUE(recorder.isActive());
    record.reset();
    EXPECT_FALSE(recorder.isActive());
    EXPECT_EQ(recorder.told(), QStringList());
    recorder.invalidate();
}

TEST(NSKeyValueObservation, AnObjectInTheMiddleMayGoFirst)
{
    ObservedRecord record;
    auto middle = std::make_unique<ObservedRecord>(q(u"m"), 5);
    record.setNext(middle.get());
    Recorder recorder(&record, q(u"next.number"));
    middle.reset();
    EXPECT_EQ(recorder.told(), QStringList());
    EXPECT_TRUE(recorder.isActive());
    record.setNext(nullptr);
    EXPECT_EQ(recorder.told(), words(u"5>nil"));
    ObservedRecord other(q(u"o"), 6);
    record.setNext(&other);
    other.setNumber(7);
    EXPECT_EQ(recorder.told(), words(u"nil>6 6>7"));
}

TEST(NSKeyValueObservation, ObservationsMayEndInsideOfANotification)
{
    ObservedRecord record;
    int calls = 0;
    NSKeyValueObservation self, other;
    self = NSKeyValueObservation(&record, q(u"number"), 0, [&](const NSKeyValueChange &) {
        ++calls;
        self.invalidate();
        other.invalidate();
    });
    other = NSKeyValueObservation(&record, q(u"number"), 0,
                                  [&](const NSKeyValueChange &) { calls += 100; });
    record.setNumber(1);
    record.setNumber(2);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(self.isActive() || other.isActive());
}

TEST(NSKeyValueObservation, ObservationsAddedInsideOfANotificationWait)
{
    ObservedRecord record;
    int calls = 0;
    NSKeyValueObservation added;
    const NSKeyValueObservation adds(&record, q(u"number"), 0, [&](const NSKeyValueChange &) {
        if (!added.isActive())
            added = NSKeyValueObservation(&record, q(u"number"), 0,
                                          [&](const NSKeyValueChange &) { ++calls; });
    });
    record.setNumber(1);
    EXPECT_EQ(calls, 0);
    record.setNumber(2);
    EXPECT_EQ(calls, 1);
}

TEST(NSKeyValueObservation, TheObjectMayGoInsideOfANotification)
{
    auto *const record = new ObservedRecord;
    int calls = 0;
    const NSKeyValueObservation deletes(record, q(u"name"), 0, [&](const NSKeyValueChange &) {
        ++calls;
        delete record;
    });
    const NSKeyValueObservation behind(record, q(u"name"), 0,
                                       [&](const NSKeyValueChange &) { calls += 100; });
    NSKeyValueObserving::didChangeValueForKey(record, q(u"name"));
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(behind.isActive());
}

TEST(NSKeyValueObservation, TheObjectMayGoWithWhatWasAddedInsideOfTheNotification)
{
    auto *const record = new ObservedRecord;
    NSKeyValueObservation added;
    const NSKeyValueObservation adds(record, q(u"name"), 0, [&](const NSKeyValueChange &) {
        added = NSKeyValueObservation(record, q(u"name"), 0, [](const NSKeyValueChange &) {});
    });
    const NSKeyValueObservation deletes(record, q(u"name"), 0,
                                        [&](const NSKeyValueChange &) { delete record; });
    NSKeyValueObserving::didChangeValueForKey(record, q(u"name"));
    EXPECT_FALSE(adds.isActive());
    EXPECT_FALSE(added.isActive());
}

TEST(NSKeyValueObservation, AllKeysAreToldInTheOrderInWhichTheyCameToBeObserved)
{
    ObservedStandIn object;
    QStringList keys, told;
    for (int number = 0; number < 20; ++number)
        keys += u"key" + QString::number(number * 7 % 20);
    std::vector<NSKeyValueObservation> observations;
    for (const QString &key : std::as_const(keys)) {
        object.values.insert(key, 1);
        observations.emplace_back(&object, key, 0,
                                  [&told, key](const NSKeyValueChange &) { told += key; });
    }
    NSKeyValueObserving::didChangeAllValues(&object);
    EXPECT_EQ(told, keys);
}

TEST(NSKeyValueObservation, TheLastObserverMayBeFollowedByAnother)
{
    class Follower : public ObservedStandIn
    {
    public:
        void lastObserverWent(const QString &key) override
        {
            ObservedStandIn::lastObserverWent(key);
            if (follows)
                next = NSKeyValueObservation(this, key, 0,
                                             [this](const NSKeyValueChange &) { ++calls; });
            follows = false;
        }
        NSKeyValueObservation next;
        bool follows = true;
        int calls = 0;
    } object;
    object.values = {{q(u"x"), 1}};
    NSKeyValueObservation(&object, q(u"x"), 0, [](const NSKeyValueChange &) {}).invalidate();
    EXPECT_EQ(object.observedKeys, words(u"x"));
    NSKeyValueObserving::didChangeValueForKey(&object, q(u"x"));
    EXPECT_EQ(object.calls, 1);
}

TEST(NSKeyValueObservation, TheLastObserverMayTakeTheObjectAlong)
{
    class Leaver : public ObservedStandIn
    {
    public:
        void lastObserverWent(const QString &) override { delete this; }
    };
    const QPointer<Leaver> object = new Leaver;
    object->values = {{q(u"x"), 1}};
    NSKeyValueObservation(object, q(u"x"), 0, [](const NSKeyValueChange &) {}).invalidate();
    EXPECT_FALSE(object);
}

TEST(NSKeyValueObservation, WhatChangesWithTheLastObserverConcernsNobody)
{
    class Resetter : public ObservedNumber
    {
    public:
        void lastObserverWent(const QString &) override { setNumber(0); }
    } object;
    object.setNumber(5);
    {
        Recorder recorder(&object, q(u"number"));
        object.setNumber(6);
        EXPECT_EQ(recorder.told(), words(u"5>6"));
    }
    EXPECT_EQ(object.number(), 0);
    EXPECT_EQ(object.receivers(SIGNAL(numberChanged())), 0);
}

TEST(NSKeyValueObservation, TheFirstObserverMayBeFollowedByOneThatGoesAtOnce)
{
    class Peeker : public ObservedStandIn
    {
    public:
        void firstObserverCame(const QString &key) override
        {
            ObservedStandIn::firstObserverCame(key);
            NSKeyValueObservation(this, key, 0, [](const NSKeyValueChange &) {}).invalidate();
        }
    } object;
    object.values = {{q(u"x"), 1}};
    {
        Recorder recorder(&object, q(u"x"));
        EXPECT_EQ(object.observedKeys, words(u"x"));
        object.values = {{q(u"x"), 2}};
        NSKeyValueObserving::didChangeValueForKey(&object, q(u"x"));
        EXPECT_EQ(recorder.told(), words(u"1>2"));
    }
    EXPECT_EQ(object.observedKeys, QStringList());
}

TEST(NSKeyValueObservation, TheFirstObserverMayBeFollowedByOneThatStays)
{
    class Joiner : public ObservedStandIn
    {
    public:
        void firstObserverCame(const QString &key) override
        {
            ObservedStandIn::firstObserverCame(key);
            joined = NSKeyValueObservation(this, key, 0,
                                           [this](const NSKeyValueChange &) { told += q(u"b"); });
        }
        QStringList told;
        NSKeyValueObservation joined;
    } object;
    object.values = {{q(u"x"), 1}};
    {
        const NSKeyValueObservation first(
            &object, q(u"x"), 0, [&](const NSKeyValueChange &) { object.told += q(u"a"); });
        NSKeyValueObserving::didChangeValueForKey(&object, q(u"x"));
        EXPECT_EQ(object.told, words(u"a b"));
    }
    NSKeyValueObserving::didChangeValueForKey(&object, q(u"x"));
    EXPECT_EQ(object.told, words(u"a b b"));
    object.joined.invalidate();
    EXPECT_EQ(object.observedKeys, QStringList());
}

TEST(NSKeyValueObservation, TheObjectMayGoWithItsFirstObserver)
{
    class Fugitive : public ObservedNumber
    {
    public:
        void firstObserverCame(const QString &) override { delete this; }
    };
    const NSKeyValueObservation none(new Fugitive, q(u"number"), 0,
                                     [](const NSKeyValueChange &) {});
    EXPECT_FALSE(none.isActive());
    // On a path, another object may come.
    ObservedRecord record, good(q(u"good"), 3);
    record.setNext(new Fugitive);
    Recorder recorder(&record, q(u"next.number"));
    EXPECT_FALSE(record.next());
    record.setNext(&good);
    EXPECT_EQ(recorder.told(), words(u"nil>3"));
}

TEST(NSKeyValueObservation, ObjectsThatRejectObservers)
{
    class Rejecter : public ObservedStandIn
    {
    public:
        void firstObserverCame(const QString &key) override
        {
            if (rejects)
                throw std::runtime_error("no");
            ObservedStandIn::firstObserverCame(key);
        }
        bool rejects = true;
    } object;
    object.values = {{q(u"x"), 1}};
    EXPECT_THROW(Recorder(&object, q(u"x")), std::runtime_error);
    NSKeyValueObserving::didChangeAllValues(&object);
    object.rejects = false;
    Recorder recorder(&object, q(u"x"));
    EXPECT_EQ(object.observedKeys, words(u"x"));
}

TEST(NSKeyValueObservation, ExceptionsPassAndHarmNothing)
{
    ObservedRecord record;
    bool throws = true;
    const NSKeyValueObservation thrower(&record, q(u"number"), 0, [&](const NSKeyValueChange &) {
        if (throws)
            NSException::raise(NSRangeException, q(u"no"));
    });
    Recorder recorder(&record, q(u"number"));
    EXPECT_THROW(NSKeyValueObserving::didChangeValueForKey(&record, q(u"number")), NSException);
    throws = false;
    record.setNumber(2);
    EXPECT_EQ(recorder.told(), words(u"0>2"));
}

TEST(NSKeyValueObservation, TheLastObserverMayGoAndRaiseBeforeAChange)
{
    ObservedRecord record;
    std::unique_ptr<NSKeyValueObservation> last;
    last = std::make_unique<NSKeyValueObservation>(
        &record, q(u"silent"), NSKeyValueObservingOptionPrior, [&](const NSKeyValueChange &) {
            last.reset();
            NSException::raise(NSRangeException, q(u"no"));
        });
    EXPECT_THROW(NSKeyValueObserving::willChangeValueForKey(&record, q(u"silent")), NSException);
    EXPECT_FALSE(last);
    Recorder recorder(&record, q(u"silent"));
    NSKeyValueCoding::setValue(&record, 4, q(u"silent"));
    EXPECT_EQ(recorder.told(), words(u"0>4"));
}

TEST(NSKeyValueObservation, WhoRaisesKeepsNoOtherKeyFromBeingTold)
{
    ObservedStandIn object;
    object.values = {{q(u"x"), 1}, {q(u"y"), 2}};
    const NSKeyValueObservation thrower(&object, q(u"x"), 0, [](const NSKeyValueChange &) {
        NSException::raise(NSRangeException, q(u"no"));
    });
    Recorder recorder(&object, q(u"y"));
    object.values = {{q(u"x"), 3}, {q(u"y"), 4}};
    EXPECT_THROW(NSKeyValueObserving::didChangeAllValues(&object), NSException);
    EXPECT_EQ(recorder.told(), words(u"2>4"));
}

TEST(NSKeyValueObservation, UnknownKeysRaise)
{
    ObservedRecord record, next;
    record.setNext(&next);
    for (const char16_t *path : {u"none", u"next.none", u"none.name", u"", u".", u"next."}) {
        EXPECT_THROW(Recorder(&record, q(path)), NSException) << q(path).toStdString();
    }
    // Nothing of the path is observed then.
    EXPECT_EQ(record.receivers(SIGNAL(nextChanged())), 0);
}

TEST(NSKeyValueObservation, ObjectsThatComeWithoutTheKeyHaveNoValue)
{
    ObservedRecord record, good(q(u"good"), 3);
    QObject bad;
    record.setAny(QVariant::fromValue<QObject *>(&good));
    Recorder recorder(&record, q(u"any.number"));
    record.setAny(QVariant::fromValue(&bad));
    EXPECT_EQ(recorder.told(), words(u"3>nil"));
    record.setAny(QVariant(5));
    EXPECT_EQ(recorder.told(), words(u"nil>nil"));
    record.setAny(QVariant::fromValue<QObject *>(&good));
    EXPECT_EQ(recorder.told(), words(u"nil>3"));
}

TEST(NSKeyValueObservation, NothingIsLeftBehind)
{
    ObservedRecord record, next;
    record.setNext(&next);
    {
        Recorder one(&record, q(u"next.number"));
        Recorder two(&record, q(u"next.number"));
        EXPECT_EQ(record.receivers(SIGNAL(nextChanged())), 1);
    }
    EXPECT_EQ(record.receivers(SIGNAL(nextChanged())), 0);
    EXPECT_EQ(next.receivers(SIGNAL(numberChanged())), 0);
    EXPECT_EQ(next.receivers(SIGNAL(destroyed(QObject *))), 0);
}

TEST(NSKeyValueObservation, ObjectsThatAnswerKeysThemselves)
{
    ObservedStandIn object;
    object.values = {{q(u"x"), 1}};
    EXPECT_EQ(NSKeyValueCoding::valueForKey(&object, q(u"x")), QVariant(1));
    EXPECT_EQ(NSKeyValueCoding::valueForKey(&object, q(u"plain")), QVariant(7));
    EXPECT_THROW(NSKeyValueCoding::valueForKey(&object, q(u"y")), NSException);
    {
        Recorder recorder(&object, q(u"x"));
        EXPECT_EQ(object.observedKeys, words(u"x"));
        NSKeyValueCoding::setValue(&object, 2, q(u"x"));
        NSKeyValueObserving::didChangeValueForKey(&object, q(u"x"));
        EXPECT_EQ(recorder.told(), words(u"1>2"));
        object.values.insert(q(u"x"), 3);
        NSKeyValueObserving::didChangeAllValues(&object);
        EXPECT_EQ(recorder.told(), words(u"2>3"));
    }
    EXPECT_EQ(object.observedKeys, QStringList());
    NSKeyValueCoding::setValue(&object, 8, q(u"plain"));
    EXPECT_EQ(object.plain, 8);
}

TEST(NSKeyValueObservation, ObservingNothingIsHarmless)
{
    Recorder nothing(nullptr, q(u"a"));
    EXPECT_FALSE(nothing.isActive());
    NSKeyValueObservation empty;
    EXPECT_FALSE(empty.isActive());
    empty.invalidate();
    NSKeyValueObserving::didChangeValueForKey(nullptr, q(u"a"));
    NSKeyValueObserving::didChangeAllValues(nullptr);
}

TEST(NSKeyValueObservation, TheObjectOfADynamicPropertyMayGoInsideOfANotification)
{
    testing_support::needApplication();
    for (const bool isOnAPath : {false, true}) {
        ObservedRecord record;
        auto object = std::make_unique<QObject>();
        object->setProperty("x", 1);
        record.setAny(QVariant::fromValue(object.get()));
        QObject *const root = isOnAPath ? &record : object.get();
        const NSKeyValueObservation first(root, isOnAPath ? q(u"any.x") : q(u"x"), Both,
                                          [&](const NSKeyValueChange &) {
                                              if (object)
                                                  object.reset();
                                          });
        Recorder second(object.get(), q(u"x"));
        object->setProperty("x", 2);
        EXPECT_FALSE(object);
        EXPECT_FALSE(second.isActive());
        record.setAny({});
    }
}

TEST(NSKeyValueObservation, NoExceptionLeavesASignal)
{
    testing_support::needApplication();
    ObservedRecord record;
    int value = 1;
    record.setProperty("x", value);
    for (const QString &key : {q(u"number"), q(u"x")}) {
        const NSKeyValueObservation platform(&record, key, 0, [](const NSKeyValueChange &) {
            NSException::raise(NSRangeException, q(u"raised"));
        });
        const NSKeyValueObservation other(&record, key, 0,
                                          [](const NSKeyValueChange &) { throw 5; });
        Recorder recorder(&record, key);
        const QString output = testing_support::standardErrorOf([&] {
            EXPECT_NO_THROW(record.setNumber(++value));
            EXPECT_NO_THROW(record.setProperty("x", value));
        });
        EXPECT_TRUE(output.contains(u"raised"));
        EXPECT_EQ(recorder.told().size(), 1);
    }
}

TEST(NSKeyValueObservation, WhatIsObservedInsideOfANotificationIsToldOfTheNextChange)
{
    ObservedRecord record;
    std::unique_ptr<Recorder> late;
    const NSKeyValueObservation observation(
        &record, q(u"number"), 0, [&](const NSKeyValueChange &) {
            if (late)
                return;
            late = std::make_unique<Recorder>(&record, q(u"number"));
            record.setNumber(2);
        });
    record.setNumber(1);
    ASSERT_TRUE(late);
    EXPECT_EQ(late->told(), words(u"1>2"));
    record.setNumber(3);
    EXPECT_EQ(late->told(), words(u"2>3"));
}

TEST(NSKeyValueObservation, GettersMayLeadToOtherObjects)
{
    // Reading the middle of the path replaces it, once.
    class Shifting : public QObject, public NSKeyValueCodingObject
    {
    public:
        std::optional<QVariant> valueForKey(const QString &) const override
        {
            if (action)
                std::exchange(action, nullptr)();
            return QVariant::fromValue(next);
        }
        bool setValueForKey(const QVariant &, const QString &) override { return false; }
        void *qt_metacast(const char *name) override
        {
            if (qstrcmp(name, qobject_interface_iid<NSKeyValueCodingObject *>()) == 0)
                return static_cast<NSKeyValueCodingObject *>(this);
            return QObject::qt_metacast(name);
        }
        ObservedRecord *next = nullptr;
        mutable std::function<void()> action;
    } object;
    ObservedRecord first(q(u"first")), second(q(u"second"));
    object.next = &first;
    auto recorder = std::make_unique<Recorder>(&object, q(u"next.name"));
    object.action = [&] {
        object.next = &second;
        NSKeyValueObserving::didChangeValueForKey(&object, q(u"next"));
    };
    NSKeyValueObserving::didChangeValueForKey(&object, q(u"next"));
    EXPECT_EQ(first.receivers(SIGNAL(nameChanged())), 0);
    EXPECT_EQ(second.receivers(SIGNAL(nameChanged())), 1);
    // And one that ends the observation leaves nothing behind.
    object.action = [&] { recorder->invalidate(); };
    NSKeyValueObserving::didChangeValueForKey(&object, q(u"next"));
    EXPECT_EQ(second.receivers(SIGNAL(nameChanged())), 0);
}
