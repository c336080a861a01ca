#pragma once

#include <concepts>
#include <type_traits>

class NSBundle;
class QObject;

// Which class methods of a plug-in a class has. That a name is declared at all, perhaps private or
// with other arguments, shows where it is inherited a second time: it is ambiguous then.
namespace KTPlugInProbe {
struct DidLoadName
{
    int pluginDidLoadBundle;
};

template<typename T>
struct DidLoadTwice : T, DidLoadName
{
};

template<typename T>
concept HasDidLoad = requires(const NSBundle &bundle, QObject *updateHandler)
{
    {
        T::pluginDidLoadBundle(bundle, updateHandler)
        } -> std::same_as<void>;
};

template<typename T>
consteval bool declaresDidLoad()
{
    // Nothing inherits from a final class, so that only what is public is seen in it.
    if constexpr (std::is_final_v<T>)
        return requires
        {
            &T::pluginDidLoadBundle;
        };
    else
        return !requires
        {
            &DidLoadTwice<T>::pluginDidLoadBundle;
        };
}
} // namespace KTPlugInProbe

/// What KTPlugInClassOf asks about \a T while it compiles.
template<typename T>
struct KTPlugInClassMethods
{
    /// Whether there is a public static void pluginDidLoadBundle(const NSBundle &, QObject *).
    static constexpr bool hasDidLoad = KTPlugInProbe::HasDidLoad<T>;
    /// Whether there is any member of that name.
    static constexpr bool declaresDidLoad = KTPlugInProbe::declaresDidLoad<T>();
    /// Whether there is a public static void pluginWillUnload().
    static constexpr bool hasWillUnload = requires
    {
        {
            T::pluginWillUnload()
            } -> std::same_as<void>;
    };
    /// Whether there is a public static void pluginDidUnload().
    static constexpr bool hasDidUnload = requires
    {
        {
            T::pluginDidUnload()
            } -> std::same_as<void>;
    };
};
