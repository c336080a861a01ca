#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QVariant>

namespace KTPrivate {
/// Compares many values with one, as NSObject::isEqualTo() does.
///
/// Integers and texts that have the very type of the wanted value, which is the rule when the
/// values of one property are looked through, are compared directly.
///
/// \code
/// const ValueMatcher matcher(u"Price"_s);
/// for (const QVariant &name : names)
///     count += matcher.matches(name);
/// \endcode
class ValueMatcher
{
public:
    explicit ValueMatcher(const QVariant &value)
        : _value(value), _interface(value.metaType().iface()), _kind(kindOf(value))
    {
    }

    bool matches(const QVariant &candidate) const
    {
        if (candidate.metaType().iface() == _interface) {
            if (_kind == Kind::Int)
                return as<int>(candidate) == as<int>(_value);
            if (_kind == Kind::Text)
                return as<QString>(candidate) == as<QString>(_value) &&
                       !as<QString>(candidate).isNull();
        }
        return NSObject::isEqualTo(candidate, _value);
    }

private:
    enum class Kind { Int, Text, Other };

    static Kind kindOf(const QVariant &value)
    {
        if (value.typeId() == QMetaType::Int)
            return Kind::Int;
        return value.typeId() == QMetaType::QString && !NSObject::isNil(value) ? Kind::Text
                                                                               : Kind::Other;
    }

    template<typename T>
    static const T &as(const QVariant &value)
    {
        return *static_cast<const T *>(value.constData());
    }

    QVariant _value;
    const QtPrivate::QMetaTypeInterface *_interface;
    Kind _kind;
};
} // namespace KTPrivate
