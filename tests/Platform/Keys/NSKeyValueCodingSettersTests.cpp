// Values that are set through methods, along paths, and in lists and hashes.

#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>

#include "support/TestField.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using NSKeyValueCoding::setValue;
using NSKeyValueCoding::setValueForKeyPath;
using NSKeyValueCoding::valueForKey;
using NSKeyValueCoding::valueForKeyPath;

namespace {
/// Has setters and no properties, but for what it holds.
class Person : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList fields MEMBER fields)
    Q_PROPERTY(QVariantHash notes MEMBER notes)

public:
    Q_INVOKABLE void setNick(const QString &value) { nick = value; }
    Q_INVOKABLE void _setRank(int value) { rank = value; }
    Q_INVOKABLE void setExtra(const QVariant &value) { extra = value; }
    Q_INVOKABLE void setBoth(int, int) { rank = -1; }

    QString nick;
    int rank = 0;
    QVariant extra;
    QVariantList fields;
    QVariantHash notes;
};

/// The same as a value.
class Badge
{
    Q_GADGET

public:
    Q_INVOKABLE void setSize(int value) { size = value; }

    int size = 0;
};
} // namespace

TEST(NSKeyValueCodingSetters, MethodsTakeTypedValues)
{
    Person person;
    setValue(&person, u"Ann"_s, u"nick"_s);
    setValue(&person, u"7"_s, u"rank"_s);
    setValue(&person, 2.5, u"extra"_s);
    EXPECT_EQ(person.nick, u"Ann");
    EXPECT_EQ(person.rank, 7);
    EXPECT_EQ(person.extra, QVariant(2.5));
    setValue(&person, QVariant(), u"nick"_s);
    EXPECT_TRUE(person.nick.isNull());
}

TEST(NSKeyValueCodingSetters, WhatIsNoSetterIsNone)
{
    Person person;
    EXPECT_THROW(setValue(&person, 1, u"both"_s), NSException);
    EXPECT_THROW(setValue(&person, QVariant(), u"rank"_s), NSException);
    EXPECT_EQ(person.rank, 0);
}

TEST(NSKeyValueCodingSetters, MethodsOfValuesAreCalled)
{
    QVariant badge = QVariant::fromValue(Badge());
    setValue(badge, 9, u"size"_s);
    EXPECT_EQ(badge.value<Badge>().size, 9);
}

TEST(NSKeyValueCodingSetters, PathsThroughListsReachEveryElement)
{
    TestField one;
    TestField two;
    TestField parent;
    one._parent = &parent;
    Person person;
    person.fields = {QVariant::fromValue(&one), QVariant::fromValue(&two)};
    setValueForKeyPath(&person, 5, u"fields.size"_s);
    EXPECT_EQ(one.size() + two.size(), 10);
    // Where there is nothing on the way, nothing is set.
    setValueForKeyPath(&person, 8, u"fields.parent.size"_s);
    EXPECT_EQ(parent.size(), 8);
}

TEST(NSKeyValueCodingSetters, WhatIsCopiedOnTheWayIsPutBack)
{
    Person person;
    const QVariantMap inner{{u"size"_s, 1}};
    person.fields = {QVariantMap{{u"box"_s, inner}}};
    setValueForKeyPath(&person, 4, u"fields.box.size"_s);
    EXPECT_EQ(valueForKeyPath(person.fields.at(0), u"box.size"_s), QVariant(4));
}

TEST(NSKeyValueCodingSetters, HashesAnswerKeysAsMapsDo)
{
    Person person;
    person.notes.insert(u"colour"_s, u"red"_s);
    EXPECT_EQ(valueForKeyPath(&person, u"notes.colour"_s), QVariant(u"red"_s));
    EXPECT_FALSE(valueForKeyPath(&person, u"notes.none"_s).isValid());
    setValueForKeyPath(&person, u"blue"_s, u"notes.colour"_s);
    EXPECT_EQ(person.notes.value(u"colour"_s), QVariant(u"blue"_s));
    EXPECT_EQ(valueForKey(QVariant(person.notes), u"colour"_s), QVariant(u"blue"_s));
}

#include "NSKeyValueCodingSettersTests.moc"
