#pragma once

#include <QMetaType>

#include <optional>

namespace KTPrivate {
/// Lets Qt's variants convert one type into another.
/// \param convert returns nothing where a value cannot be converted. Qt's own way to say that takes
/// members of the type only.
/// \return false if there was such a conversion already.
template<typename From, typename To, typename Convert>
bool addConverter(const Convert &convert)
{
    const auto converter = [convert](const void *from, void *to) {
        const std::optional<To> result = convert(*static_cast<const From *>(from));
        if (result)
            *static_cast<To *>(to) = *result;
        return result.has_value();
    };
    return QMetaType::registerConverterFunction(converter, QMetaType::fromType<From>(),
                                                QMetaType::fromType<To>());
}
} // namespace KTPrivate
