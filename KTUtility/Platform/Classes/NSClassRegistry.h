#pragma once

#include "NSClass.h"
#include <KTUtility/KTUtilityExport.h>

/// Makes a class known by name, in the program or the module that this stands in. Write it once,
/// in a source file, outside of functions, with the protocols that the class conforms to.
///
/// \code
/// KT_REGISTER_CLASS(CSVExporter, Exporter)
/// \endcode
#define KT_REGISTER_CLASS(ClassName, ...)                                                          \
    KT_REGISTER_CLASS_OBJECT_(ClassName, __COUNTER__,                                              \
                              NSClassOf<NSClass, ClassName __VA_OPT__(, ) __VA_ARGS__>)

// Registers a class object of the type that follows the number, which makes the name unique.
#define KT_REGISTER_CLASS_OBJECT_(ClassName, number, ...)                                          \
    KT_REGISTER_NUMBERED_(ClassName, number, __VA_ARGS__)
#define KT_REGISTER_NUMBERED_(ClassName, number, ...)                                              \
    namespace {                                                                                    \
    const NSClassRegistration<__VA_ARGS__>                                                         \
        ktClassRegistration##number##_(QStringLiteral(#ClassName));                                \
    }

/// The classes of the process, by module and name: two modules may hold classes of the same name.
/// For the main thread. KT_REGISTER_CLASS fills it, NSBundle asks it.
namespace NSClassRegistry {
/// Adds a class of the module that \a addressInModule lies in. Of two classes with the same name
/// in one module, the first counts.
KTUTILITY_EXPORT void addClass(const NSClass &classObject, const void *addressInModule);
/// Takes a class away; the code that it stands for is about to leave.
KTUTILITY_EXPORT void removeClass(const NSClass &classObject);
/// The module that an address lies in, to compare only; null if it lies in none.
KTUTILITY_EXPORT const void *moduleOfAddress(const void *address);
/// The first class that was registered with a name, in whatever module; null if there is none.
KTUTILITY_EXPORT const NSClass *classNamed(const QString &name);
/// The class of a module with a name; null if there is none.
KTUTILITY_EXPORT const NSClass *classNamed(const QString &name, const void *inModule);
} // namespace NSClassRegistry

/// A class object that is registered while it lives.
template<std::derived_from<NSClass> ClassObject>
class NSClassRegistration
{
public:
    /// Registers a class object of that name for the module that this object lies in.
    explicit NSClassRegistration(const QString &name) : _classObject(name)
    {
        NSClassRegistry::addClass(_classObject, this);
    }
    ~NSClassRegistration() { NSClassRegistry::removeClass(_classObject); }
    NSClassRegistration(const NSClassRegistration &) = delete;
    NSClassRegistration &operator=(const NSClassRegistration &) = delete;

private:
    ClassObject _classObject;
};
