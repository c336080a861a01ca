#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/KTText.h>
#include <KTUtility/Platform/Keys/KeyAccessor.h>
#include <KTUtility/Platform/Keys/NSCollections.h>

#include <QList>
#include <QString>

#include <unordered_set>
#include <vector>

/// Names that no element of a list has yet: the base, or the base with a number.
///
/// The cost is one pass over the values, however many of them clash.
///
/// \code
/// KTAdditions::uniqueStringWithBase(fields, u" Field ");    // "Field 2" beside Field and Field 1
/// KTAdditions::internalUniqueStringWithBase(fields, u"My Field", u"name");
///     // "MyField", then "MyField1"
/// KTAdditions::uniqueStringWithBase(titles, u"Untitled", {});    // among texts themselves
/// \endcode
namespace KTAdditions {
/// The names of a list that are a base and a number, seen one by one. The pieces of the functions
/// below; use those.
class KTUTILITY_EXPORT NameClashes
{
public:
    /// \param base the text that the names begin with.
    /// \param separator what stands between the base and a number.
    /// \param count how many values will be seen, about.
    NameClashes(const QString &base, const QString &separator, qsizetype count);

    /// A value of an element; what is no text clashes with nothing.
    void seeValue(const QVariant &value);
    /// A name that is taken already.
    void seeName(QStringView name);

    /// The number of the first name that was not seen: 0 for the base itself, else 1, 2, 3 …
    int firstFreeNumber() const;
    /// The name with that number.
    QString name(int number) const;

private:
    void takeNumber(size_t number);

    QString _base;
    QString _separator;
    bool _isBaseTaken = false;
    // Among n values, one of the numbers 1 to n + 1 is free: larger ones are not asked for unless
    // more than n values are seen.
    std::vector<bool> _takenNumbers;
    std::unordered_set<size_t> _largeNumbers;
};

/// What uniqueStringWithBase() makes of its base: without whitespace and newlines at both ends.
/// \throws NSException NSInternalInconsistencyException through the assertion handler for nil
/// ("NSArray_KTAdditions basename can't be null") and for nothing but whitespace
/// ("NSArray_KTAdditions basename can't be empty").
KTUTILITY_EXPORT QString trimmedUniqueBase(const QString &base);

/// What the internal names make of their base: without any whitespace and newlines.
KTUTILITY_EXPORT QString strippedUniqueBase(const QString &base);

/// The lower-case form of a value that is a text; else nil.
KTUTILITY_EXPORT QString lowercaseValue(const QVariant &value);

namespace Detail {
/// Shows every element's value for \a key to \a see; with a nil key, the elements themselves.
template<KTPrivate::KeyValueCodable T, typename See>
void seeValues(const QList<T> &list, const QString &key, See see)
{
    KTPrivate::KeyAccessor accessor(key);
    for (const T &element : list) {
        if (key.isNull())
            see(NSBoxed(element));
        else
            see(accessor.read(KTPrivate::KeyValueTargets::target(element)));
    }
}
} // namespace Detail

/// A name for people: the trimmed base, else "base 1", "base 2" and so on: the first that no
/// element has for \a forKey, exactly.
/// \throws NSException NSInternalInconsistencyException if the base is nil or only whitespace; see
/// trimmedUniqueBase().
template<KTPrivate::KeyValueCodable T>
QString uniqueStringWithBase(const QList<T> &list, const KTText &base,
                             const KTText &forKey = u"name")
{
    NameClashes clashes(trimmedUniqueBase(base), QStringLiteral(" "), list.size());
    Detail::seeValues(list, forKey, [&](const QVariant &value) { clashes.seeValue(value); });
    return clashes.name(clashes.firstFreeNumber());
}

/// A name for the machine: the base without any whitespace, else with 1, 2 and so on directly
/// behind it: the first that no element has for \a forKey, exactly. nil gives nil.
template<KTPrivate::KeyValueCodable T>
QString internalUniqueStringWithBase(const QList<T> &list, const KTText &base, const KTText &forKey)
{
    NameClashes clashes(strippedUniqueBase(base), QStringLiteral(""), list.size());
    Detail::seeValues(list, forKey, [&](const QVariant &value) { clashes.seeValue(value); });
    return clashes.name(clashes.firstFreeNumber());
}

/// As internalUniqueStringWithBase(), but a name that differs only in case counts as taken. The
/// result keeps the case of the base: Name beside name and NAME1 gives Name2.
template<KTPrivate::KeyValueCodable T>
QString internalCaseInsensitiveUniqueStringWithBase(const QList<T> &list, const KTText &base,
                                                    const KTText &forKey)
{
    const QString stripped = strippedUniqueBase(base);
    NameClashes clashes(lowercaseValue(stripped), QStringLiteral(""), list.size());
    Detail::seeValues(list, forKey,
                      [&](const QVariant &value) { clashes.seeName(lowercaseValue(value)); });
    const int number = clashes.firstFreeNumber();
    return number == 0 ? stripped : QString(stripped + QString::number(number));
}
} // namespace KTAdditions
