#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QObject>
#include <QVariant>

/// What an object implements that answers keys by itself, instead of having properties: a stand-in
/// for other objects, or a record whose fields are known only at run time.
///
/// KeyAccessor and NSKeyValueCoding ask it before they look at properties. When a value changes,
/// it says so with NSKeyValueObserving::didChangeValueForKey().
///
/// \code
/// class Record : public QObject, public NSKeyValueCodingObject
/// {
///     Q_OBJECT
///     Q_INTERFACES(NSKeyValueCodingObject)
///
/// public:
///     std::optional<QVariant> valueForKey(const QString &key) const override;
///     bool setValueForKey(const QVariant &value, const QString &key) override;
/// };
/// \endcode
class KTUTILITY_EXPORT NSKeyValueCodingObject
{
public:
    virtual ~NSKeyValueCodingObject();

    /// The value of a key; nothing to have the object's properties looked at.
    virtual std::optional<QVariant> valueForKey(const QString &key) const = 0;
    /// Sets the value of a key.
    /// \return false to have the object's properties looked at.
    virtual bool setValueForKey(const QVariant &value, const QString &key) = 0;
    /// Whether the rest of a key path that leads to the object is one key for it: it is asked for
    /// "next.name" then, and has to be observed by that, instead of being asked for "next". Not
    /// unless overridden.
    virtual bool answersKeyPaths() const;
    /// Somebody begins to observe a key that nobody observed.
    virtual void firstObserverCame(const QString &key);
    /// Nobody observes a key any more.
    virtual void lastObserverWent(const QString &key);
};

Q_DECLARE_INTERFACE(NSKeyValueCodingObject, "KTUtility.NSKeyValueCodingObject/1")
