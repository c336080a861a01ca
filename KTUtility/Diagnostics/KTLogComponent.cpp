#include "KTLogComponent.h"

#include "LogComponents_p.h"

KTLogComponent::KTLogComponent(const QString &name) : _name(name)
{
    KTPrivate::LogComponents::declare(name);
}
