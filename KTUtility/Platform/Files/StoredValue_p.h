#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QVariant>

#include <optional>

namespace KTPrivate {
/// How values of any type are kept in property lists, and come back.
namespace StoredValue {
/// What a property list holds of a value: the value itself, if it is a property list; else a text
/// that the same value can be made of again in every language, as of a QDate or a QUrl; else the
/// name of its type and its bytes as QDataStream writes them, as of a QSize. Nothing for what has
/// none of these.
KTUTILITY_EXPORT std::optional<QVariant> formOf(const QVariant &value);

/// The value of a type that was stored; nothing if it is none of that type. Integers are exact,
/// reals the nearest ones, booleans what NSObject::boolValue() says.
KTUTILITY_EXPORT std::optional<QVariant> valueOf(const QVariant &stored, QMetaType type);
} // namespace StoredValue
} // namespace KTPrivate
