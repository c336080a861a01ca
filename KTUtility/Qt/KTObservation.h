#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/MemberReader.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QObject>
#include <QPointer>

#include <concepts>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace KTPrivate {
class ChangeWatch;

/// Whether two values are the same; types that cannot be compared are never.
template<typename T>
bool isSameValue(const T &left, const T &right)
{
    if constexpr (std::same_as<T, QVariant>)
        return NSObject::isEqual(left, right);
    else if constexpr (std::equality_comparable<T>)
        return left == right;
    else
        return false;
}

/// What can be read of objects of a class.
template<typename M, typename C>
concept ReadableOf = std::derived_from<C, QObject> && Readable<M> &&
    std::derived_from<C, typename ReadClass<M>::Type>;
} // namespace KTPrivate

/// Owns an observation by KT::observe(): ends it when it goes.
class KTUTILITY_EXPORT KTObservation
{
public:
    /// An observation of nothing.
    KTObservation();
    /// Calls a function whenever a property of an object may have changed; see KT::observe().
    KTObservation(QObject *object, std::function<void()> changed);
    ~KTObservation();
    /// Takes over the observation of \a other.
    KTObservation(KTObservation &&other) noexcept;
    /// Ends its own observation and takes over that of \a other.
    KTObservation &operator=(KTObservation &&other) noexcept;

    /// Whether something is observed: not after the object was destroyed.
    bool isActive() const;
    /// Ends it.
    void invalidate();
    /// Has it end when an object is destroyed, or what it observes, and not with its owner.
    void endWith(QObject *context) &&;

private:
    std::shared_ptr<KTPrivate::ChangeWatch> _watch;
};

namespace KT {
/// Calls a function with the old and the new value whenever what a getter, a data member or a lambda
/// gives of an object has changed. Unlike a key, a misspelt name and a function for another type do
/// not compile.
///
/// It is looked at after each NOTIFY signal of the object, and after each change of a bindable
/// property (BINDABLE) without such a signal, since a getter does not say which signal is its own; a
/// signal that leaves the value as it was calls nothing. Values that change each other and never
/// settle are left alone after some rounds, and what the function raises goes no further; the log
/// tells of both. For the main thread.
///
/// \code
/// _amounts = KT::observe(record, &Record::amount,
///                        [this](const NSDecimalNumber &old, const NSDecimalNumber &now) {
///                            _total = _total - old + now;
///                        });
/// \endcode
/// \param object may be destroyed first; nothing is called then any more. Null is not observed.
/// \return what ends the observation when it goes.
template<std::derived_from<QObject> C, KTPrivate::ReadableOf<C> M,
         std::invocable<const KTPrivate::ReadValue<M> &, const KTPrivate::ReadValue<M> &> F>
[[nodiscard]] KTObservation observe(C *object, M member, F changed)
{
    using Value = KTPrivate::ReadValue<M>;
    if (!object)
        return {};
    auto tell = [guarded = QPointer<C>(object), member, changed = std::move(changed),
                 last = Value(KTPrivate::readFrom(member, *object))]() mutable {
        if (!guarded)
            return;
        Value now = KTPrivate::readFrom(member, *guarded);
        if (KTPrivate::isSameValue(now, last))
            return;
        // The function may change it once more.
        const Value old = std::exchange(last, now);
        changed(old, now);
    };
    return KTObservation(object, std::move(tell));
}

/// The same until another object, such as the one that the function belongs to, is destroyed.
/// \code
/// KT::observe(record, &Record::title, label,
///             [label](const QString &, const QString &now) { label->setText(now); });
/// \endcode
template<std::derived_from<QObject> C, KTPrivate::ReadableOf<C> M,
         std::invocable<const KTPrivate::ReadValue<M> &, const KTPrivate::ReadValue<M> &> F>
void observe(C *object, M member, QObject *context, F changed)
{
    observe(object, member, std::move(changed)).endWith(context);
}
} // namespace KT
