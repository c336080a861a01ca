#include "KTPropertyBinder.h"

#include "KeySetter_p.h"
#include <KTUtility/Platform/AppKit/NSKeyValueBinding.h>
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Keys/NSSelectionMarker.h>
#include <KTUtility/Platform/Values/NSException.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QPointer>
#include <QScopeGuard>

#include <optional>
#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// The transformer itself wins over its name.
std::shared_ptr<NSValueTransformer> transformerOf(const QVariantMap &options)
{
    if (auto transformer = NSBindingOptions::transformerIn(options))
        return transformer;
    const QString name = options.value(NSValueTransformerNameBindingOption).toString();
    return name.isEmpty() ? nullptr : NSValueTransformer::valueTransformerForName(name);
}

/// Calls a function.
/// \return why it failed; nil if it did not.
template<typename Function>
QString rejectionOf(const Function &function)
{
    try {
        function();
    } catch (...) {
        return reasonOfException();
    }
    return {};
}
} // namespace

/// One binding, from its beginning to its end. Whoever calls transformers, owners and observed
/// objects holds it meanwhile, and looks afterwards whether it is over: then the binder may be
/// bound to something else, or destroyed.
struct KTPropertyBinder::Binding
{
    explicit Binding(const QString &key = {}) : ownerKey(key) {}

    bool hasObject() const { return object || !isOfObject; }

    /// The value at the end of the path. A getter may lead here again: what reads is out of the way
    /// until then. It is kept from the second value on, since most rows of a form are shown once.
    QVariant read() const
    {
        std::unique_ptr<KeyPath> reading = std::exchange(path, nullptr);
        if (!reading)
            reading = std::make_unique<KeyPath>(keyPath);
        QVariant value = reading->read(KeyValueTarget::of(object.data()));
        if (turn > 1)
            path = std::move(reading);
        return value;
    }

    /// Chooses what the owner shows instead of a value.
    void setPlaceholder(const std::optional<QVariant> &value)
    {
        if (!placeholder && value)
            placeholder = std::make_unique<Placeholder>();
        if (placeholder)
            placeholder->value = value;
    }
    bool hasPlaceholder() const { return placeholder && placeholder->value; }

    /// Most bindings never have one.
    struct Placeholder
    {
        std::optional<QVariant> value;
        QVariant shown; ///< what the owner has made of it
    };

    QPointer<QObject> object;
    QString keyPath;
    QVariantMap options;
    std::shared_ptr<NSValueTransformer> transformer;
    quint64 turn = 0; ///< counts how often the value was read
    std::unique_ptr<Placeholder> placeholder;
    mutable std::unique_ptr<KeyPath> path; ///< null: to be made
    KeySetter ownerKey;
    qint16 depth = 0;        ///< how often the owner is being set just now
    bool isLooping = false;  ///< too often: until all of that is over
    bool isOfObject = false; ///< or of none from the start
    bool isObserving = false;
    bool isOver = false;
    bool isBeginning = false; ///< the next value is the first
};

/// One setting of the owner, which stays as long as the stack does although the binder may go.
class KTPropertyBinder::Setting
{
public:
    // Not inlined, since the compiler would warn of an address that stays, which it does not.
    [[gnu::noinline]] explicit Setting(KTPropertyBinder *binder)
        : _binder(binder), _outer(std::exchange(binder->_setting, this))
    {
    }
    ~Setting()
    {
        if (_binder)
            _binder->_setting = _outer;
    }
    Setting(const Setting &) = delete;
    Setting &operator=(const Setting &) = delete;

    /// The binder of this and all outer ones is destroyed.
    void forgetBinder()
    {
        for (Setting *each = this; each; each = each->_outer)
            each->_binder = nullptr;
    }

private:
    KTPropertyBinder *_binder;
    Setting *_outer;
};

KTPropertyBinder::KTPropertyBinder() = default;

KTPropertyBinder::KTPropertyBinder(const QString &key, const QString &forBinding, QObject *owner)
    : _owner(owner), _boundKey(key), _bindingName(forBinding)
{
}

KTPropertyBinder::~KTPropertyBinder()
{
    _unbind();
    if (_setting)
        _setting->forgetBinder();
}

const KTPropertyBinder::Rejection &KTPropertyBinder::valueWasRejected() const
{
    static const Rejection none;
    return _valueWasRejected ? *_valueWasRejected : none;
}

void KTPropertyBinder::setValueWasRejected(const Rejection &hook)
{
    _valueWasRejected = hook ? std::make_shared<const Rejection>(hook) : nullptr;
}

/// Tells a hook, which may have been the binder's, why a value was not set, if it was not.
void KTPropertyBinder::reject(const std::shared_ptr<const Rejection> &hook, const QVariant &value,
                              const QString &reason)
{
    if (!reason.isNull() && hook)
        (*hook)(value, reason);
}

bool KTPropertyBinder::willHandleBindingName(const QString &name) const
{
    return !_bindingName.isNull() && !name.isNull() && name == _bindingName;
}

void KTPropertyBinder::bind(const QString & /*binding*/, QObject *toObject,
                            const QString &withKeyPath, const QVariantMap &options)
{
    const auto binding = std::make_shared<Binding>(_boundKey);
    binding->object = toObject;
    binding->isOfObject = toObject != nullptr;
    // They may be this binder's own.
    binding->keyPath = withKeyPath;
    binding->options = options;
    _unbind();
    binding->transformer = transformerOf(binding->options);
    _binding = binding;
    if (!_shouldObserveKeyPath || !toObject)
        return;
    observe(binding);
    binding->isBeginning = true;
    if (!binding->isOver)
        observeValueForKeyPath(binding->keyPath, toObject, {}, {});
}

/// Registers for changes. A getter on the path may end the binding by then.
void KTPropertyBinder::observe(const std::shared_ptr<Binding> &binding)
{
    binding->isObserving = true;
    try {
        // Without values: they are read afresh.
        NSKeyValueObserving::addObserver(binding->object, this, binding->keyPath, 0);
    } catch (...) {
        if (!binding->isOver)
            _unbind();
        throw;
    }
}

void KTPropertyBinder::unbind(const QString & /*binding*/)
{
    _unbind();
}

void KTPropertyBinder::_unbind()
{
    const std::shared_ptr<Binding> binding = std::exchange(_binding, nullptr);
    if (!binding)
        return;
    binding->isOver = true;
    // Somebody else may have taken the registration back: this is called by the destructor.
    if (binding->isObserving)
        NSKeyValueObserving::removeObserverIfAdded(binding->object, this, binding->keyPath);
}

// --- What is bound ------------------------------------------------------------------------------

/// What is bound; nothing once the object is destroyed.
const KTPropertyBinder::Binding &KTPropertyBinder::current() const
{
    static const Binding none;
    return _binding && _binding->hasObject() ? *_binding : none;
}

QObject *KTPropertyBinder::observedObject() const
{
    return current().object;
}

const QString &KTPropertyBinder::keyPath() const
{
    return current().keyPath;
}

const std::shared_ptr<NSValueTransformer> &KTPropertyBinder::valueTransformer() const
{
    return current().transformer;
}

const QVariantMap &KTPropertyBinder::bindingOptions() const
{
    return current().options;
}

// --- From the observed object to the owner ------------------------------------------------------

void KTPropertyBinder::observeValueForKeyPath(const QString &, QObject *, const NSKeyValueChange &,
                                              const QString &)
{
    const std::shared_ptr<Binding> binding = _binding;
    if (!binding || !binding->object)
        return;
    QVariant value;
    // What fails at the beginning is for the caller of bind().
    if (std::exchange(binding->isBeginning, false)) {
        pushIntoOwner(binding, &value);
        return;
    }
    // The change came through a signal, which no exception may leave.
    const std::shared_ptr<const Rejection> rejected = _valueWasRejected;
    const QString reason = rejectionOf([&] { pushIntoOwner(binding, &value); });
    reject(rejected, value, reason);
}

/// The value at the end of the path; nil if an object there lacks its key, as for observers.
QVariant KTPropertyBinder::observedValue(const Binding &binding)
{
    try {
        return binding.read();
    } catch (const NSException &exception) {
        if (exception.name() != NSUndefinedKeyException)
            throw;
    }
    return {};
}

/// Whether the owner hands back what it shows instead of a value.
bool KTPropertyBinder::isPlaceholder(const Binding &binding, const QVariant &value)
{
    return binding.hasPlaceholder() && (NSObject::isEqual(value, *binding.placeholder->value) ||
                                        NSObject::isEqual(value, binding.placeholder->shown));
}

/// Reads the value, and sets it in the owner; unless the transformer has ended the binding, or has
/// changed the observed value, which was set then.
/// \param shown receives what is set.
void KTPropertyBinder::pushIntoOwner(const std::shared_ptr<Binding> &binding, QVariant *shown)
{
    const quint64 turn = ++binding->turn;
    *shown = observedValue(*binding);
    if (binding->isOver || turn != binding->turn)
        return;
    if (NSIsControllerMarker(*shown)) {
        binding->setPlaceholder(NSBindingOptions::placeholderIn(binding->options, *shown));
        if (!binding->hasPlaceholder())
            return;
        *shown = *binding->placeholder->value;
    } else {
        binding->setPlaceholder(std::nullopt);
        if (binding->transformer)
            *shown = binding->transformer->transformedValue(*shown);
    }
    if (!binding->isOver && turn == binding->turn)
        setInOwner(binding, *shown);
    if (!binding->isOver && turn == binding->turn && binding->hasPlaceholder())
        binding->placeholder->shown = ownerValue().value_or(*binding->placeholder->value);
}

/// What the owner has made of what it was given: a line edit has no null, and may cut long texts.
std::optional<QVariant> KTPropertyBinder::ownerValue() const
{
    if (!_owner)
        return std::nullopt;
    try {
        return NSKeyValueCoding::valueForKey(_owner, _boundKey);
    } catch (const NSException &) {
        return std::nullopt; // There are properties that can only be set.
    }
}

void KTPropertyBinder::setInOwner(const std::shared_ptr<Binding> &binding, const QVariant &value)
{
    // Two binders that answer each other with ever other values would go on until the stack ends.
    constexpr int MostRounds = 100;
    binding->isLooping = binding->isLooping || binding->depth == MostRounds;
    if (binding->isLooping)
        NSException::raise(NSInternalInconsistencyException,
                           u"The value that is bound changes whenever it is set."_s);
    ++binding->depth;
    const auto leaving = qScopeGuard([&] {
        --binding->depth;
        binding->isLooping = binding->isLooping && binding->depth > 0;
    });
    const Setting setting(this);
    if (_owner)
        binding->ownerKey.set(_owner, value);
}

// --- From the owner to the observed object ------------------------------------------------------

void KTPropertyBinder::ownerKeyPathChanged()
{
    const std::shared_ptr<Binding> binding = _binding;
    if (_setting || !binding || !binding->object || !_owner)
        return;
    const std::shared_ptr<const Rejection> rejected = _valueWasRejected;
    QVariant value;
    const QString reason = rejectionOf([&] {
        value = NSKeyValueCoding::valueForKey(_owner, _boundKey);
        if (!binding->isOver && !isPlaceholder(*binding, value))
            setInObject(binding, value);
    });
    reject(rejected, value, reason);
}

void KTPropertyBinder::setCurrentValue(const QVariant &value)
{
    const std::shared_ptr<Binding> binding = _binding;
    if (!binding || !binding->object)
        return;
    const std::shared_ptr<const Rejection> rejected = _valueWasRejected;
    const QString reason = rejectionOf([&] { setInObject(binding, value); });
    reject(rejected, value, reason);
}

/// Sets the observed value to what the transformer makes of a value on the way back, if the
/// observed object takes that.
void KTPropertyBinder::setInObject(const std::shared_ptr<Binding> &binding, const QVariant &value)
{
    const std::shared_ptr<NSValueTransformer> transformer = binding->transformer;
    const bool isReversible = transformer && transformer->allowsReverseTransformation();
    QVariant result = isReversible ? transformer->reverseTransformedValue(value) : value;
    if (binding->isOver || !binding->object)
        return;
    NSError error;
    const QVariant object = QVariant::fromValue(binding->object.data());
    if (!NSKeyValueCoding::validateValue(object, &result, binding->keyPath, &error))
        NSException::raise(NSInvalidArgumentException, error.isNil()
                                                           ? u"The value is not valid."_s
                                                           : error.localizedDescription());
    if (!binding->isOver && binding->object)
        NSKeyValueCoding::setValueForKeyPath(binding->object, result, binding->keyPath);
}

QVariant KTPropertyBinder::currentValue() const
{
    const std::shared_ptr<Binding> binding = _binding;
    if (!binding || !binding->object)
        return {};
    const QVariant value = NSKeyValueCoding::valueForKeyPath(binding->object, binding->keyPath);
    return binding->transformer ? binding->transformer->transformedValue(value) : value;
}
