#pragma once

#include "KTPlugInClassMethods.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Classes/NSClassRegistry.h>

/// Makes a class the principal class of a plug-in. Write it once, in a source file of the plug-in,
/// outside of functions, with the protocols that the class conforms to; Info.plist names the class
/// under NSPrincipalClass.
///
/// The class derives from QObject, has a constructor without arguments, and has these public static
/// functions; without one that is needed, or if one is declared otherwise, it does not compile:
///
/// - `void pluginDidLoadBundle(const NSBundle &bundle, QObject *updateHandler)`: sent before an
///   instance is made, and when plug-ins are reloaded; may be left out.
/// - `void pluginWillUnload()`: sent while the instance is still there, also when plug-ins are
///   reloaded.
/// - `void pluginDidUnload()`: sent when the manager has let go of the instance, just before it is
///   destroyed.
///
/// \code
/// class CSVExporter : public QObject, public Exporter
/// {
///     Q_OBJECT
///     Q_INTERFACES(Exporter)
///
/// public:
///     static void pluginDidLoadBundle(const NSBundle &bundle, QObject *updateHandler);
///     static void pluginWillUnload();
///     static void pluginDidUnload();
///     QString fileType() const override;
/// };
///
/// KT_PRINCIPAL_CLASS(CSVExporter, Exporter)
/// \endcode
#define KT_PRINCIPAL_CLASS(ClassName, ...)                                                         \
    KT_REGISTER_CLASS_OBJECT_(ClassName, __COUNTER__,                                              \
                              KTPlugInClassOf<ClassName __VA_OPT__(, ) __VA_ARGS__>)

class NSBundle;

/// The class object of a principal class: a class with what KTPlugInManager sends to it.
class KTUTILITY_EXPORT KTPlugInClass : public NSClass
{
public:
    ~KTPlugInClass() override;

    /// Whether the class has pluginDidLoadBundle().
    virtual bool respondsToPluginDidLoadBundle() const = 0;
    /// Notifies the class that its bundle was loaded; nothing if it has no such function.
    /// \param updateHandler the host's object to report to; may be null.
    virtual void pluginDidLoadBundle(const NSBundle &bundle, QObject *updateHandler) const = 0;
    /// Notifies the class that its instance is about to be destroyed.
    virtual void pluginWillUnload() const = 0;
    /// Notifies the class that its instance has left the manager.
    virtual void pluginDidUnload() const = 0;

protected:
    /// Made by subclasses, as NSClass is.
    using NSClass::NSClass;
};

/// The class object of \a T; made by KT_PRINCIPAL_CLASS.
template<typename T, typename... Protocols>
class KTPlugInClassOf final : public NSClassOf<KTPlugInClass, T, Protocols...>
{
    using Methods = KTPlugInClassMethods<T>;
    static_assert(Methods::hasDidLoad || !Methods::declaresDidLoad,
                  "pluginDidLoadBundle must be public: "
                  "static void pluginDidLoadBundle(const NSBundle &, QObject *)");
    static_assert(Methods::hasWillUnload,
                  "the class needs a public: static void pluginWillUnload()");
    static_assert(Methods::hasDidUnload, "the class needs a public: static void pluginDidUnload()");

public:
    using NSClassOf<KTPlugInClass, T, Protocols...>::NSClassOf;

    bool respondsToPluginDidLoadBundle() const override { return Methods::hasDidLoad; }
    void pluginDidLoadBundle(const NSBundle &bundle, QObject *updateHandler) const override
    {
        if constexpr (Methods::hasDidLoad)
            T::pluginDidLoadBundle(bundle, updateHandler);
    }
    void pluginWillUnload() const override { T::pluginWillUnload(); }
    void pluginDidUnload() const override { T::pluginDidUnload(); }
};
