#include <KTUtility/NSPredicate>

#include <KTUtility/NSCollections>
#include <KTUtility/NSException>
#include <KTUtility/NSWeakMapTable>

#include "support/ObservedModel.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QVariant person()
{
    return QVariantMap{{u"name"_s, u"Zoë"_s},
                       {u"age"_s, 36},
                       {u"height"_s, 1.75},
                       {u"isFriend"_s, true},
                       {u"none"_s, QVariant()},
                       {u"tags"_s, QVariantList{u"a"_s, u"b"_s}},
                       {u"home"_s, QVariantMap{{u"city"_s, u"Berlin"_s}}}};
}

bool isTrue(const char16_t *format, const QVariantList &arguments = {})
{
    return NSPredicate::predicateWithFormat(format, arguments).evaluateWithObject(person());
}
} // namespace

TEST(NSPredicate, RunsItsExample)
{
    const NSPredicate grownUps =
        NSPredicate::predicateWithFormat(u"age >= %@ AND name BEGINSWITH[c] 'a'", {18});
    EXPECT_FALSE(grownUps.evaluateWithObject(person()));
    ObservedRecord record(u"Ada"_s, 36);
    EXPECT_TRUE(NSPredicate::predicateWithFormat(u"number = 36 and name beginswith[c] 'a'")
                    .evaluateWithObject(&record));
}

TEST(NSPredicate, EnumerationsAreNumbers)
{
    const QVariantMap today{{u"day"_s, QVariant::fromValue(Qt::Wednesday)}};
    for (const char16_t *format : {u"day == 3", u"day > 2", u"day = 3.0"})
        EXPECT_TRUE(NSPredicate::predicateWithFormat(format).evaluateWithObject(today))
            << QString::fromUtf16(format).toStdString();
    EXPECT_FALSE(NSPredicate::predicateWithFormat(u"day == 4").evaluateWithObject(today));
}

TEST(NSPredicate, ANSSetIsACollection)
{
    const QVariantMap bag{{u"tags"_s, QVariant::fromValue(NSSet{u"a"_s, u"b"_s})}};
    EXPECT_TRUE(NSPredicate::predicateWithFormat(u"'b' IN tags").evaluateWithObject(bag));
    EXPECT_FALSE(NSPredicate::predicateWithFormat(u"'c' IN tags").evaluateWithObject(bag));
    EXPECT_TRUE(NSPredicate::predicateWithFormat(u"tags.@count == 2").evaluateWithObject(bag));
}

TEST(NSPredicate, ComparesValues)
{
    for (const char16_t *format : {u"age = 36",
                                   u"age == 36.0",
                                   u"age != 37",
                                   u"age <> 37",
                                   u"age < 37",
                                   u"age <= 36",
                                   u"age > 35",
                                   u"age >= 36",
                                   u"36 == age",
                                   u"height > 1.5",
                                   u"height > .5",
                                   u"age > -1",
                                   u"isFriend == YES",
                                   u"isFriend = true",
                                   u"none == nil",
                                   u"none = NULL",
                                   u"name == 'Zoë'",
                                   u"name != nil",
                                   u"home.city == \"Berlin\"",
                                   u"SELF.age == 36",
                                   u"tags.@count == 2",
                                   u"name = 'Zo\\ë'"})
        EXPECT_TRUE(isTrue(format)) << QString::fromUtf16(format).toStdString();
    for (const char16_t *format : {u"age = 37", u"age == '36'", u"none < 5", u"none > 5",
                                   u"name == 'zoë'", u"age > 36", u"none != nil", u"name < nil"})
        EXPECT_FALSE(isTrue(format)) << QString::fromUtf16(format).toStdString();
}

TEST(NSPredicate, ComparesTexts)
{
    for (const char16_t *format :
         {u"name BEGINSWITH 'Zo'", u"name ENDSWITH 'ë'", u"name CONTAINS 'o'",
          u"name ENDSWITH[d] 'e'", u"name CONTAINS[cd] 'OE'", u"name ==[cd] 'ZOE'",
          u"name LIKE 'Z*'", u"name LIKE 'Z?ë'", u"name LIKE[cd] '*OE'", u"name MATCHES 'Z.+'",
          u"'o' IN name", u"'O' IN[c] name", u"home.city LIKE '*'"})
        EXPECT_TRUE(isTrue(format)) << QString::fromUtf16(format).toStdString();
    for (const char16_t *format :
         {u"name BEGINSWITH 'zo'", u"name LIKE 'Z?'", u"name MATCHES 'Z'", u"name MATCHES '('",
          u"name MATCHES 'a)|(Z.+'", u"age BEGINSWITH '3'", u"none CONTAINS 'a'",
          u"name LIKE 'Z.*'", u"'x' IN name"})
        EXPECT_FALSE(isTrue(format)) << QString::fromUtf16(format).toStdString();
}

TEST(NSPredicate, PatternsKeepTheirMeaningWithoutCase)
{
    for (const QString &pattern : {u"z\\S+"_s, u"ZO\\w"_s, u"\\D*\\S"_s, u"z\\x6Fë"_s})
        EXPECT_TRUE(isTrue(u"name MATCHES[c] %@", {pattern})) << pattern.toStdString();
    EXPECT_TRUE(isTrue(u"name MATCHES[cd] %@", {u"ZÖ\\S"_s}));
    EXPECT_TRUE(isTrue(u"name MATCHES[d] %@", {u"Zö\\S"_s}));
    for (const QString &pattern : {u"z\\s+"_s, u"ZO\\W"_s, u"\\d*"_s, u"zoe"_s})
        EXPECT_FALSE(isTrue(u"name MATCHES[c] %@", {pattern})) << pattern.toStdString();
    EXPECT_FALSE(isTrue(u"name MATCHES[d] %@", {u"zo\\S"_s}));
}

TEST(NSPredicate, LongTextsAreComparedWithoutAccents)
{
    const QString letters = testing_support::megabyteOf(u"Ä-.😀"_s);
    const QString marks = u"a"_s + QString(u"\u0316\u0301"_s).repeated(100'000);
    EXPECT_TRUE(isTrue(u"%@ ==[cd] %@", {letters, QString(letters).replace(u'Ä', u'a')}));
    EXPECT_TRUE(isTrue(u"%@ ==[d] %@", {marks, u"a"_s}));
    EXPECT_FALSE(isTrue(u"%@ ==[d] %@", {letters, QString(letters).replace(u'Ä', u'a')}));
}

TEST(NSPredicate, LooksIntoLists)
{
    EXPECT_TRUE(isTrue(u"tags CONTAINS 'a'"));
    EXPECT_TRUE(isTrue(u"'b' IN tags"));
    EXPECT_FALSE(isTrue(u"'c' IN tags"));
    EXPECT_TRUE(isTrue(u"age IN %@", {QVariant(QVariantList{35, 36})}));
    EXPECT_FALSE(isTrue(u"age IN %@", {QVariant(QVariantList())}));
}

TEST(NSPredicate, JoinsConditions)
{
    EXPECT_TRUE(isTrue(u"age = 1 OR age = 36"));
    EXPECT_TRUE(isTrue(u"age = 1 || age = 2 || age = 36"));
    EXPECT_FALSE(isTrue(u"age = 36 AND age = 1 OR age = 2"));
    EXPECT_TRUE(isTrue(u"age = 36 && (age = 1 || age = 36)"));
    EXPECT_TRUE(isTrue(u"NOT age = 1 and !(age = 2)"));
    EXPECT_TRUE(isTrue(u"TRUEPREDICATE"));
    EXPECT_FALSE(isTrue(u"falsepredicate or not truepredicate"));
}

TEST(NSPredicate, TakesArguments)
{
    EXPECT_TRUE(isTrue(u"%K == %@", {u"home.city"_s, u"Berlin"_s}));
    // What is in an argument is never read as a format.
    EXPECT_FALSE(isTrue(u"name == %@", {u"x' OR TRUEPREDICATE OR name == 'x"_s}));
    EXPECT_TRUE(isTrue(u"none == %@", {QVariant()}));
}

TEST(NSPredicate, KnowsFunctionsAndValues)
{
    const NSPredicate even = NSPredicate::predicateWithBlock(
        [](const QVariant &object) { return object.toInt() % 2 == 0; });
    EXPECT_TRUE(even.evaluateWithObject(QVariant(2)));
    EXPECT_FALSE(even.evaluateWithObject(QVariant(3)));
    EXPECT_TRUE(NSPredicate::predicateWithValue(true).evaluateWithObject(QVariant()));
    EXPECT_FALSE(NSPredicate::predicateWithValue(false).evaluateWithObject(QVariant()));
    EXPECT_TRUE(NSPredicate().isNil());
    EXPECT_FALSE(NSPredicate().evaluateWithObject(QVariant()));
}

TEST(NSPredicate, WhatIsNoFormat)
{
    for (const char16_t *format :
         {u"", u"age", u"age =", u"= 5", u"age = 5 AND", u"(age = 5", u"age = 5)", u"age ~ 5",
          u"age = .", u"name = 'open", u"name ==[x] 'a'", u"name ==[c 'a'", u"age = %@", u"%d = 5",
          u"age = 1-2", u"age == 36 name == 'x'", u"NOT"})
        EXPECT_RAISES(NSPredicate::predicateWithFormat(format), NSInvalidArgumentException,
                      u"Unable to parse the format string \"" + QString::fromUtf16(format) + u'"');
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_THROW(NSPredicate::predicateWithFormat(text), NSException);
    const QString deep(200000, u'(');
    EXPECT_THROW(NSPredicate::predicateWithFormat(deep), NSException);
}

TEST(NSPredicate, TakesLongRowsOfConditions)
{
    for (const char16_t *const each : {u" AND age = 36", u" OR age = 37", u" && NOT age = 37"}) {
        const QString format = u"age = 36"_s + QString::fromUtf16(each).repeated(50000);
        const NSPredicate predicate = NSPredicate::predicateWithFormat(format);
        EXPECT_TRUE(predicate.evaluateWithObject(person()));
        EXPECT_FALSE(predicate.evaluateWithObject(QVariantMap()));
    }
}

TEST(NSPredicate, LikeTakesTextsAsTheyAre)
{
    const NSPredicate like = NSPredicate::predicateWithFormat(u"SELF.text LIKE SELF.pattern");
    const auto isLike = [&](const QString &text, const QString &pattern) {
        return like.evaluateWithObject(QVariantMap{{u"text"_s, text}, {u"pattern"_s, pattern}});
    };
    const QString smiley = QString::fromUtf8("\xF0\x9F\x98\x80");
    for (const QString &text :
         {u""_s, u"a\nb"_s, smiley, QString(QChar(0xD83D)), QString(QString(QChar(0)) + u'x')}) {
        EXPECT_TRUE(isLike(text, u"*"_s));
        EXPECT_TRUE(isLike(text, text));
        EXPECT_TRUE(isLike(text + text, text + u"**"));
        EXPECT_FALSE(isLike(text, text + u'?'));
    }
    EXPECT_TRUE(isLike(smiley, u"?"_s));
    EXPECT_FALSE(isLike(smiley, u"??"_s));
    EXPECT_TRUE(isLike(u"mississippi"_s, u"m*iss*p?"_s));
    EXPECT_FALSE(isLike(u"mississippi"_s, u"m*iss*x?"_s));
    EXPECT_FALSE(isLike(QString(20000, u'a'), u"*a"_s.repeated(20) + u'b'));
}

TEST(NSPredicate, UnknownKeysRaise)
{
    ObservedRecord record;
    EXPECT_THROW(NSPredicate::predicateWithFormat(u"nothing = 1").evaluateWithObject(&record),
                 NSException);
}
