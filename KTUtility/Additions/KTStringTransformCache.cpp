#include "KTStringTransformCache.h"

KTStringTransformCache *KTStringTransformCache::sharedCache()
{
    static auto *const cache = new KTStringTransformCache;
    return cache;
}

void KTStringTransformCache::addTransformedString(const QString &transformed,
                                                  const QString &forOriginalString,
                                                  const QString &inDomain)
{
    if (!transformed.isNull() && !forOriginalString.isNull())
        domain(inDomain).insert(forOriginalString, transformed);
}

QString KTStringTransformCache::transformedStringForOriginalString(const QString &original,
                                                                   const QString &inDomain) const
{
    const auto found = _cache.find(inDomain);
    return found == _cache.end() ? QString() : found->second.value(original);
}

QString KTStringTransformCache::originalStringForTransformedString(const QString &transformed,
                                                                   const QString &inDomain) const
{
    const auto found = _cache.find(inDomain);
    if (found == _cache.end())
        return {};
    QString smallest;
    for (auto entry = found->second.begin(); entry != found->second.end(); ++entry) {
        if (entry.value() == transformed && (smallest.isNull() || entry.key() < smallest))
            smallest = entry.key();
    }
    return smallest;
}
