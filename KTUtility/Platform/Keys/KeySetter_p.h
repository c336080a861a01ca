#pragma once

// Private to the library. For bindings, which set one key of an object over and over.

#include "KeyValueTarget.h"
#include <KTUtility/KTUtilityExport.h>

#include <QMetaProperty>
#include <QString>
#include <QVariant>

namespace KTPrivate {
/// Sets one key of many objects fast: the class of the last object is remembered, and the property
/// that the key is in it. What it does is what NSKeyValueCoding::setValue() does.
///
/// \code
/// KeySetter name(u"name"_s);
/// for (Field *field : fields)
///     name.set(field, u"Date"_s);
/// \endcode
class KTUTILITY_EXPORT KeySetter
{
public:
    explicit KeySetter(const QString &key) : _key(key) {}

    const QString &key() const { return _key; }
    /// \param object not null.
    /// \throws NSException as NSKeyValueCoding::setValue() does.
    void set(QObject *object, const QVariant &value);

    /// The value as the type that a setter takes.
    /// \throws NSException NSInvalidArgumentException if it cannot be that.
    static QVariant converted(const KeyValueTarget &receiver, const QVariant &value, QMetaType type,
                              const QString &key);
    /// Sets a property of an object or gadget, and notifies of what no signal reports.
    /// \return whether it could be written.
    static bool setProperty(const KeyValueTarget &receiver, const QMetaProperty &property,
                            const QVariant &value, const QString &key);

private:
    void resolve(QObject *object);
    void write(QObject *object, const QVariant &value);

    QString _key;
    const QMetaObject *_metaObject = nullptr; ///< null if the key has to be looked for
    QMetaProperty _property;
    // For values that can be handed over as they are.
    bool _isQuick = false;
    QMetaType _type;
    int _index = -1;
    const QMetaObject *_declaringClass = nullptr;
};
} // namespace KTPrivate
