#include <KTUtility/NSKeyValueObserving>

#include <KTUtility/NSException>

#include "support/ObservedModel.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
const QString Number = u"number"_s;
const QString Name = u"name"_s;

class Observer : public NSKeyValueObserver
{
public:
    void observeValueForKeyPath(const QString &keyPath, QObject *ofObject,
                                const NSKeyValueChange &change, const QString &context) override
    {
        told += keyPath + u'=' + change.newValue.value_or(QVariant()).toString() + context;
        object = ofObject;
    }

    QStringList told;
    QObject *object = nullptr;
};
} // namespace

TEST(NSKeyValueObserving, TellsTheObserver)
{
    ObservedRecord record;
    Observer observer;
    NSKeyValueObserving::addObserver(&record, &observer, Number, NSKeyValueObservingOptionNew,
                                     u"!"_s);
    record.setNumber(3);
    EXPECT_EQ(observer.told, QStringList(u"number=3!"_s));
    EXPECT_EQ(observer.object, &record);
    NSKeyValueObserving::removeObserver(&record, &observer, Number);
    record.setNumber(4);
    EXPECT_EQ(observer.told.size(), 1);
}

TEST(NSKeyValueObserving, RemovingWhatIsNotObservedRaises)
{
    ObservedRecord record;
    Observer observer;
    EXPECT_THROW(NSKeyValueObserving::removeObserver(&record, &observer, Number), NSException);
    NSKeyValueObserving::addObserver(&record, &observer, Number, 0);
    EXPECT_THROW(NSKeyValueObserving::removeObserver(&record, &observer, Name), NSException);
    NSKeyValueObserving::removeObserver(&record, &observer, Number);
    EXPECT_THROW(NSKeyValueObserving::removeObserver(&record, &observer, Number), NSException);
    NSKeyValueObserving::removeObserver(nullptr, &observer, Number);
}

TEST(NSKeyValueObserving, WhatIsAddedTwiceIsToldTwice)
{
    ObservedRecord record;
    Observer observer;
    NSKeyValueObserving::addObserver(&record, &observer, Number, 0, u"a"_s);
    NSKeyValueObserving::addObserver(&record, &observer, Number, 0, u"b"_s);
    record.setNumber(1);
    EXPECT_EQ(observer.told, QStringList({u"number=a"_s, u"number=b"_s}));
    NSKeyValueObserving::removeObserver(&record, &observer, Number);
    observer.told.clear();
    record.setNumber(2);
    EXPECT_EQ(observer.told, QStringList(u"number=a"_s));
}

TEST(NSKeyValueObserving, EitherSideMayGoFirst)
{
    ObservedRecord record;
    {
        Observer observer;
        NSKeyValueObserving::addObserver(&record, &observer, Number, 0);
        EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 1);
    }
    EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 0);
    Observer observer;
    {
        ObservedRecord shortLived;
        NSKeyValueObserving::addObserver(&shortLived, &observer, Number, 0);
    }
    EXPECT_TRUE(observer.told.isEmpty());
}

TEST(NSKeyValueObserving, UnknownKeysRaiseAndRegisterNothing)
{
    ObservedRecord record;
    Observer observer;
    EXPECT_THROW(NSKeyValueObserving::addObserver(&record, &observer, u"none"_s, 0), NSException);
    EXPECT_THROW(NSKeyValueObserving::removeObserver(&record, &observer, u"none"_s), NSException);
    NSKeyValueObserving::addObserver(nullptr, &observer, Number, 0);
    NSKeyValueObserving::addObserver(&record, nullptr, Number, 0);
    EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 0);
}

TEST(NSKeyValueObserving, ObserversMayGoInTheInitialCall)
{
    class Fleeting : public NSKeyValueObserver
    {
    public:
        void observeValueForKeyPath(const QString &keyPath, QObject *ofObject,
                                    const NSKeyValueChange &, const QString &) override
        {
            ++calls;
            if (isDeleted)
                delete this;
            else
                NSKeyValueObserving::removeObserver(ofObject, this, keyPath);
        }
        bool isDeleted = false;
        int calls = 0;
    };
    ObservedRecord record;
    auto *const deleted = new Fleeting;
    deleted->isDeleted = true;
    NSKeyValueObserving::addObserver(&record, deleted, Number, NSKeyValueObservingOptionInitial);
    EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 0);
    Fleeting removed;
    NSKeyValueObserving::addObserver(&record, &removed, Number, NSKeyValueObservingOptionInitial);
    EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 0);
    record.setNumber(5);
    EXPECT_EQ(removed.calls, 1);
    EXPECT_THROW(NSKeyValueObserving::removeObserver(&record, &removed, Number), NSException);
}

TEST(NSKeyValueObserving, WhatRaisesInTheInitialCallIsNotRegistered)
{
    class Raising : public NSKeyValueObserver
    {
    public:
        void observeValueForKeyPath(const QString &, QObject *, const NSKeyValueChange &,
                                    const QString &) override
        {
            NSException::raise(NSRangeException, u"no"_s);
        }
    } observer;
    ObservedRecord record;
    EXPECT_THROW(NSKeyValueObserving::addObserver(&record, &observer, Number,
                                                  NSKeyValueObservingOptionInitial),
                 NSException);
    EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 0);
    EXPECT_FALSE(NSKeyValueObserving::removeObserverIfAdded(&record, &observer, Number));
}

TEST(NSKeyValueObserving, TakingBackMayBeAskedFor)
{
    ObservedRecord record;
    Observer observer;
    NSKeyValueObserving::addObserver(&record, &observer, Number, 0);
    EXPECT_TRUE(NSKeyValueObserving::removeObserverIfAdded(&record, &observer, Number));
    EXPECT_FALSE(NSKeyValueObserving::removeObserverIfAdded(&record, &observer, Number));
    EXPECT_FALSE(NSKeyValueObserving::removeObserverIfAdded(nullptr, &observer, Number));
}
