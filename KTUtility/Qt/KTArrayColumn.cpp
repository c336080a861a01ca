#include "KTArrayColumn.h"

#include <KTUtility/Formatters/KTDurationFormatter.h>
#include <KTUtility/Formatters/KTNumberFormatter.h>
#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Keys/ValueConversion_p.h>
#include <KTUtility/Platform/Text/NSStringCompare.h>
#include <KTUtility/Platform/Values/NSException.h>

#include <QCoreApplication>

#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
Qt::Alignment usualAlignment(const NSFormatter *formatter)
{
    const bool isQuantity = dynamic_cast<const KTNumberFormatter *>(formatter) ||
                            dynamic_cast<const KTDurationFormatter *>(formatter);
    return (isQuantity ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

bool holdsText(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<QString>();
}
} // namespace

QObject *KTPrivate::objectOfRow(const QVariant &row)
{
    const KeyValueTarget target = KeyValueTarget::ofVariant(row);
    return target.kind == KeyValueTarget::Kind::Object ? target.object() : nullptr;
}

QVariant KTPrivate::valueAs(QMetaType type, const QVariant &value)
{
    std::optional<QVariant> converted = convertedValue(value, type);
    if (!converted || (NSObject::isNil(value) && !NSObject::isNil(*converted)))
        NSException::raise(
            NSInvalidArgumentException,
            QCoreApplication::translate("KTArrayColumn", "This value cannot be stored here."));
    return *std::move(converted);
}

KTArrayColumn::KTArrayColumn(const QString &keyPath, const QString &title,
                             std::shared_ptr<const NSFormatter> formatter)
    : _keyPath(keyPath)
    , _title(title)
    , _formatter(std::move(formatter))
    , _alignment(usualAlignment(_formatter.get()))
{
}

KTArrayColumn &KTArrayColumn::setEditable(bool editable)
{
    _isEditable = editable;
    return *this;
}

KTArrayColumn &KTArrayColumn::setCheckable(bool checkable)
{
    _isCheckable = checkable;
    return *this;
}

KTArrayColumn &KTArrayColumn::setAlignment(Qt::Alignment alignment)
{
    _alignment = alignment;
    return *this;
}

KTArrayColumn &KTArrayColumn::setPlaceholders(const KTBindingOptions &placeholders)
{
    _placeholders = placeholders;
    return *this;
}

KTArrayColumn &KTArrayColumn::setComparator(const Comparator &comparator)
{
    _comparator = comparator;
    _isLocalized = false;
    return *this;
}

KTArrayColumn &KTArrayColumn::setLocalized(bool localized)
{
    _isLocalized = localized;
    return *this;
}

NSSortDescriptor KTArrayColumn::sortDescriptor(bool ascending) const
{
    NSSortDescriptor descriptor{_keyPath, ascending, _comparator, _isLocalized};
    if (_read)
        descriptor.member = _read;
    return descriptor;
}

QVariant KTArrayColumn::value(const QVariant &ofRow) const
{
    return _read ? _read(KeyValueTarget::ofVariant(ofRow))
                 : NSKeyValueCoding::valueForKeyPath(ofRow, _keyPath);
}

void KTArrayColumn::setValue(const QVariant &value, const QVariant &inRow) const
{
    QObject *const object = objectOfRow(inRow);
    if (!object)
        return;
    if (_read) {
        if (_write)
            _write(object, value);
        return;
    }
    QVariant accepted = value;
    NSError error;
    if (!NSKeyValueCoding::validateValue(inRow, &accepted, _keyPath, &error))
        NSException::raise(NSInvalidArgumentException,
                           error.isNil() ? QCoreApplication::translate(
                                               "KTArrayColumn", "This value cannot be stored here.")
                                         : error.localizedDescription());
    NSKeyValueCoding::setValueForKeyPath(object, accepted, _keyPath);
}

std::weak_ordering KTArrayColumn::compareForPeople(const QVariant &left, const QVariant &right)
{
    if (holdsText(left) && holdsText(right))
        return NSString::localizedCompare(left.toString(), right.toString());
    return NSObject::compare(left, right);
}
