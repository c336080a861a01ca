// Values that are set through methods, along paths, and in lists and hashes.

#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>

#include "support/TestField.h"
#include "support/TestSupport.h"

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

TEST(NSKeyValueSetters, MethodsTakeTypedValues)
{
    Person person;
    setValue(&person, QStringLiteral("Ann"), QStringLiteral("nick"));
    setValue(&person, QStringLiteral("7"), QStringLiteral("rank"));
    setValue(&person, 2.5, QStringLiteral("extra"));
    EXPECT_EQ(person.nick, u"Ann");
    EXPECT_EQ(person.rank, 7);
    EXPECT_EQ(person.extra, QVariant(2.5));
    setValue(&person, QVariant(), QStringLiteral("nick"));
    EXPECT_TRUE(person.nick.isNull());
}

TEST(NSKeyValueSetters, WhatIsNoSetterIsNone)
{
    Person person;
    EXPECT_THROW(setValue(&person, 1, QStringLiteral("both")), NSException);
    EXPECT_THROW(setValue(&person, QVariant(), QStringLiteral("rank")), NSException);
    EXPECT_EQ(person.rank, 0);
}

TEST(NSKeyValueSetters, MethodsOfValuesAreCalled)
{
    QVariant badge = QVariant::fromValue(Badge());
    setValue(badge, 9, QStringLiteral("size"));
    EXPECT_EQ(badge.value<Badge>().size, 9);
}

TEST(NSKeyValueSetters, PathsThroughListsReachEveryElement)
{
    TestField one;
    TestField two;
    TestField parent;
    one._parent = &parent;
    Person person;
    person.fields = {QVariant::fromValue(&one), QVariant::fromValue(&two)};
    setValueForKeyPath(&person, 5, QStringLiteral("fields.size"));
    EXPECT_EQ(one.size() + two.size(), 10);
    // Where there is nothing on the way, nothing is set.
    setValueForKeyPath(&person, 8, QStringLiteral("fields.parent.size"));
    EXPECT_EQ(parent.size(), 8);
}

TEST(NSKeyValueSetters, WhatIsCopiedOnTheWayIsPutBack)
{
    Person person;
    const QVariantMap inner{{QStringLiteral("size"), 1}};
    person.fields = {QVariantMap{{QStringLiteral("box"), inner}}};
    setValueForKeyPath(&person, 4, QStringLiteral("fields.box.size"));
    EXPECT_EQ(valueForKeyPath(person.fields.at(0), QStringLiteral("box.size")), QVariant(4));
}

TEST(NSKeyValueSetters, HashesAnswerKeysAsMapsDo)
{
    Person person;
    person.notes.insert(QStringLiteral("colour"), QStringLiteral("red"));
    EXPECT_EQ(valueForKeyPath(&person, QStringLiteral("notes.colour")),
              QVariant(QStringLiteral("red")));
    EXPECT_FALSE(valueForKeyPath(&person, QStringLiteral("notes.none")).isValid());
    setValueForKeyPath(&person, QStringLiteral("blue"), QStringLiteral("notes.colour"));
    EXPECT_EQ(person.notes.value(QStringLiteral("colour")), QVariant(QStringLiteral("blue")));
    EXPECT_EQ(valueForKey(QVariant(person.notes), QStringLiteral("colour")),
              QVariant(QStringLiteral("blue")));
}

#include "NSKeyValueSettersTests.moc"
