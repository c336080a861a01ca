#include "NSClass.h"

NSClass::NSClass(const QString &name, const QList<NSProtocol> &protocols)
    : _name(name), _protocols(protocols)
{
}

NSClass::~NSClass() = default;

bool NSClass::conformsToProtocol(const NSProtocol &protocol) const
{
    return !protocol.isNil() && _protocols.contains(protocol);
}
