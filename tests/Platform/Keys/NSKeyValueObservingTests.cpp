#include <KTUtility/NSKeyValueObserving>

#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>

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

TEST(KeyPathSetting, SetsTheEndOfThePath)
{
    ObservedRecord record, next;
    record.setNext(&next);
    NSKeyValueCoding::setValueForKeyPath(&record, 5, u"next.number"_s);
    EXPECT_EQ(next.number(), 5);
    NSKeyValueCoding::setValueForKeyPath(&record, 6, Number);
    EXPECT_EQ(record.number(), 6);
    next.setNext(nullptr);
    NSKeyValueCoding::setValueForKeyPath(&record, 7, u"next.next.number"_s);
    NSKeyValueCoding::setValueForKeyPath(nullptr, 7, Number);
}

TEST(KeyPathSetting, MapsAreChangedAndPutBack)
{
    ObservedRecord record;
    record.setMap({{u"a"_s, QVariantMap{{u"b"_s, 1}}}});
    NSKeyValueCoding::setValueForKeyPath(&record, 2, u"map.a.b"_s);
    EXPECT_EQ(record.map().value(u"a"_s).toMap().value(u"b"_s), QVariant(2));
    NSKeyValueCoding::setValueForKeyPath(&record, QVariant(), u"map.a.b"_s);
    EXPECT_TRUE(record.map().value(u"a"_s).toMap().isEmpty());
}

TEST(KeyPathSetting, ListsHaveEveryElementSet)
{
    ObservedRecord record, first, second;
    record.setList({QVariant::fromValue(&first), QVariant::fromValue(&second)});
    NSKeyValueCoding::setValueForKeyPath(&record, 9, u"list.number"_s);
    EXPECT_EQ(first.number() + second.number(), 18);
    record.setList({QVariantMap{{Name, 1}}, QVariantMap()});
    NSKeyValueCoding::setValueForKeyPath(&record, 2, u"list.name"_s);
    for (const QVariant &element : record.list())
        EXPECT_EQ(element.toMap().value(Name), QVariant(2));
}

TEST(KeyPathSetting, LongPathsEndWhereNothingIs)
{
    const QString path = u"map"_s + u".a"_s.repeated(300000);
    ObservedRecord record;
    EXPECT_FALSE(NSKeyValueCoding::valueForKeyPath(&record, path).isValid());
    NSKeyValueCoding::setValueForKeyPath(&record, 1, path);
    EXPECT_TRUE(record.map().isEmpty());
}

TEST(KeyPathSetting, KeysDoNotEndAtANul)
{
    ObservedRecord record(u"A"_s);
    const QString key = u"name"_s + QChar(u'\0') + u"x"_s;
    EXPECT_THROW(NSKeyValueCoding::valueForKey(&record, key), NSException);
    EXPECT_THROW(NSKeyValueCoding::setValue(&record, 1, key), NSException);
    EXPECT_EQ(record.name(), u"A"_s);
}

TEST(KeyPathSetting, UnknownKeysRaise)
{
    ObservedRecord record, next;
    record.setNext(&next);
    for (const char16_t *path : {u"none", u"next.none", u"none.name", u"", u"next."})
        EXPECT_THROW(NSKeyValueCoding::setValueForKeyPath(&record, 1, QString::fromUtf16(path)),
                     NSException)
            << QString::fromUtf16(path).toStdString();
}
