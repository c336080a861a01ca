// Unique names and moves over random lists, beside the rules written out step by step.

#include <KTUtility/NSArray_KTAdditions>
#include <KTUtility/NSException>
#include <KTUtility/NSStringCase>

#include "support/Properties.h"
#include "support/TestSupport.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

using namespace testing_support;

namespace {
const QString Name = u"name"_s;

/// Bases that clash with each other when blanks go, when letter case does, and with their numbers.
const QStringList &bases()
{
    static const QStringList texts = {
        u"Field"_s,        u" Field\n"_s, u"Fi eld"_s, u"field"_s, u"FIELD"_s,    u"Field 1"_s,
        u"Field1"_s,       u"1"_s,        u"Straße"_s, u"ΟΔΟΣ"_s,  u"İstanbul"_s, u"e\u0301"_s,
        u"\u00a0姓\t名"_s, u"%@ %d"_s,
    };
    return texts;
}

QString someSuffix()
{
    static const QStringList suffixes = {QString(), u" 1"_s, u"1"_s, u" 01"_s, u" "_s, u" 1 "_s};
    if (someBool())
        return someOf(suffixes);
    return (someBool() ? u" "_s : QString()) + QString::number(someNumber(1, 12));
}

QVariant someName(const QString &base)
{
    switch (someNumber(0, 9)) {
    case 0:
        return {};
    case 1:
        return someNumber(0, 3);
    case 2:
        return someOf(bases());
    case 3:
        return NSString::lowercaseString(base.simplified() + someSuffix());
    case 4:
        return QString(base.simplified().toUpper() + someSuffix());
    default:
        return QString(base.simplified() + someSuffix());
    }
}

QVariantList someNamed(const QString &base)
{
    QVariantList list;
    for (int count = someNumber(0, 14); count > 0; --count)
        list += QVariantMap{{Name, someName(base)}};
    return list;
}

bool isTaken(const QVariantList &list, const QString &candidate, bool ignoresCase)
{
    for (const QVariant &element : list) {
        const QVariant value = element.toMap().value(Name);
        if (value.typeId() != QMetaType::QString)
            continue;
        const QString name = value.toString();
        if ((ignoresCase ? NSString::lowercaseString(name) : name) == candidate)
            return true;
    }
    return false;
}

/// The number of the first free candidate, tried one after the other; 0 for the base alone.
int firstFree(const QVariantList &list, const QString &base, const QString &separator,
              bool ignoresCase)
{
    QString candidate = base;
    int number = 0;
    while (isTaken(list, candidate, ignoresCase))
        candidate = base + separator + QString::number(++number);
    return number;
}

QString numbered(const QString &base, const QString &separator, int number)
{
    return number == 0 ? base : QString(base + separator + QString::number(number));
}

QString withoutBlanks(const QString &text)
{
    QString rest;
    for (const QChar character : text) {
        if (!character.isSpace())
            rest += character;
    }
    return rest;
}

QStringList movedStepByStep(const QStringList &list, const QString &object, qsizetype toIndex)
{
    const std::optional<QString> anchor =
        toIndex >= 0 && toIndex < list.size() ? std::optional(list.at(toIndex)) : std::nullopt;
    if (anchor == object)
        return list;
    QStringList result;
    bool isPlaced = false;
    for (const QString &element : list) {
        if (element == object)
            continue;
        if (!isPlaced && element == anchor) {
            result += object;
            isPlaced = true;
        }
        result += element;
    }
    if (!isPlaced)
        result += object;
    return result;
}

QStringList someLetters(int longest)
{
    QStringList list;
    for (int count = someNumber(0, longest); count > 0; --count)
        list += QString(QChar(u'a' + char16_t(someNumber(0, 6))));
    return list;
}
} // namespace

TEST(CollectionModel, NamesForPeopleAreTheFirstFreeOnes)
{
    checkProperty("uniqueStringWithBase", 1500, [] {
        const QString base = someOf(bases());
        const QVariantList list = someNamed(base);
        const QString trimmed = base.trimmed();
        const QString expected = numbered(trimmed, u" "_s, firstFree(list, trimmed, u" "_s, false));
        requireSame(KTAdditions::uniqueStringWithBase(list, base), expected);
    });
}

TEST(CollectionModel, InternalNamesAreTheFirstFreeOnes)
{
    checkProperty("internalUniqueStringWithBase", 1500, [] {
        const QString base = someOf(bases());
        const QVariantList list = someNamed(base);
        const QString stripped = withoutBlanks(base);
        const QString expected =
            numbered(stripped, QString(), firstFree(list, stripped, QString(), false));
        requireSame(KTAdditions::internalUniqueStringWithBase(list, base, Name), expected);
    });
}

TEST(CollectionModel, InternalNamesMayHaveToDifferInMoreThanCase)
{
    checkProperty("internalCaseInsensitiveUniqueStringWithBase", 1500, [] {
        const QString base = someOf(bases());
        const QVariantList list = someNamed(base);
        const QString stripped = withoutBlanks(base);
        const int number = firstFree(list, NSString::lowercaseString(stripped), QString(), true);
        requireSame(KTAdditions::internalCaseInsensitiveUniqueStringWithBase(list, base, Name),
                    numbered(stripped, QString(), number));
    });
}

TEST(CollectionModel, WhatIsNamedCanBeAddedWithoutAClash)
{
    checkProperty("names that are added one by one differ", 100, [] {
        const QString base = someOf(bases());
        QVariantList list = someNamed(base);
        for (int round = 0; round < 8; ++round) {
            const QString name = KTAdditions::uniqueStringWithBase(list, base);
            RC_ASSERT(!isTaken(list, name, false));
            list += QVariantMap{{Name, name}};
        }
    });
}

TEST(CollectionModel, MovesAreThoseOfTheSteps)
{
    checkProperty("a sequence of moves", 1500, [] {
        QStringList list = someLetters(8);
        for (int move = 0; move < 6; ++move) {
            const QString object = QString(QChar(u'a' + char16_t(someNumber(0, 6))));
            const int index = someNumber(-1, 10);
            const QStringList expected = movedStepByStep(list, object, index);
            KTMutableArrayAdditions::moveObject(list, object, index);
            RC_ASSERT((list == expected));
        }
    });
}

TEST(CollectionModel, AMovedElementStandsBeforeItsAnchor)
{
    checkProperty("moves of distinct elements", 500, [] {
        QList<int> list;
        for (int count = someNumber(1, 9); count > 0; --count)
            list += int(list.size());
        const QList<int> before = list;
        const int object = someOf(before);
        const int index = someNumber(0, 10);
        KTMutableArrayAdditions::moveObject(list, object, index);
        QList<int> sorted = list;
        std::sort(sorted.begin(), sorted.end());
        RC_ASSERT((sorted == before));
        if (index >= before.size())
            RC_ASSERT((list.last() == object));
        else if (before.at(index) != object)
            RC_ASSERT((list.at(list.indexOf(before.at(index)) - 1) == object));
        else
            RC_ASSERT((list == before));
    });
}

TEST(CollectionModel, BlocksAreInsertedWhole)
{
    checkProperty("insertObjects", 1000, [] {
        QStringList list = someLetters(6);
        const QStringList block = someLetters(6);
        const int index = someNumber(-1, 7);
        if (index < 0 || index > list.size()) {
            const QStringList before = list;
            RC_ASSERT_THROWS_AS(KTMutableArrayAdditions::insertObjects(list, block, index),
                                NSException);
            RC_ASSERT((list == before));
            return;
        }
        const QStringList expected = list.mid(0, index) + block + list.mid(index);
        KTMutableArrayAdditions::insertObjects(list, block, index);
        RC_ASSERT((list == expected));
    });
}
