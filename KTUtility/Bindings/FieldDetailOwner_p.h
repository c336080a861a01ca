#pragma once

#include "KTFieldDetailCallbacks.h"

#include <QPointer>
#include <QVariantList>

#include <memory>

namespace KTPrivate {
/// The owner of a KTFieldDetailBinder, as what its methods are called through. It may be destroyed
/// at any time; nothing is called then. With callbacks, these are called in place of its methods.
class FieldDetailOwner
{
public:
    // What an owner has to answer.
    static const char *const Create;
    static const char *const WasBound;
    static const char *const WillBeDestroyed;

    using Callbacks = std::shared_ptr<const KTFieldDetailCallbacks>;

    /// \param callbacks null for the methods.
    explicit FieldDetailOwner(QObject *owner, Callbacks callbacks = nullptr)
        : _owner(owner), _callbacks(std::move(callbacks))
    {
    }

    /// Whether it has a method.
    bool respondsTo(const char *selector) const;

    /// Has the detail object of a field made; null if the owner makes none.
    QObject *createDetailFor(QObject *field) const;
    void detailWasBound(QObject *detail, QObject *toField) const;
    void detailWillBeDestroyed(QObject *detail) const;
    void finishedAdding() const;
    void finishedRemoving() const;
    void finishedRearrange() const;
    void setAutoScrollToInsertedObject(bool scrolls) const;

private:
    void tell(const char *selector, const QVariantList &arguments = {}) const;
    /// Calls one of the callbacks.
    template<typename Member, typename... Arguments>
    void call(Member member, Arguments... arguments) const
    {
        // The binder may be destroyed meanwhile.
        const Callbacks callbacks = _callbacks;
        if (_owner && (*callbacks).*member)
            ((*callbacks).*member)(arguments...);
    }

    QPointer<QObject> _owner;
    Callbacks _callbacks;
};
} // namespace KTPrivate
