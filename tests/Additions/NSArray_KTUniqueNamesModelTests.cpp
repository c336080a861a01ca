// Unique names over random lists, beside the rules written out step by step.

#include <KTUtility/NSArray_KTAdditions>
#include <KTUtility/NSArray_KTUniqueNames>
#include <KTUtility/NSStringCase>

#include "support/Properties.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QString Name = u"name"_s;

/// Bases that clash with each other when whitespace is removed, when letter case is ignored, and
/// with their numbers.
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

QString withoutWhitespace(const QString &text)
{
    QString rest;
    for (const QChar character : text) {
        if (!character.isSpace())
            rest += character;
    }
    return rest;
}
} // namespace

TEST(NSArray_KTUniqueNamesModel, NamesForPeopleAreTheFirstFreeOnes)
{
    checkProperty("uniqueStringWithBase", 1500, [] {
        const QString base = someOf(bases());
        const QVariantList list = someNamed(base);
        const QString trimmed = base.trimmed();
        const QString expected = numbered(trimmed, u" "_s, firstFree(list, trimmed, u" "_s, false));
        requireSame(KTAdditions::uniqueStringWithBase(list, base), expected);
    });
}

TEST(NSArray_KTUniqueNamesModel, InternalNamesAreTheFirstFreeOnes)
{
    checkProperty("internalUniqueStringWithBase", 1500, [] {
        const QString base = someOf(bases());
        const QVariantList list = someNamed(base);
        const QString stripped = withoutWhitespace(base);
        const QString expected =
            numbered(stripped, QString(), firstFree(list, stripped, QString(), false));
        requireSame(KTAdditions::internalUniqueStringWithBase(list, base, Name), expected);
    });
}

TEST(NSArray_KTUniqueNamesModel, InternalNamesMayHaveToDifferInMoreThanCase)
{
    checkProperty("internalCaseInsensitiveUniqueStringWithBase", 1500, [] {
        const QString base = someOf(bases());
        const QVariantList list = someNamed(base);
        const QString stripped = withoutWhitespace(base);
        const int number = firstFree(list, NSString::lowercaseString(stripped), QString(), true);
        requireSame(KTAdditions::internalCaseInsensitiveUniqueStringWithBase(list, base, Name),
                    numbered(stripped, QString(), number));
    });
}

TEST(NSArray_KTUniqueNamesModel, WhatIsNamedCanBeAddedWithoutAClash)
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
