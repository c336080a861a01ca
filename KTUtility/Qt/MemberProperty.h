#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaProperty>
#include <QString>

#include <string_view>

namespace KTPrivate {
/// The name of a member as it is written in the source: "amount" for &Record::amount. Known when it
/// is compiled.
template<auto Member>
constexpr std::string_view memberName()
{
    std::string_view text = __PRETTY_FUNCTION__;
    text.remove_prefix(text.find("Member = ") + 9);
    text = text.substr(0, text.find_first_of(";]"));
    return text.substr(text.rfind("::") + 2);
}

/// The property that a getter is for: of the getter's name without "get" or "is", or with it; of
/// the getter's type, and writable.
/// \throws NSException NSUndefinedKeyException if there is none.
KTUTILITY_EXPORT QMetaProperty propertyOfGetter(const QMetaObject *type, std::string_view getter,
                                                QMetaType value);
} // namespace KTPrivate
