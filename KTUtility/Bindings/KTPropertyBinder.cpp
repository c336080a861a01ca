#include "KTPropertyBinder.h"

#include <KTUtility/Platform/AppKit/NSKeyValueBinding.h>
#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Keys/NSSelectionMarker.h>

#include <QScopedValueRollback>

#include <utility>

namespace {
/// The transformer itself wins over its name.
std::shared_ptr<NSValueTransformer> transformerOf(const QVariantMap &options)
{
    if (auto transformer = NSBindingOptions::transformerIn(options))
        return transformer;
    const QString name = options.value(NSValueTransformerNameBindingOption).toString();
    return name.isEmpty() ? nullptr : NSValueTransformer::valueTransformerForName(name);
}
} // namespace

KTPropertyBinder::KTPropertyBinder() = default;

KTPropertyBinder::KTPropertyBinder(const QString &key, const QString &forBinding, QObject *owner)
    : _owner(owner), _boundKey(key), _bindingName(forBinding)
{
}

KTPropertyBinder::~KTPropertyBinder()
{
    _unbind();
}

void KTPropertyBinder::bind(const QString & /*binding*/, QObject *toObject,
                            const QString &withKeyPath, const QVariantMap &options)
{
    // They may be this binder's own.
    QString keyPath = withKeyPath;
    QVariantMap newOptions = options;
    _unbind();
    if (_shouldObserveKeyPath)
        NSKeyValueObserving::addObserver(toObject, this, keyPath, NSKeyValueObservingOptionNew);
    _isObserving = _shouldObserveKeyPath && toObject;
    _observedObject = toObject;
    _observedKeyPath = std::move(keyPath);
    _valueTransformer = transformerOf(newOptions);
    _bindingOptions = std::move(newOptions);
    if (_isObserving)
        observeValueForKeyPath(_observedKeyPath, toObject, {}, {});
}

void KTPropertyBinder::unbind(const QString & /*binding*/)
{
    _unbind();
}

void KTPropertyBinder::_unbind()
{
    if (std::exchange(_isObserving, false))
        NSKeyValueObserving::removeObserver(_observedObject, this, _observedKeyPath);
    _observedObject = nullptr;
    _observedKeyPath = QString();
    _bindingOptions = {};
    _valueTransformer = nullptr;
}

void KTPropertyBinder::observeValueForKeyPath(const QString &, QObject *, const NSKeyValueChange &,
                                              const QString &)
{
    if (!_observedObject)
        return;
    QVariant value = NSKeyValueCoding::valueForKeyPath(_observedObject, _observedKeyPath);
    if (NSIsControllerMarker(value))
        return;
    if (_valueTransformer)
        value = _valueTransformer->transformedValue(value);
    const std::shared_ptr<bool> flag = _processingObservationChange;
    const QScopedValueRollback<bool> processing(*flag, true);
    if (_owner)
        NSKeyValueCoding::setValue(_owner.data(), value, _boundKey);
}

QVariant KTPropertyBinder::valueForModel(const QVariant &value) const
{
    const bool isReversible = _valueTransformer && _valueTransformer->allowsReverseTransformation();
    return isReversible ? _valueTransformer->reverseTransformedValue(value) : value;
}

void KTPropertyBinder::ownerKeyPathChanged()
{
    if (*_processingObservationChange || !_observedObject || !_owner)
        return;
    const QVariant value = NSKeyValueCoding::valueForKey(_owner, _boundKey);
    NSKeyValueCoding::setValueForKeyPath(_observedObject, valueForModel(value), _observedKeyPath);
}

QVariant KTPropertyBinder::currentValue() const
{
    if (!_observedObject)
        return {};
    const QVariant value = NSKeyValueCoding::valueForKeyPath(_observedObject, _observedKeyPath);
    return _valueTransformer ? _valueTransformer->transformedValue(value) : value;
}

void KTPropertyBinder::setCurrentValue(const QVariant &value)
{
    NSKeyValueCoding::setValueForKeyPath(_observedObject, valueForModel(value), _observedKeyPath);
}
