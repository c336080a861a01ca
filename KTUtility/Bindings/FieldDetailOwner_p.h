#pragma once

#include <QPointer>
#include <QVariantList>

namespace KTPrivate {
/// The owner of a KTFieldDetailBinder, as what its methods are called through. It may be destroyed
/// at any time; nothing is called then.
class FieldDetailOwner
{
public:
    // What an owner has to answer.
    static const char *const Create;
    static const char *const WasBound;
    static const char *const WillBeDestroyed;

    explicit FieldDetailOwner(QObject *owner) : _owner(owner) {}

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

    QPointer<QObject> _owner;
};
} // namespace KTPrivate
