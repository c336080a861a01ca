#include <KTUtility/KTStringTransformCache>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(KTStringTransformCache, StoresPerDomainAndReplaces)
{
    KTStringTransformCache cache;
    const QString domain = u"mine"_s;
    EXPECT_TRUE(cache.transformedStringForOriginalString(u"A"_s, domain).isNull());
    cache.addTransformedString(u"kt_a"_s, u"A"_s, domain);
    EXPECT_EQ(cache.transformedStringForOriginalString(u"A"_s, domain), u"kt_a"_s);
    cache.addTransformedString(u"kt_b"_s, u"A"_s, domain);
    EXPECT_EQ(cache.transformedStringForOriginalString(u"A"_s, domain), u"kt_b"_s);
    EXPECT_TRUE(cache.transformedStringForOriginalString(u"A"_s, u"other"_s).isNull());
}

TEST(KTStringTransformCache, FindsTheSmallestOriginal)
{
    KTStringTransformCache cache;
    const QString domain = u"mine"_s;
    for (const char16_t *original : {u"b", u"a", u"Z", u"ä"})
        cache.addTransformedString(u"x"_s, QString::fromUtf16(original), domain);
    EXPECT_EQ(cache.originalStringForTransformedString(u"x"_s, domain), u"Z"_s);
    EXPECT_TRUE(cache.originalStringForTransformedString(u"y"_s, domain).isNull());
    EXPECT_TRUE(cache.originalStringForTransformedString(u"x"_s, QString()).isNull());
}

TEST(KTStringTransformCache, TakesNoNil)
{
    KTStringTransformCache cache;
    cache.addTransformedString(QString(), u"a"_s, u"d"_s);
    cache.addTransformedString(u"a"_s, QString(), u"d"_s);
    EXPECT_TRUE(cache.domain(u"d"_s).isEmpty());
}

TEST(KTStringTransformCache, IsOneForTheProcessAndDomainsStay)
{
    auto *cache = KTStringTransformCache::sharedCache();
    EXPECT_EQ(cache, KTStringTransformCache::sharedCache());
    auto &domain = cache->domain(u"stays"_s);
    for (int index = 0; index < 1000; ++index)
        cache->domain(QString::number(index));
    EXPECT_EQ(&domain, &cache->domain(u"stays"_s));
}
