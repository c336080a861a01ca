#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QVariant>

#include <concepts>
#include <memory>
#include <type_traits>

namespace KTPrivate {
/// A reference to anything that answers keys or selectors, without its static type: a QObject, a
/// gadget, a map, a collection, nil. It owns nothing and is made for one access.
struct KTUTILITY_EXPORT KeyValueTarget
{
    enum class Kind : quint8 {
        Nil,        ///< answers nil to everything
        Object,     ///< instance is a QObject
        Gadget,     ///< instance is a gadget of class metaObject
        Map,        ///< instance is a QVariantMap
        Hash,       ///< instance is a QVariantHash
        Collection, ///< instance is a QVariant that holds a list or set
        Null,       ///< the null object
        Text,       ///< instance is a QString
        Opaque,     ///< instance is a QVariant that answers no keys but "self" (a number)
    };

    Kind kind = Kind::Nil;
    const QMetaObject *metaObject = nullptr;
    const void *instance = nullptr;

    static KeyValueTarget of(const QObject *object)
    {
        if (!object)
            return {};
        return {Kind::Object, object->metaObject(), object};
    }
    static KeyValueTarget ofGadget(const QMetaObject *metaObject, const void *gadget)
    {
        return gadget ? KeyValueTarget{Kind::Gadget, metaObject, gadget} : KeyValueTarget{};
    }
    static KeyValueTarget ofText(const QString &text)
    {
        return text.isNull() ? KeyValueTarget{} : KeyValueTarget{Kind::Text, nullptr, &text};
    }
    /// What a variant holds; \a value must outlive the target.
    static KeyValueTarget ofVariant(const QVariant &value);

    /// The object, for Kind::Object.
    QObject *object() const
    {
        return const_cast<QObject *>(static_cast<const QObject *>(instance));
    }
    /// Whether it is an object that takes the rest of a key path as one key.
    bool answersKeyPaths() const;
    /// "<Class 0xaddress>" for exception texts.
    QString description() const;
};

/// A class that has a meta-object and is no QObject.
template<typename T>
concept Gadget = std::is_class_v<T> && !std::derived_from<T, QObject> && requires
{
    {
        T::staticMetaObject
        } -> std::convertible_to<const QMetaObject &>;
};

namespace KeyValueTargets {
template<std::derived_from<QObject> T>
KeyValueTarget target(T *object)
{
    return KeyValueTarget::of(object);
}

template<Gadget T>
KeyValueTarget target(T *gadget)
{
    return KeyValueTarget::ofGadget(&T::staticMetaObject, gadget);
}

template<Gadget T>
KeyValueTarget target(const T &gadget)
{
    return KeyValueTarget::ofGadget(&T::staticMetaObject, &gadget);
}

template<typename T>
KeyValueTarget target(const QPointer<T> &object)
{
    return target(object.data());
}

template<typename T>
KeyValueTarget target(const QSharedPointer<T> &object)
{
    return target(object.data());
}

template<typename T>
KeyValueTarget target(const std::shared_ptr<T> &object)
{
    return target(object.get());
}

// Exactly these four: what merely converts to one of them must not be taken for it.
template<std::same_as<QVariant> T>
KeyValueTarget target(const T &value)
{
    return KeyValueTarget::ofVariant(value);
}

template<std::same_as<QVariantMap> T>
KeyValueTarget target(const T &map)
{
    return {KeyValueTarget::Kind::Map, nullptr, &map};
}

template<std::same_as<QVariantHash> T>
KeyValueTarget target(const T &hash)
{
    return {KeyValueTarget::Kind::Hash, nullptr, &hash};
}

template<std::same_as<QString> T>
KeyValueTarget target(const T &text)
{
    return KeyValueTarget::ofText(text);
}
} // namespace KeyValueTargets

/// Types whose values answer keys and selectors: pointers to QObjects and gadgets, plain, smart
/// and guarded; gadgets; texts; QVariant, QVariantMap and QVariantHash. What merely converts to
/// QVariant (a number) is none.
template<typename T>
concept KeyValueCodable = requires(const T &value)
{
    {
        KeyValueTargets::target(value)
        } -> std::same_as<KeyValueTarget>;
};
} // namespace KTPrivate
