#pragma once

#include "NSProtocol.h"
#include <KTUtility/KTUtilityExport.h>

#include <QList>
#include <QObject>

#include <concepts>
#include <memory>
#include <type_traits>

/// A class as an object: its name, what it promises, and how to make one of it.
///
/// C++ keeps no classes at run time, so that a class is registered where it is defined; see
/// KT_REGISTER_CLASS. Code that knows a class only by name, such as that of a plug-in, then finds
/// it through NSBundle::classNamed(). Do not use it for classes that the compiler knows.
///
/// \code
/// const NSClass *exporterClass = bundle.classNamed(u"CSVExporter"_s);
/// if (exporterClass && exporterClass->conformsToProtocol(NSProtocol::of<Exporter>()))
///     std::unique_ptr<QObject> exporter = exporterClass->newInstance();
/// \endcode
class KTUTILITY_EXPORT NSClass
{
public:
    virtual ~NSClass();
    NSClass(const NSClass &) = delete;
    NSClass &operator=(const NSClass &) = delete;

    /// The name as it was registered: "CSVExporter", "Acme::Exporter".
    const QString &name() const { return _name; }

    /// Whether the class was registered with the protocol. Nothing conforms to nil.
    bool conformsToProtocol(const NSProtocol &protocol) const;

    /// A new object, made with the constructor without arguments; null if there is none.
    /// \throws whatever the constructor throws.
    virtual std::unique_ptr<QObject> newInstance() const = 0;

protected:
    /// A class of that name, which conforms to these protocols.
    NSClass(const QString &name, const QList<NSProtocol> &protocols);

private:
    QString _name;
    QList<NSProtocol> _protocols;
};

/// The class object of \a T, which derives from QObject and from each of the protocols, on top of
/// \a Base: NSClass, or a class that adds class methods to it.
template<typename Base, std::derived_from<QObject> T, typename... Protocols>
    requires(std::derived_from<T, Protocols> &&...)
class NSClassOf : public Base
{
public:
    /// The class under the name by which it is to be found.
    explicit NSClassOf(const QString &name) : Base(name, {NSProtocol::of<Protocols>()...}) {}

    /// A new T; null if T has no constructor without arguments.
    std::unique_ptr<QObject> newInstance() const override
    {
        if constexpr (std::default_initializable<T>)
            return std::make_unique<T>();
        else
            return nullptr;
    }
};
