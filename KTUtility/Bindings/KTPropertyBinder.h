#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSKeyValueObserving.h>
#include <KTUtility/Platform/Keys/NSValueTransformer.h>

#include <QPointer>
#include <QVariantMap>

/// One binding of a view or controller (the owner), so that it need not observe by itself.
///
/// Bound, the binder copies every change of the observed value into a key of the owner, through a
/// transformer if one is given; notified by the owner that its key has changed, it copies that
/// back, if the transformer knows the way. What the binder copies in itself is not copied back. An
/// owner keeps a binder for each binding, and forwards its bind() and unbind() to the one that
/// handles the name.
///
/// The owner, which keeps the binder, may be null for one that only remembers what it was bound to.
/// Unlike on the platform, the observed object is not kept alive: when it is destroyed, the binder
/// is unbound. For the main thread.
///
/// \code
/// // in the owner
/// KTPropertyBinder _valueBinder{u"text"_s, NSValueBinding, this};
///
/// void RowView::bind(const QString &binding, QObject *toObject, const QString &withKeyPath,
///                    const QVariantMap &options)
/// {
///     if (_valueBinder.willHandleBindingName(binding))
///         _valueBinder.bind(binding, toObject, withKeyPath, options);
/// }
///
/// void RowView::userChangedText() { _valueBinder.ownerKeyPathChanged(); }
/// \endcode
class KTUTILITY_EXPORT KTPropertyBinder : public NSKeyValueObserver
{
public:
    /// A binder for nobody; see shouldObserveKeyPath().
    KTPropertyBinder();
    /// \param key of the owner, which receives the values.
    /// \param forBinding the name of the binding.
    KTPropertyBinder(const QString &key, const QString &forBinding, QObject *owner);
    /// Unbinds.
    ~KTPropertyBinder() override;

    /// Whether this is the binder for a binding.
    bool willHandleBindingName(const QString &name) const { return name == _bindingName; }

    /// Binds, in place of what was bound before, and copies the value into the owner at once.
    /// \param binding is ignored.
    /// \param options NSValueTransformerBindingOption, else NSValueTransformerNameBindingOption,
    /// say which transformer to use.
    /// \throws NSException NSUndefinedKeyException if an object on the path lacks its key; nothing
    /// is bound then. Whatever the owner throws when its key is set passes through.
    void bind(const QString &binding, QObject *toObject, const QString &withKeyPath,
              const QVariantMap &options = {});
    /// Ends the binding; nothing if it is not bound.
    /// \param binding is ignored.
    void unbind(const QString &binding);

    /// The owner calls it after its key has changed: the value goes to the observed object, unless
    /// the binder is just setting it. A transformer that knows no way back is not used then.
    void ownerKeyPathChanged();

    /// The observed value as the owner gets it; nil if nothing is bound.
    QVariant currentValue() const;
    /// Sets the observed value to what the transformer makes of \a value on the way back.
    void setCurrentValue(const QVariant &value);

    /// The object that is bound; null if none is, or it is destroyed.
    QObject *observedObject() const { return _observedObject; }
    /// The key path that is bound; nil if none is.
    const QString &keyPath() const { return _observedKeyPath; }
    /// What transforms values on their way to the owner and back; null for none.
    const std::shared_ptr<NSValueTransformer> &valueTransformer() const
    {
        return _valueTransformer;
    }
    /// The options that were given to bind().
    const QVariantMap &bindingOptions() const { return _bindingOptions; }

    /// Whether values are copied into the owner, now and when they change. Set it before binding.
    bool shouldObserveKeyPath() const { return _shouldObserveKeyPath; }
    void setShouldObserveKeyPath(bool observes) { _shouldObserveKeyPath = observes; }

    /// Copies the observed value into the owner, unless it is a marker of a selection without
    /// value. All arguments are ignored: the value is read afresh.
    void observeValueForKeyPath(const QString &keyPath, QObject *ofObject,
                                const NSKeyValueChange &change, const QString &context) override;

private:
    void _unbind();
    QVariant valueForModel(const QVariant &value) const;

    QPointer<QObject> _owner;
    QString _boundKey;
    QString _bindingName;
    bool _shouldObserveKeyPath = true;
    // Outlives the binder while it is set, since setting a value may destroy the owner.
    std::shared_ptr<bool> _processingObservationChange = std::make_shared<bool>(false);
    bool _isObserving = false;
    QPointer<QObject> _observedObject;
    QString _observedKeyPath;
    QVariantMap _bindingOptions;
    std::shared_ptr<NSValueTransformer> _valueTransformer;
};
