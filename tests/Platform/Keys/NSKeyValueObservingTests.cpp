#include <KTUtility/NSKeyValueObserving>

#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>

#include "support/ObservedModel.h"
#include "support/TestSupport.h"

namespace {
const QString Number = QStringLiteral("number");
const QString Name = QStringLiteral("name");

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
                                     QStringLiteral("!"));
    record.setNumber(3);
    EXPECT_EQ(observer.told, QStringList(QStringLiteral("number=3!")));
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
    NSKeyValueObserving::addObserver(&record, &observer, Number, 0, QStringLiteral("a"));
    NSKeyValueObserving::addObserver(&record, &observer, Number, 0, QStringLiteral("b"));
    record.setNumber(1);
    EXPECT_EQ(observer.told, QStringList({QStringLiteral("number=a"), QStringLiteral("number=b")}));
    NSKeyValueObserving::removeObserver(&record, &observer, Number);
    observer.told.clear();
    record.setNumber(2);
    EXPECT_EQ(observer.told, QStringList(QStringLiteral("number=a")));
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
    EXPECT_THROW(NSKeyValueObserving::addObserver(&record, &observer, QStringLiteral("none"), 0),
                 NSException);
    EXPECT_THROW(NSKeyValueObserving::removeObserver(&record, &observer, QStringLiteral("none")),
                 NSException);
    NSKeyValueObserving::addObserver(nullptr, &observer, Number, 0);
    NSKeyValueObserving::addObserver(&record, nullptr, Number, 0);
    EXPECT_EQ(record.receivers(SIGNAL(numberChanged())), 0);
}

TEST(KeyPathSetting, SetsTheEndOfThePath)
{
    ObservedRecord record, next;
    record.setNext(&next);
    NSKeyValueCoding::setValueForKeyPath(&record, 5, QStringLiteral("next.number"));
    EXPECT_EQ(next.number(), 5);
    NSKeyValueCoding::setValueForKeyPath(&record, 6, Number);
    EXPECT_EQ(record.number(), 6);
    next.setNext(nullptr);
    NSKeyValueCoding::setValueForKeyPath(&record, 7, QStringLiteral("next.next.number"));
    NSKeyValueCoding::setValueForKeyPath(nullptr, 7, Number);
}

TEST(KeyPathSetting, MapsAreChangedAndPutBack)
{
    ObservedRecord record;
    record.setMap({{QStringLiteral("a"), QVariantMap{{QStringLiteral("b"), 1}}}});
    NSKeyValueCoding::setValueForKeyPath(&record, 2, QStringLiteral("map.a.b"));
    EXPECT_EQ(record.map().value(QStringLiteral("a")).toMap().value(QStringLiteral("b")),
              QVariant(2));
    NSKeyValueCoding::setValueForKeyPath(&record, QVariant(), QStringLiteral("map.a.b"));
    EXPECT_TRUE(record.map().value(QStringLiteral("a")).toMap().isEmpty());
}

TEST(KeyPathSetting, ListsHaveEveryElementSet)
{
    ObservedRecord record, first, second;
    record.setList({QVariant::fromValue(&first), QVariant::fromValue(&second)});
    NSKeyValueCoding::setValueForKeyPath(&record, 9, QStringLiteral("list.number"));
    EXPECT_EQ(first.number() + second.number(), 18);
    record.setList({QVariantMap{{Name, 1}}, QVariantMap()});
    NSKeyValueCoding::setValueForKeyPath(&record, 2, QStringLiteral("list.name"));
    for (const QVariant &element : record.list())
        EXPECT_EQ(element.toMap().value(Name), QVariant(2));
}

TEST(KeyPathSetting, LongPathsEndWhereNothingIs)
{
    const QString path = QStringLiteral("map") + QStringLiteral(".a").repeated(300000);
    ObservedRecord record;
    EXPECT_FALSE(NSKeyValueCoding::valueForKeyPath(&record, path).isValid());
    NSKeyValueCoding::setValueForKeyPath(&record, 1, path);
    EXPECT_TRUE(record.map().isEmpty());
}

TEST(KeyPathSetting, KeysDoNotEndAtANul)
{
    ObservedRecord record(QStringLiteral("A"));
    const QString key = QStringLiteral("name") + QChar(u'\0') + QStringLiteral("x");
    EXPECT_THROW(NSKeyValueCoding::valueForKey(&record, key), NSException);
    EXPECT_THROW(NSKeyValueCoding::setValue(&record, 1, key), NSException);
    EXPECT_EQ(record.name(), QStringLiteral("A"));
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
