#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QString>
#include <QVariant>

class QMetaObject;
class QObject;

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

    /// \param object not null.
    /// \throws NSException as NSKeyValueCoding::setValue() does.
    void set(QObject *object, const QVariant &value);

private:
    void resolve(QObject *object);
    void write(QObject *object, const QVariant &value) const;

    QString _key;
    const QMetaObject *_metaObject = nullptr;
    // Of a property whose values can be handed over as they are.
    bool _isQuick = false;
    bool _mayBeNil = true; // whether a value of its type may be
    int _index = -1;
    QMetaType _type;
    const QMetaObject *_declaringClass = nullptr;
};
} // namespace KTPrivate
