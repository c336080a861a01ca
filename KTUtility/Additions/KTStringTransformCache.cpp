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
    const QString *const known = found == _cache.end() ? nullptr : found->second.find(original);
    return known ? *known : QString();
}

QString KTStringTransformCache::originalStringForTransformedString(const QString &transformed,
                                                                   const QString &inDomain) const
{
    const auto found = _cache.find(inDomain);
    if (found == _cache.end())
        return {};
    QString smallest;
    for (const Domain::Entry &entry : found->second) {
        if (entry.transformed == transformed && (smallest.isNull() || entry.original < smallest))
            smallest = entry.original;
    }
    return smallest;
}
