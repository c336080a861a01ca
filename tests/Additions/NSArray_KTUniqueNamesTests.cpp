#include <KTUtility/NSArray_KTAdditions>
#include <KTUtility/NSArray_KTUniqueNames>
#include <KTUtility/NSException>

#include "CollectionSupport.h"
#include "support/TestSupport.h"

using namespace KTAdditions;
using namespace Qt::StringLiterals;

using NSArray_KTUniqueNamesTests = CollectionTest;

TEST_F(NSArray_KTUniqueNamesTests, UniqueNamesFillTheFirstGap)
{
    const auto names = [&](const QStringList &list) { return fieldsNamed(list); };
    const QString base = u" Field\n"_s;
    EXPECT_EQ(uniqueStringWithBase(names({}), base), u"Field"_s);
    EXPECT_EQ(uniqueStringWithBase(names({u"Field"_s, u"Field 1"_s}), base), u"Field 2"_s);
    EXPECT_EQ(uniqueStringWithBase(names({u"Field"_s, u"Field 2"_s}), base), u"Field 1"_s);
    EXPECT_EQ(uniqueStringWithBase(names({u"Field 1"_s}), base), u"Field"_s);
    EXPECT_EQ(
        uniqueStringWithBase(names({u"Field"_s, u"Field 01"_s, u"Field  1"_s, u"Field +1"_s,
                                    u"Field 1 "_s, u"Field1"_s, u"Field 99999999999999999999"_s}),
                             base),
        u"Field 1"_s);
}

TEST_F(NSArray_KTUniqueNamesTests, InternalNamesHaveNoWhitespace)
{
    const QString base = u"My Field"_s;
    EXPECT_EQ(internalUniqueStringWithBase(Fields(), base, Name), u"MyField"_s);
    EXPECT_EQ(internalUniqueStringWithBase(fieldsNamed({u"MyField"_s}), base, Name), u"MyField1"_s);
    const Fields taken = fieldsNamed({u"name"_s, u"NAME1"_s});
    EXPECT_EQ(internalCaseInsensitiveUniqueStringWithBase(taken, u"Name"_s, Name), u"Name2"_s);
    EXPECT_EQ(internalUniqueStringWithBase(taken, u"Name"_s, Name), u"Name"_s);
    EXPECT_TRUE(internalUniqueStringWithBase(abc, QString(), Name).isNull());
    EXPECT_EQ(internalUniqueStringWithBase(fieldsNamed({u""_s}), u" "_s, Name), u"1"_s);
}

TEST_F(NSArray_KTUniqueNamesTests, UniqueNamesAgreeWithTryingThemOneByOne)
{
    // The same answer as the plain way of asking for each candidate in turn.
    const QStringList pool{u"a"_s, u"a 1"_s, u"a 2"_s, u"a 3"_s, u"A 1"_s, QString()};
    for (unsigned mask = 0; mask < 64; ++mask) {
        QStringList names;
        for (int bit = 0; bit < 6; ++bit) {
            if (mask >> bit & 1)
                names += pool[bit];
        }
        const Fields fields = fieldsNamed(names);
        QString candidate = u"a"_s;
        for (int number = 1; containsObjectWithValue(fields, candidate, Name); ++number)
            candidate = u"a %1"_s.arg(number);
        EXPECT_EQ(uniqueStringWithBase(fields, u"a"_s), candidate) << mask;
    }
}

TEST_F(NSArray_KTUniqueNamesTests, UniqueNamesRejectNilAndBlankBases)
{
    testing_support::standardErrorOf([&] {
        EXPECT_RAISES(uniqueStringWithBase(abc, QString()), NSInternalInconsistencyException,
                      u"NSArray_KTAdditions basename can't be null"_s);
        EXPECT_RAISES(uniqueStringWithBase(abc, u" \n"_s), NSInternalInconsistencyException,
                      u"NSArray_KTAdditions basename can't be empty"_s);
    });
    const QString log = testing_support::standardErrorOf(
        [&] { EXPECT_THROW(uniqueStringWithBase(abc, QString()), NSException); });
    EXPECT_TRUE(log.contains(u"-[NSArray uniqueStringWithBase:forKey:], "
                             u"Additions/NSArray_KTAdditions:154"));
}

TEST_F(NSArray_KTUniqueNamesTests, TextsAreNamesThemselves)
{
    const QStringList names{u"Field"_s, u"Field 1"_s};
    EXPECT_EQ(uniqueStringWithBase(names, u"Field", {}), u"Field 2"_s);
    EXPECT_EQ(uniqueStringWithBase(names, u"Field", u"self"), u"Field 2"_s);
    EXPECT_EQ(internalUniqueStringWithBase(names, "Field", QString()), u"Field1"_s);
    EXPECT_EQ(internalCaseInsensitiveUniqueStringWithBase(names, u"FIELD", u"self"), u"FIELD1"_s);
}

TEST_F(NSArray_KTUniqueNamesTests, MoreNamesThanAnnouncedAreRemembered)
{
    for (const int step : {1, -1}) {
        NameClashes clashes(u"Field"_s, u" "_s, 1);
        clashes.seeName(u"Field");
        for (int number = step > 0 ? 1 : 9; number >= 1 && number <= 9; number += step)
            clashes.seeName(QString(u"Field "_s + QString::number(number)));
        EXPECT_EQ(clashes.firstFreeNumber(), 10);
    }
}

TEST_F(NSArray_KTUniqueNamesTests, HostileNamesStayUnique)
{
    for (const QString &text : testing_support::hostileTexts()) {
        const Fields fields = fieldsNamed({text, text});
        const QString name = internalUniqueStringWithBase(fields, text, Name);
        EXPECT_FALSE(containsObjectWithValue(fields, name, Name));
        const QString insensitive = internalCaseInsensitiveUniqueStringWithBase(fields, text, Name);
        EXPECT_FALSE(containsObjectWithValue(fields, insensitive, Name));
        EXPECT_EQ(objectWithValue(fields, text, Name), text.isNull() ? nullptr : fields[0]);
    }
}
