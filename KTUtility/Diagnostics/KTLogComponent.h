#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

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
/// \param name a literal, of which nothing can be a control character.
#define KT_LOG_COMPONENT(variable, name)                                                           \
    static_assert(KTLogComponent::isName(u"" name),                                                \
                  "the name of a log component is not empty and holds no control characters");     \
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

    /// Whether a literal can be a name.
    static constexpr bool isName(std::u16string_view name)
    {
        for (const char16_t unit : name) {
            if (unit < u' ' || unit == u'\x7F')
                return false;
        }
        return !name.empty();
    }

private:
    QString _name;
};
