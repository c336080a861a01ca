#include "FieldDetailOwner_p.h"

#include <KTUtility/Platform/Keys/Invoker.h>

using namespace KTPrivate;

const char *const FieldDetailOwner::Create = "createNewFieldDetailObjectForField:";
const char *const FieldDetailOwner::WasBound = "fieldDetailObjectWasBound:toField:";
const char *const FieldDetailOwner::WillBeDestroyed = "fieldDetailObjectWillBeDestroyed:";

bool FieldDetailOwner::respondsTo(const char *selector) const
{
    return Invoker::respondsTo(KeyValueTarget::of(_owner.data()), selector);
}

QObject *FieldDetailOwner::createDetailFor(QObject *field) const
{
    if (!_owner)
        return nullptr;
    return Invoker(Create, {QVariant::fromValue(field)})
        .perform(KeyValueTarget::of(_owner.data()))
        .value<QObject *>();
}

void FieldDetailOwner::detailWasBound(QObject *detail, QObject *toField) const
{
    tell(WasBound, {QVariant::fromValue(detail), QVariant::fromValue(toField)});
}

void FieldDetailOwner::detailWillBeDestroyed(QObject *detail) const
{
    tell(WillBeDestroyed, {QVariant::fromValue(detail)});
}

void FieldDetailOwner::finishedAdding() const
{
    tell("fieldDetailObjectsFinishedAdding");
}

void FieldDetailOwner::finishedRemoving() const
{
    tell("fieldDetailObjectsFinishedRemoving");
}

void FieldDetailOwner::finishedRearrange() const
{
    tell("fieldDetailObjectsFinishedRearrange");
}

void FieldDetailOwner::setAutoScrollToInsertedObject(bool scrolls) const
{
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
