#include "KTFieldDetailBinder.h"

#include "FieldDetailOwner_p.h"
#include "FieldDetails_p.h"
#include "KTPropertyBinder.h"

#include <KTUtility/Platform/AppKit/NSKeyValueBinding.h>
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Diagnostics/NSAssertionHandler.h>
#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Values/FirstFailure_p.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QScopedValueRollback>
#include <QSet>

#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// The lines that failed assertions report. Deliberate: they are fixed and do not follow the
/// source.
namespace Line {
constexpr int NeedsCreate = 44;
constexpr int NeedsWasBound = 45;
constexpr int NeedsWillBeDestroyed = 46;
constexpr int NeedsController = 120;
constexpr int NeedsKeyPath = 121;
constexpr int NeedsFields = 144;
constexpr int Insertion = 256;
constexpr int Removal = 260;
constexpr int Replacement = 264;
} // namespace Line

void fail(const QString &method, int line, const QString &description,
          std::initializer_list<NSFormatArgument> arguments = {})
{
    NSAssertionHandler::currentHandler()->handleFailureInMethod(
        method, NSAssertionSubject::instanceOf(u"KTFieldDetailBinder"_s),
        u"Bindings/KTFieldDetailBinder"_s, line, description,
        std::span(arguments.begin(), arguments.size()));
}

void failParameter(int line, const char *condition)
{
    fail(u"bind:toObject:withKeyPath:options:"_s, line, u"Invalid parameter not satisfying: %s"_s,
         {condition});
}

void need(const FieldDetailOwner &owner, const char *selector, int line)
{
    if (!owner.respondsTo(selector))
        fail(u"initWithOwner:"_s, line, u"Owner does not respond to selector \"%@\""_s,
             {QString::fromLatin1(selector)});
}

/// Whether a binding is the one with a name. One that has none is not meant by anything.
bool isNamed(const QString &binding, const QString &name)
{
    return !name.isNull() && !binding.isNull() && binding == name;
}

/// Where the value of a field is read, from the value source on.
QString valuePath(const QString &source, const QVariant &key)
{
    // A source that is bound to an object itself has no path.
    return source.isEmpty() ? NSString::stringWithFormat(u"%@", key)
                            : NSString::stringWithFormat(u"%@.%@", source, key);
}

/// Ends the bindings of a detail object, and tells its owner that it is not needed any more.
void endDetail(const QPointer<QObject> &detail, const QStringList &subBindings,
               const FieldDetailOwner &owner, FirstFailure *failure)
{
    auto *const bound = qobject_cast<NSKeyValueBinding *>(detail.data());
    for (const QString &subBinding : subBindings) {
        if (bound && detail)
            failure->call([&] { bound->unbind(subBinding); });
    }
    if (detail)
        failure->call([&] { owner.detailWillBeDestroyed(detail); });
}
} // namespace

/// A binding of the fields, from its beginning to its end. Whoever calls the owner, detail objects
/// or transformers holds it meanwhile, and looks afterwards whether it is over: then the binder may
/// be bound to something else, or destroyed.
struct KTFieldDetailBinder::FieldsBinding
{
    FieldDetailOwner owner;
    QPointer<QObject> object;
    QString keyPath;
    std::shared_ptr<NSValueTransformer> transformer;
    std::map<QString, std::shared_ptr<KTPropertyBinder>> dependentBinders = {};
    FieldDetails details = {};
    bool isOver = false;
    bool isSetting = false;
    bool mustBeSet = false;
};

KTFieldDetailBinder::KTFieldDetailBinder(QObject *owner) : _owner(owner)
{
    needOwner();
}

KTFieldDetailBinder::KTFieldDetailBinder(QObject *context, KTFieldDetailCallbacks callbacks)
    : _owner(context)
    , _callbacks(std::make_shared<const KTFieldDetailCallbacks>(std::move(callbacks)))
{
    needOwner();
}

void KTFieldDetailBinder::needOwner() const
{
    const FieldDetailOwner target(_owner, _callbacks);
    need(target, FieldDetailOwner::Create, Line::NeedsCreate);
    need(target, FieldDetailOwner::WasBound, Line::NeedsWasBound);
    need(target, FieldDetailOwner::WillBeDestroyed, Line::NeedsWillBeDestroyed);
}

KTFieldDetailBinder::~KTFieldDetailBinder()
{
    *_isGone = true;
    guarded(u"the owner of field details", [this] { unbindFields(); });
}

void KTFieldDetailBinder::setFieldDetailValuesValueTransformer(
    const std::shared_ptr<NSValueTransformer> &transformer, const NSPredicate &usingPredicate)
{
    _fieldDetailValuesValueTransformer = transformer;
    _fieldDetailValuesValueTransformerPredicate = usingPredicate;
}

bool KTFieldDetailBinder::willHandleBindingName(const QString &name) const
{
    return isNamed(name, _fieldsBindingName) || isNamed(name, _valueSourceBindingName) ||
           isNamed(name, _fieldDetailValuesBindingName) ||
           _fieldDependentBindingNames.contains(name);
}

// --- Binding ------------------------------------------------------------------------------------

void KTFieldDetailBinder::bind(const QString &binding, QObject *toObject,
                               const QString &withKeyPath, const QVariantMap &options)
{
    // The owner may call it at the very end, too.
    if (*_isGone)
        return;
    if (isNamed(binding, _fieldsBindingName))
        bindFields(toObject, withKeyPath, options);
    else if (_fieldDependentBindingNames.contains(binding))
        bindFieldDependent(binding, toObject, withKeyPath, options);
    else if (isNamed(binding, _valueSourceBindingName))
        bindValueSource(toObject, withKeyPath, options);
}

void KTFieldDetailBinder::bindFields(QObject *object, const QString &keyPath,
                                     const QVariantMap &options)
{
    if (!object)
        failParameter(Line::NeedsController, "observableController != nil");
    if (keyPath.isEmpty())
        failParameter(Line::NeedsKeyPath, "[keyPath length] > 0");
    // A name of a transformer is deliberately not looked at.
    const auto binding = std::make_shared<FieldsBinding>(
        FieldsBinding{FieldDetailOwner(_owner, _callbacks), object, keyPath,
                      NSBindingOptions::transformerIn(options)});
    const bool isGiven = object != nullptr;
    const std::shared_ptr<const bool> isGone = _isGone;
    unbindFields();
    // The owner may have bound the fields meanwhile, which is the later wish.
    if (*isGone || _fieldsBinding || (isGiven && !binding->object))
        return;
    _fieldsBinding = binding;
    observeFields(binding);
    if (!binding->isOver)
        observeValueForKeyPath(binding->keyPath, binding->object, {}, _fieldsBindingName);
}

void KTFieldDetailBinder::observeFields(const std::shared_ptr<FieldsBinding> &binding)
{
    try {
        NSKeyValueObserving::addObserver(
            binding->object, this, binding->keyPath,
            NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld, _fieldsBindingName);
    } catch (...) {
        if (!std::exchange(binding->isOver, true))
            _fieldsBinding = nullptr;
        throw;
    }
}

void KTFieldDetailBinder::bindFieldDependent(const QString &name, QObject *object,
                                             const QString &keyPath, const QVariantMap &options)
{
    const std::shared_ptr<FieldsBinding> binding = _fieldsBinding;
    if (!binding || !binding->object) {
        fail(u"bind:toObject:withKeyPath:options:"_s, Line::NeedsFields,
             u"%@ binding is only valid when %@ binding is set."_s, {name, _fieldsBindingName});
        return;
    }
    unbind(name);
    const auto binder = std::make_shared<KTPropertyBinder>(name, name, nullptr);
    binder->setShouldObserveKeyPath(false);
    binder->bind(name, object, keyPath, options);
    binding->dependentBinders[name] = binder;
    bindAllDetails(binding, _fieldDependentBindingNames.value(name), *binder);
}

/// Binds the detail objects that there are. One that fails does not keep the others from it.
void KTFieldDetailBinder::bindAllDetails(const std::shared_ptr<FieldsBinding> &binding,
                                         const QString &subBinding, const KTPropertyBinder &binder)
{
    FirstFailure failure;
    for (const auto &[field, detail] : binding->details.inOrderOf(_currentValueForFields)) {
        if (binding->isOver)
            break;
        if (!field || !detail)
            continue;
        failure.call([&, field = field.data(), detail = detail.data()] {
            _bindFieldDetail(*binding, subBinding, detail, field, binder);
        });
    }
    failure.rethrow();
}

void KTFieldDetailBinder::bindValueSource(QObject *object, const QString &keyPath,
                                          const QVariantMap &options)
{
    auto binder = std::make_unique<KTPropertyBinder>();
    binder->setShouldObserveKeyPath(false);
    binder->bind(_valueSourceBindingName, object, keyPath, options);
    _valueSourceBinder = std::move(binder);
}

void KTFieldDetailBinder::unbind(const QString &binding)
{
    if (isNamed(binding, _fieldsBindingName))
        unbindFields();
    else if (_fieldDependentBindingNames.contains(binding) && _fieldsBinding)
        _fieldsBinding->dependentBinders.erase(binding);
    else if (isNamed(binding, _valueSourceBindingName))
        _valueSourceBinder.reset();
}

/// The list of fields deliberately stays as it was. The binding is over before the owner is called,
/// which may bind the fields to something else, or delete this object.
void KTFieldDetailBinder::unbindFields()
{
    const std::shared_ptr<FieldsBinding> binding = std::exchange(_fieldsBinding, nullptr);
    if (!binding)
        return;
    binding->isOver = true;
    NSKeyValueObserving::removeObserverIfAdded(binding->object, this, binding->keyPath);
    const QStringList subBindings = _fieldDependentBindingNames.values();
    const Fields current = _currentValueForFields;
    FirstFailure failure;
    for (const Field &field : current) {
        for (const QPointer<QObject> &detail : binding->details.take(field.address))
            endDetail(detail, subBindings, binding->owner, &failure);
    }
    for (const QPointer<QObject> &detail : binding->details.takeAll())
        endDetail(detail, subBindings, binding->owner, &failure);
    failure.call([&] { binding->owner.finishedRemoving(); });
    failure.call([&] { binding->owner.finishedRearrange(); });
    failure.rethrow();
}

QObject *KTFieldDetailBinder::valueSourceObject() const
{
    return _valueSourceBinder ? _valueSourceBinder->observedObject() : nullptr;
}

QString KTFieldDetailBinder::valueSourceKeyPath() const
{
    return _valueSourceBinder ? _valueSourceBinder->keyPath() : QString();
}

// --- Detail objects -----------------------------------------------------------------------------

/// What of a binder's path lies behind the path of the fields; nil if it does not lead over them.
QString KTFieldDetailBinder::restBehindFields(const FieldsBinding &binding,
                                              const KTPropertyBinder &binder)
{
    const QString fields = binding.keyPath + u'.';
    const bool leadsOverFields =
        binder.observedObject() == binding.object && binder.keyPath().startsWith(fields);
    return leadsOverFields ? binder.keyPath().sliced(fields.size()) : QString();
}

void KTFieldDetailBinder::_bindFieldDetail(const FieldsBinding &binding, const QString &subBinding,
                                           QObject *fieldDetail, QObject *field,
                                           const KTPropertyBinder &withPropertyBinder)
{
    auto *const detail = qobject_cast<NSKeyValueBinding *>(fieldDetail);
    if (!detail || !detail->exposedBindings().contains(subBinding))
        return;
    // Copies: the detail object may have the binder made anew.
    const auto [options, path] =
        std::pair(withPropertyBinder.bindingOptions(), withPropertyBinder.keyPath());
    const QString rest = restBehindFields(binding, withPropertyBinder);
    if (rest.isEmpty())
        detail->bind(subBinding, withPropertyBinder.observedObject(), path, options);
    else
        detail->bind(subBinding, field, rest, options);
}

/// Under which key the value of a field is found in the value source; nil if it has none.
QVariant KTFieldDetailBinder::fieldDetailValueFor(const FieldsBinding &binding,
                                                  QObject *field) const
{
    const auto found = binding.dependentBinders.find(_fieldDetailValuesBindingName);
    if (found == binding.dependentBinders.end())
        return {};
    const std::shared_ptr<const KTPropertyBinder> binder = found->second;
    const QString rest = restBehindFields(binding, *binder);
    if (rest.isEmpty())
        return binder->currentValue();
    const std::shared_ptr<NSValueTransformer> transformer = binder->valueTransformer();
    const QVariant value = NSKeyValueCoding::valueForKeyPath(field, rest);
    return transformer ? transformer->transformedValue(value) : value;
}

QVariantMap KTFieldDetailBinder::valueOptionsFor(QObject *fieldDetail) const
{
    // Copies: the predicate may ask the detail object anything.
    const NSPredicate predicate = _fieldDetailValuesValueTransformerPredicate;
    const auto transformer = _fieldDetailValuesValueTransformer;
    const bool isMeant = predicate.isNil() || predicate.evaluateWithObject(fieldDetail);
    return isMeant ? NSBindingOptions::withTransformer(transformer) : QVariantMap();
}

void KTFieldDetailBinder::bindValue(const FieldsBinding &binding,
                                    const QPointer<QObject> &fieldDetail, QObject *field) const
{
    const QVariant key = fieldDetailValueFor(binding, field);
    if (binding.isOver || !fieldDetail || NSObject::isNil(key) || !valueSourceObject())
        return;
    const QPointer<QObject> source = valueSourceObject();
    const QString path = valuePath(valueSourceKeyPath(), key);
    const QVariantMap options = valueOptionsFor(fieldDetail);
    auto *const detail = qobject_cast<NSKeyValueBinding *>(fieldDetail.data());
    if (!binding.isOver && detail && source)
        detail->bind(NSValueBinding, source, path, options);
}

// --- Changes of the fields ----------------------------------------------------------------------

/// The objects among the elements of a collection.
KTFieldDetailBinder::Fields KTFieldDetailBinder::fieldsIn(const QVariantList &elements)
{
    Fields fields;
    fields.reserve(elements.size());
    for (const QVariant &element : elements) {
        const KeyValueTarget target = KeyValueTarget::ofVariant(element);
        if (target.kind == KeyValueTarget::Kind::Object)
            fields += Field{target.object(), target.object()};
    }
    return fields;
}

/// The fields, in order and with repeats, that \a others does not hold; all that are destroyed are
/// among them.
KTFieldDetailBinder::Fields KTFieldDetailBinder::fieldsNotIn(const Fields &fields,
                                                             const Fields &others)
{
    QSet<const QObject *> known;
    for (const Field &other : others) {
        if (other.object)
            known.insert(other.address);
    }
    Fields result;
    for (const Field &field : fields) {
        if (!field.object || !known.contains(field.address))
            result += field;
    }
    return result;
}

QVariantList KTFieldDetailBinder::_fieldsBindingValue() const
{
    const std::shared_ptr<const FieldsBinding> binding = _fieldsBinding;
    return binding ? collectionOf(*binding) : QVariantList();
}

QVariantList KTFieldDetailBinder::collectionOf(const FieldsBinding &binding)
{
    if (!binding.object)
        return {};
    QVariant value = NSKeyValueCoding::valueForKeyPath(binding.object, binding.keyPath);
    if (binding.transformer)
        value = binding.transformer->transformedValue(value);
    const bool isCollection =
        KeyValueTarget::ofVariant(value).kind == KeyValueTarget::Kind::Collection;
    return isCollection ? value.value<QVariantList>() : QVariantList();
}

void KTFieldDetailBinder::observeValueForKeyPath(const QString &keyPath, QObject *ofObject,
                                                 const NSKeyValueChange &change,
                                                 const QString &context)
{
    const QString method = u"observeValueForKeyPath:ofObject:change:context:"_s;
    const QString unsupported = u"Change type no longer supported"_s;
    if (context != _fieldsBindingName) {
        NSKeyValueObserver::observeValueForKeyPath(keyPath, ofObject, change, context);
        return;
    }
    switch (change.kind) {
    case NSKeyValueChangeSetting:
        setFields();
        break;
    case NSKeyValueChangeInsertion:
        fail(method, Line::Insertion, unsupported);
        break;
    case NSKeyValueChangeRemoval:
        fail(method, Line::Removal, unsupported);
        break;
    case NSKeyValueChangeReplacement:
        fail(method, Line::Replacement, unsupported);
        break;
    }
}

/// A change that is reported while the owner is called waits until the one before it is done.
void KTFieldDetailBinder::setFields()
{
    const std::shared_ptr<FieldsBinding> binding = _fieldsBinding;
    if (!binding)
        return;
    binding->mustBeSet = true;
    if (binding->isSetting)
        return;
    FirstFailure failure;
    {
        const QScopedValueRollback<bool> setting(binding->isSetting, true);
        while (!binding->isOver && std::exchange(binding->mustBeSet, false))
            failure.call([&] { setFieldsOnce(*binding, &failure); });
    }
    failure.rethrow();
}

void KTFieldDetailBinder::setFieldsOnce(FieldsBinding &binding, FirstFailure *failure)
{
    const Fields fields = fieldsIn(collectionOf(binding));
    if (binding.isOver)
        return;
    const Fields removed = fieldsNotIn(_currentValueForFields, fields);
    const Fields added = fieldsNotIn(fields, _currentValueForFields);
    if (removed.size() == _currentValueForFields.size())
        failure->call([&] { binding.owner.setAutoScrollToInsertedObject(false); });
    if (binding.isOver || !_processRemovedFields(binding, removed, failure))
        return;
    _currentValueForFields = fields;
    if (!_processAddedFields(binding, added, failure))
        return;
    failure->call([&] { binding.owner.finishedRearrange(); });
    if (!binding.isOver)
        failure->call([&] { binding.owner.setAutoScrollToInsertedObject(true); });
}

/// \return false if the owner has ended the binding; this object may be destroyed then.
bool KTFieldDetailBinder::_processAddedFields(FieldsBinding &binding, const Fields &fields,
                                              FirstFailure *failure)
{
    for (const Field &field : fields) {
        if (field.object)
            failure->call([&] { addField(binding, field.object, failure); });
        if (binding.isOver)
            return false;
    }
    failure->call([&] { binding.owner.finishedAdding(); });
    return !binding.isOver;
}

void KTFieldDetailBinder::addField(FieldsBinding &binding, const QPointer<QObject> &field,
                                   FirstFailure *failure)
{
    const QObject *const address = field;
    const QPointer<QObject> detail = binding.owner.createDetailFor(field);
    if (!detail)
        return;
    // Nobody would take it away later.
    if (binding.isOver || !field) {
        binding.owner.detailWillBeDestroyed(detail);
        return;
    }
    binding.details.add(address, detail);
    // One that cannot be bound is shown all the same, and told of its end in time.
    failure->call([&] { bindNewDetail(binding, detail, field, failure); });
    if (!binding.isOver && detail && field)
        binding.owner.detailWasBound(detail, field);
}

void KTFieldDetailBinder::bindNewDetail(const FieldsBinding &binding,
                                        const QPointer<QObject> &detail,
                                        const QPointer<QObject> &field, FirstFailure *failure)
{
    const QMap<QString, QString> names = _fieldDependentBindingNames;
    for (auto name = names.constBegin(); name != names.constEnd(); ++name) {
        if (binding.isOver || !detail || !field)
            return;
        const auto found = binding.dependentBinders.find(name.key());
        if (name.key() == _fieldDetailValuesBindingName || found == binding.dependentBinders.end())
            continue;
        const std::shared_ptr<const KTPropertyBinder> binder = found->second;
        failure->call([&] { _bindFieldDetail(binding, name.value(), detail, field, *binder); });
    }
    if (!binding.isOver && detail && field)
        bindValue(binding, detail, field);
}

/// \return false if the owner has ended the binding; this object may be destroyed then.
bool KTFieldDetailBinder::_processRemovedFields(FieldsBinding &binding, const Fields &fields,
                                                FirstFailure *failure)
{
    const QStringList subBindings = _fieldDependentBindingNames.values();
    for (const Field &field : fields) {
        for (const QPointer<QObject> &detail : binding.details.take(field.address))
            endDetail(detail, subBindings, binding.owner, failure);
        if (binding.isOver)
            return false;
    }
    failure->call([&] { binding.owner.finishedRemoving(); });
    return !binding.isOver;
}
