#include "MemberProperty.h"

#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

using namespace KTPrivate;

namespace {
/// A name without what getters are called in front of it; nil if it does not begin with that.
QByteArray nameBehind(const char *prefix, const QByteArray &getter)
{
    const qsizetype length = qsizetype(qstrlen(prefix));
    if (!getter.startsWith(prefix) || getter.size() <= length)
        return {};
    return getter.mid(length, 1).toLower() + getter.mid(length + 1);
}
} // namespace

QMetaProperty KTPrivate::propertyOfGetter(const QMetaObject *type, std::string_view getter,
                                          QMetaType value)
{
    const QByteArray name(getter.data(), qsizetype(getter.size()));
    for (const QByteArray &each : {name, nameBehind("is", name), nameBehind("get", name)}) {
        const QMetaProperty property = type->property(type->indexOfProperty(each.constData()));
        if (property.isWritable() && property.metaType() == value)
            return property;
    }
    NSException::raise(
        NSUndefinedKeyException,
        NSString::stringWithFormat(u"%s has no property of the type %s by the name of its getter "
                                   u"%s that can be set.",
                                   type->className(), value.name(), name.constData()));
}
