#include "FieldDetailOwner_p.h"

#include <KTUtility/Platform/Keys/Invoker.h>

using namespace KTPrivate;

const char *const FieldDetailOwner::Create = "createNewFieldDetailObjectForField:";
const char *const FieldDetailOwner::WasBound = "fieldDetailObjectWasBound:toField:";
const char *const FieldDetailOwner::WillBeDestroyed = "fieldDetailObjectWillBeDestroyed:";

bool FieldDetailOwner::respondsTo(const char *selector) const
{
    if (_callbacks)
        return selector != Create || _callbacks->create;
    return Invoker::respondsTo(KeyValueTarget::of(_owner.data()), selector);
}

QObject *FieldDetailOwner::createDetailFor(QObject *field) const
{
    if (!_owner)
        return nullptr;
    const Callbacks callbacks = _callbacks;
    if (callbacks)
        return callbacks->create ? callbacks->create(field) : nullptr;
    return Invoker(Create, {QVariant::fromValue(field)})
        .perform(KeyValueTarget::of(_owner.data()))
        .value<QObject *>();
}

void FieldDetailOwner::detailWasBound(QObject *detail, QObject *toField) const
{
    if (_callbacks)
        call(&KTFieldDetailCallbacks::wasBound, detail, toField);
    else
        tell(WasBound, {QVariant::fromValue(detail), QVariant::fromValue(toField)});
}

void FieldDetailOwner::detailWillBeDestroyed(QObject *detail) const
{
    if (_callbacks)
        call(&KTFieldDetailCallbacks::willBeDestroyed, detail);
    else
        tell(WillBeDestroyed, {QVariant::fromValue(detail)});
}

void FieldDetailOwner::finishedAdding() const
{
    if (_callbacks)
        call(&KTFieldDetailCallbacks::finishedAdding);
    else
        tell("fieldDetailObjectsFinishedAdding");
}

void FieldDetailOwner::finishedRemoving() const
{
    if (_callbacks)
        call(&KTFieldDetailCallbacks::finishedRemoving);
    else
        tell("fieldDetailObjectsFinishedRemoving");
}

void FieldDetailOwner::finishedRearrange() const
{
    if (_callbacks)
        call(&KTFieldDetailCallbacks::finishedRearrange);
    else
        tell("fieldDetailObjectsFinishedRearrange");
}

void FieldDetailOwner::setAutoScrollToInsertedObject(bool scrolls) const
{
    if (_callbacks)
        call(&KTFieldDetailCallbacks::setAutoScrollToInsertedObject, scrolls);
    else
        tell("setAutoScrollToInsertedObject:", {scrolls});
}

/// Calls a method of the owner, if it has it.
void FieldDetailOwner::tell(const char *selector, const QVariantList &arguments) const
{
    if (!respondsTo(selector))
        return;
    Invoker invoker(selector, {arguments.value(0), arguments.value(1)});
    invoker.perform(KeyValueTarget::of(_owner.data()));
}
