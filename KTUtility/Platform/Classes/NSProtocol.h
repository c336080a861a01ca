#pragma once

#include <QLatin1String>
#include <QString>
#include <QtPlugin>

/// The name of a set of functions that a class promises: an interface declared with
/// Q_DECLARE_INTERFACE. A protocol made without a name is nil.
///
/// \code
/// class Exporter { public: virtual ~Exporter() = default; virtual QString fileType() const = 0; };
/// Q_DECLARE_INTERFACE(Exporter, "org.example.Exporter")
///
/// NSProtocol::of<Exporter>().description();    // "org.example.Exporter"
/// \endcode
class NSProtocol
{
public:
    /// Nil.
    NSProtocol() = default;
    /// The protocol with this name; nil if the name is nil.
    explicit NSProtocol(const QString &name) : _name(name) {}

    /// The protocol of an interface. One that was not declared does not compile.
    template<typename Interface>
    static NSProtocol of()
    {
        return NSProtocol(QString::fromLatin1(qobject_interface_iid<Interface *>()));
    }

    /// Whether it stands for no protocol.
    bool isNil() const { return _name.isNull(); }
    /// The name; nil for nil.
    const QString &description() const { return _name; }

    /// Protocols are equal if their names are.
    friend bool operator==(const NSProtocol &, const NSProtocol &) = default;

private:
    QString _name;
};
