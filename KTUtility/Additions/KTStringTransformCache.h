#pragma once

#include "KTStringTransforms.h"
#include <KTUtility/KTUtilityExport.h>

#include <QHashFunctions>
#include <QString>

#include <unordered_map>

/// Remembers what names were turned into, per domain, for the life of the process.
///
/// The naming transforms use it by themselves; use it directly for transforms of your own that run
/// as often. Entries are never removed. For the main thread only.
///
/// \code
/// KTStringTransformCache *cache = KTStringTransformCache::sharedCache();
/// const QString domain = u"mine"_s;
/// cache->addTransformedString(u"kt_a"_s, u"A"_s, domain);
/// cache->transformedStringForOriginalString(u"A"_s, domain); // "kt_a"
/// \endcode
class KTUTILITY_EXPORT KTStringTransformCache
{
public:
    /// Original text to transformed text.
    using Domain = KTStringTransforms;

    KTStringTransformCache() = default;
    KTStringTransformCache(const KTStringTransformCache &) = delete;
    KTStringTransformCache &operator=(const KTStringTransformCache &) = delete;

    /// The cache of the process, made on first use and never destroyed.
    static KTStringTransformCache *sharedCache();

    /// Stores a text; a later call for the same original replaces it. nil texts are not stored.
    void addTransformedString(const QString &transformed, const QString &forOriginalString,
                              const QString &inDomain);
    /// The stored text; nil if there is none.
    QString transformedStringForOriginalString(const QString &original,
                                               const QString &inDomain) const;
    /// An original that was turned into \a transformed: the smallest by UTF-16 unit if there are
    /// several, nil if there is none. Looks at the whole domain.
    QString originalStringForTransformedString(const QString &transformed,
                                               const QString &inDomain) const;

    /// A domain itself, made on first use; it stays where it is as long as the cache lives.
    Domain &domain(const QString &name) { return _cache[name]; }

private:
    std::unordered_map<QString, Domain> _cache;
    // Set aside for table names; no operation uses it.
    [[maybe_unused]] std::unordered_map<QString, Domain> _tableCache;
};
