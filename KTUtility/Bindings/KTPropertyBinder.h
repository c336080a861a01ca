#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSKeyValueObserving.h>
#include <KTUtility/Platform/Keys/NSValueTransformer.h>

#include <QPointer>
#include <QVariantMap>

#include <functional>
#include <memory>

/// One binding of a view or controller (the owner), so that it need not observe by itself.
///
/// Bound, the binder copies every change of the observed value into a key of the owner, through a
/// transformer if one is given; notified by the owner that its key has changed, it copies that
/// back, if the transformer knows the way. What the binder copies in itself is not copied back. An
/// owner keeps a binder for each binding, and forwards its bind() and unbind() to the one that
/// handles the name.
///
/// A value that the other side does not take is told to valueWasRejected(), with the reason: text
/// for a number, nil for a number, or what the observed object's validateValue() refuses (see
/// NSKeyValueCoding::validateValue()). The owner keeps what was typed then, the observed object its
/// value. Nothing is thrown after bind(), since owners are called by signals of Qt.
///
/// A transformer, the owner and the observed object may do everything when they are called: unbind,
/// bind again, delete the binder or each other. What an old binding was about to set is not set
/// then.
///
/// Where a selection has no single value, the owner keeps what it has, unless the options name a
/// placeholder (NSMultipleValuesPlaceholderBindingOption and its siblings). A placeholder that the
/// owner hands back unchanged is not stored.
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
    bool willHandleBindingName(const QString &name) const;

    /// Binds, in place of what was bound before, and copies the value into the owner at once.
    /// \param binding is ignored.
    /// \param options NSValueTransformerBindingOption, else NSValueTransformerNameBindingOption,
    /// say which transformer to use.
    /// \throws NSException NSUndefinedKeyException if an object on the path lacks its key; nothing
    /// is bound then. NSInvalidArgumentException for an option that is no transformer; nothing is
    /// bound then. Whatever the owner throws when its key is set passes through.
    void bind(const QString &binding, QObject *toObject, const QString &withKeyPath,
              const QVariantMap &options = {});
    /// Ends the binding; nothing if it is not bound.
    /// \param binding is ignored.
    void unbind(const QString &binding);

    /// The owner calls it after its key has changed: the value goes to the observed object, unless
    /// the binder is just setting it. A transformer that knows no way back is not used then. Throws
    /// nothing; see valueWasRejected().
    void ownerKeyPathChanged();

    /// What is called with a value that cannot be set, and why.
    using Rejection = std::function<void(const QVariant &value, const QString &reason)>;
    /// The hook for values that could not be set: the owner's in the observed object, or the
    /// observed one in the owner; none unless set.
    const Rejection &valueWasRejected() const;
    void setValueWasRejected(const Rejection &hook);

    /// The observed value as the owner gets it; nil if nothing is bound.
    /// \throws NSException NSUndefinedKeyException if an object on the path lacks its key.
    QVariant currentValue() const;
    /// Sets the observed value to what the transformer makes of \a value on the way back. What
    /// cannot be set is told to valueWasRejected().
    void setCurrentValue(const QVariant &value);

    /// The object that is bound; null if none is, or it is destroyed.
    QObject *observedObject() const;
    /// The key path that is bound; nil if none is.
    const QString &keyPath() const;
    /// What transforms values on their way to the owner and back; null for none.
    const std::shared_ptr<NSValueTransformer> &valueTransformer() const;
    /// The options that were given to bind(); empty if nothing is bound.
    const QVariantMap &bindingOptions() const;

    /// Whether values are copied into the owner, now and when they change. Set it before binding.
    bool shouldObserveKeyPath() const { return _shouldObserveKeyPath; }
    void setShouldObserveKeyPath(bool observes) { _shouldObserveKeyPath = observes; }

    /// Copies the observed value into the owner, unless it is a marker of a selection without
    /// value for which there is no placeholder. All arguments are ignored: the value is read
    /// afresh.
    void observeValueForKeyPath(const QString &keyPath, QObject *ofObject,
                                const NSKeyValueChange &change, const QString &context) override;

private:
    struct Binding;
    class Setting;

    void _unbind();
    void observe(const std::shared_ptr<Binding> &binding);
    const Binding &current() const;
    static QVariant observedValue(const Binding &binding);
    static bool isPlaceholder(const Binding &binding, const QVariant &value);
    static void reject(const std::shared_ptr<const Rejection> &hook, const QVariant &value,
                       const QString &reason);
    std::optional<QVariant> ownerValue() const;
    void pushIntoOwner(const std::shared_ptr<Binding> &binding, QVariant *shown);
    void setInOwner(const std::shared_ptr<Binding> &binding, const QVariant &value);
    static void setInObject(const std::shared_ptr<Binding> &binding, const QVariant &value);

    QPointer<QObject> _owner;
    QString _boundKey;
    QString _bindingName;
    std::shared_ptr<const Rejection> _valueWasRejected; // null unless set
    bool _shouldObserveKeyPath = true;
    Setting *_setting = nullptr;       // the innermost; null while the owner is not being set
    std::shared_ptr<Binding> _binding; // null while nothing is bound
};
