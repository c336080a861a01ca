#include "NSFormatter.h"

#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

QString NSFormatter::stringForObjectValue(const QVariant &) const
{
    return {};
}

std::optional<NSAttributedString>
NSFormatter::attributedStringForObjectValue(const QVariant &, const QTextCharFormat &) const
{
    return std::nullopt;
}

QString NSFormatter::editingStringForObjectValue(const QVariant &value) const
{
    return stringForObjectValue(value);
}

bool NSFormatter::getObjectValue(QVariant *, const QString &, QString *) const
{
    return false;
}

KTReadResult NSFormatter::read(const QString &text) const
{
    QVariant value;
    QString reason;
    if (getObjectValue(&value, text, &reason))
        return KTReadResult::read(value);
    return KTReadResult::rejected(reasonForRejecting(text, reason));
}

QString NSFormatter::reasonForRejecting(const QString &, const QString &errorDescription) const
{
    return errorDescription;
}

std::optional<QStringList> NSFormatter::optionsKeys() const
{
    return std::nullopt;
}

QVariantMap NSFormatter::options() const
{
    QVariantMap options;
    const QStringList keys = optionsKeys().value_or(QStringList());
    for (const QString &key : keys) {
        const QVariant value = NSKeyValueCoding::valueForKey(this, key);
        if (NSObject::isNil(value))
            throw NSException(NSInvalidArgumentException,
                              NSString::stringWithFormat(u"the option \"%@\" is nil", key));
        options.insert(key, value);
    }
    return options;
}

void NSFormatter::setOptions(const QVariantMap &options)
{
    const QStringList keys = optionsKeys().value_or(QStringList());
    for (const QString &key : keys) {
        const QVariant value = options.value(key);
        if (!NSObject::isNil(value))
            NSKeyValueCoding::setValue(this, value, key);
    }
}
