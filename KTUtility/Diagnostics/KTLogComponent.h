#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

#include <cstddef>
#include <string_view>

/// Declares a component of a program's own, at namespace scope: a constant that KTLog() takes, with
/// the name that people see in the logging menu and in the settings file. In a header, each source
/// that includes it has the same component.
///
/// It stands in the menu behind the built-in ones; a program that has told KTApplication who it is
/// says there whether these are listed at all.
///
/// \code
/// KT_LOG_COMPONENT(lcImport, "Import")
///
/// KTLog(lcImport, 4, u"%@: %d rows", path, rows.size());
/// \endcode
/// \param variable the name of the constant.
/// \param name a literal that KTLogComponent::isName() accepts.
#define KT_LOG_COMPONENT(variable, name)                                                           \
    static_assert(KTLogComponent::isName(u"" name),                                                \
                  "the name of a log component is not empty and holds only characters of texts");  \
    static const KTLogComponent variable(QStringLiteral(name));

/// A component that can be logged, which the logging menu lists.
///
/// Components are made by KT_LOG_COMPONENT before main(), or when a plug-in is loaded; any thread
/// may use them.
class KTUTILITY_EXPORT KTLogComponent
{
public:
    /// Enters a component in the list, unless one of that name is there.
    explicit KTLogComponent(const QString &name);

    /// The name that people see.
    const QString &name() const { return _name; }
    /// The name, for all that takes a component's.
    operator const QString &() const { return _name; }

    /// Whether a text can be a name: it is not empty, and has no control characters and nothing that
    /// is no character, which the settings file could not hold.
    static constexpr bool isName(std::u16string_view name)
    {
        bool isFirstHalf = false;
        for (const char16_t unit : name) {
            const bool isSecondHalf = unit >= 0xDC00 && unit <= 0xDFFF;
            if (isFirstHalf != isSecondHalf || !isForTexts(unit))
                return false;
            isFirstHalf = unit >= 0xD800 && unit <= 0xDBFF;
        }
        return !name.empty() && !isFirstHalf;
    }
    /// The same for a literal, all of it.
    template<std::size_t Size>
    static constexpr bool isName(const char16_t (&literal)[Size])
    {
        return isName(std::u16string_view(literal, Size - 1));
    }

private:
    /// Whether a unit is neither a control character nor set aside for no character.
    static constexpr bool isForTexts(char16_t unit)
    {
        const bool isControl = unit < 0x20 || (unit >= 0x7F && unit <= 0x9F);
        return !isControl && unit < 0xFFFE && (unit < 0xFDD0 || unit > 0xFDEF);
    }

    QString _name;
};
