#include "NSOptionalType.h"

#include <KTUtility/Platform/Values/NSDecimalNumber.h>

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QReadWriteLock>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <memory>

/// Those that are known. What was added stays where it is.
struct NSOptionalTypes
{
    NSOptionalTypes()
    {
        addAll<bool, signed char, unsigned char, short, unsigned short, int, unsigned, long,
               unsigned long, qlonglong, qulonglong, float, double>();
        addAll<NSDecimalNumber, QString, QByteArray, QDate, QTime, QDateTime, QUrl, QUuid>();
    }

    static NSOptionalTypes &shared()
    {
        static NSOptionalTypes types;
        return types;
    }

    template<typename... Values>
    void addAll()
    {
        (add(QMetaType::fromType<std::optional<Values>>(), NSOptionalType::typeFor<Values>()), ...);
    }

    void add(QMetaType type, const NSOptionalType &optional)
    {
        const QWriteLocker locker(&lock);
        auto &known = types[type.id()];
        if (!known)
            known = std::make_shared<NSOptionalType>(optional);
    }

    const NSOptionalType *find(QMetaType type)
    {
        const QReadLocker locker(&lock);
        return types.value(type.id()).get();
    }

    QReadWriteLock lock;
    QHash<int, std::shared_ptr<NSOptionalType>> types;
};

void NSOptionalType::add(QMetaType type, const NSOptionalType &optional)
{
    NSOptionalTypes::shared().add(type, optional);
}

const NSOptionalType *NSOptionalType::of(QMetaType type)
{
    // All types of programs are above those of Qt.
    return type.id() < QMetaType::User ? nullptr : NSOptionalTypes::shared().find(type);
}
