#include "KTFieldDetailBinder.h"

#include "KTPropertyBinder.h"

#include <KTUtility/Platform/AppKit/NSKeyValueBinding.h>
#include <KTUtility/Platform/Diagnostics/NSAssertionHandler.h>
#include <KTUtility/Platform/Keys/Invoker.h>
#include <KTUtility/Platform/Keys/NSKeyValueCoding.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QScopedValueRollback>
#include <QSet>

#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr const char *Create = "createNewFieldDetailObjectForField:";
constexpr const char *WasBound = "fieldDetailObjectWasBound:toField:";
constexpr const char *WillBeDestroyed = "fieldDetailObjectWillBeDestroyed:";
constexpr const char *FinishedAdding = "fieldDetailObjectsFinishedAdding";
constexpr const char *FinishedRemoving = "fieldDetailObjectsFinishedRemoving";
constexpr const char *FinishedRearrange = "fieldDetailObjectsFinishedRearrange";
constexpr const char *SetAutoScroll = "setAutoScrollToInsertedObject:";

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

void need(const KeyValueTarget &owner, const char *selector, int line)
{
    if (!Invoker::respondsTo(owner, selector))
        fail(u"initWithOwner:"_s, line, u"Owner does not respond to selector \"%@\""_s,
             {QString::fromLatin1(selector)});
}

QVariant boxed(QObject *object)
{
    return QVariant::fromValue(object);
}
} // namespace

KTFieldDetailBinder::KTFieldDetailBinder(QObject *owner) : _owner(owner)
{
    const KeyValueTarget target = KeyValueTarget::of(owner);
    need(target, Create, Line::NeedsCreate);
    need(target, WasBound, Line::NeedsWasBound);
    need(target, WillBeDestroyed, Line::NeedsWillBeDestroyed);
}

KTFieldDetailBinder::~KTFieldDetailBinder()
{
    unbind(_fieldsBindingName);
}

void KTFieldDetailBinder::setFieldDetailValuesValueTransformer(
    const std::shared_ptr<NSValueTransformer> &transformer, const NSPredicate &usingPredicate)
{
    _fieldDetailValuesValueTransformer = transformer;
    _fieldDetailValuesValueTransformerPredicate = usingPredicate;
}

bool KTFieldDetailBinder::willHandleBindingName(const QString &name) const
{
    return name == _fieldsBindingName || name == _valueSourceBindingName ||
           name == _fieldDetailValuesBindingName || _fieldDependentBindingNames.contains(name);
}

// --- Binding ------------------------------------------------------------------------------------

void KTFieldDetailBinder::bind(const QString &binding, QObject *toObject,
                               const QString &withKeyPath, const QVariantMap &options)
{
    if (binding == _fieldsBindingName)
        bindFields(toObject, withKeyPath, options);
    else if (_fieldDependentBindingNames.contains(binding))
        bindFieldDependent(binding, toObject, withKeyPath, options);
    else if (binding == _valueSourceBindingName)
        bindValueSource(toObject, withKeyPath, options);
}

void KTFieldDetailBinder::bindFields(QObject *object, const QString &keyPath,
                                     const QVariantMap &options)
{
    if (!object)
        failParameter(Line::NeedsController, "observableController != nil");
    if (keyPath.isEmpty())
        failParameter(Line::NeedsKeyPath, "[keyPath length] > 0");
    unbindFields();
    NSKeyValueObserving::addObserver(object, this, keyPath,
                                     NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld,
                                     _fieldsBindingName);
    _fieldsBinding = std::make_shared<FieldsBinding>();
    _observedObjectForFields = object;
    _observedKeyPathForFields = keyPath;
    // A name of a transformer is deliberately not looked at.
    _valueTransformerForFields = NSBindingOptions::transformerIn(options);
    _fieldDependentBinders.clear();
    _fieldDetailObjects.removeAllObjects();
    observeValueForKeyPath(keyPath, object, {}, _fieldsBindingName);
}

void KTFieldDetailBinder::bindFieldDependent(const QString &name, QObject *object,
                                             const QString &keyPath, const QVariantMap &options)
{
    if (!_observedObjectForFields) {
        fail(u"bind:toObject:withKeyPath:options:"_s, Line::NeedsFields,
             u"%@ binding is only valid when %@ binding is set."_s, {name, _fieldsBindingName});
        return;
    }
    unbind(name);
    const auto binder = std::make_shared<KTPropertyBinder>(name, name, nullptr);
    binder->setShouldObserveKeyPath(false);
    binder->bind(name, object, keyPath, options);
    _fieldDependentBinders[name] = binder;
    const QString subBinding = _fieldDependentBindingNames.value(name);
    const Fields fields = _currentValueForFields;
    const std::shared_ptr<FieldsBinding> fieldsBinding = _fieldsBinding;
    for (const Field &field : fields) {
        if (fieldsBinding->isOver)
            return;
        _bindFieldDetail(subBinding, _fieldDetailObjects.objectForKey(field.object), field.object,
                         binder.get());
    }
}

void KTFieldDetailBinder::bindValueSource(QObject *object, const QString &keyPath,
                                          const QVariantMap &options)
{
    unbind(_valueSourceBindingName);
    _valueSourceBinder = std::make_unique<KTPropertyBinder>();
    _valueSourceBinder->setShouldObserveKeyPath(false);
    _valueSourceBinder->bind(_valueSourceBindingName, object, keyPath, options);
}

void KTFieldDetailBinder::unbind(const QString &binding)
{
    if (binding == _fieldsBindingName)
        unbindFields();
    else if (_fieldDependentBindingNames.contains(binding))
        _fieldDependentBinders.erase(binding);
    else if (binding == _valueSourceBindingName)
        _valueSourceBinder.reset();
}

/// The list of fields deliberately stays as it was.
void KTFieldDetailBinder::unbindFields()
{
    const std::shared_ptr<FieldsBinding> binding = _fieldsBinding;
    if (!binding)
        return;
    // Nothing is added any more.
    const QScopedValueRollback<bool> setting(binding->isSetting, true);
    // A copy: the owner may change the fields meanwhile.
    const Fields current = _currentValueForFields;
    if (_processRemovedFields(current))
        tellOwner(FinishedRearrange);
    // The owner may have ended it already.
    if (binding->isOver)
        return;
    binding->isOver = true;
    _fieldsBinding = nullptr;
    _fieldDependentBinders.clear();
    _fieldDetailObjects.removeAllObjects();
    NSKeyValueObserving::removeObserver(_observedObjectForFields, this, _observedKeyPathForFields);
    _observedObjectForFields = nullptr;
    _observedKeyPathForFields = QString();
    _valueTransformerForFields = nullptr;
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
QString KTFieldDetailBinder::restBehindFields(const KTPropertyBinder &binder) const
{
    const QString fields = _observedKeyPathForFields + u'.';
    const bool leadsOverFields =
        binder.observedObject() == _observedObjectForFields && binder.keyPath().startsWith(fields);
    return leadsOverFields ? binder.keyPath().sliced(fields.size()) : QString();
}

void KTFieldDetailBinder::_bindFieldDetail(const QString &subBinding, QObject *fieldDetail,
                                           QObject *field,
                                           const KTPropertyBinder *withPropertyBinder) const
{
    auto *const detail = qobject_cast<NSKeyValueBinding *>(fieldDetail);
    if (!withPropertyBinder || !detail || !detail->exposedBindings().contains(subBinding))
        return;
    const QString rest = restBehindFields(*withPropertyBinder);
    if (rest.isEmpty())
        detail->bind(subBinding, withPropertyBinder->observedObject(),
                     withPropertyBinder->keyPath(), withPropertyBinder->bindingOptions());
    else
        detail->bind(subBinding, field, rest, withPropertyBinder->bindingOptions());
}

/// Under which key the value of a field is found in the value source; nil if it has none.
QVariant KTFieldDetailBinder::fieldDetailValueFor(QObject *field) const
{
    const auto found = _fieldDependentBinders.find(_fieldDetailValuesBindingName);
    if (found == _fieldDependentBinders.end())
        return {};
    const KTPropertyBinder &binder = *found->second;
    const QString rest = restBehindFields(binder);
    if (rest.isEmpty())
        return binder.currentValue();
    const QVariant value = NSKeyValueCoding::valueForKeyPath(field, rest);
    return binder.valueTransformer() ? binder.valueTransformer()->transformedValue(value) : value;
}

QVariantMap KTFieldDetailBinder::valueOptionsFor(QObject *fieldDetail) const
{
    const NSPredicate &predicate = _fieldDetailValuesValueTransformerPredicate;
    const bool isMeant = predicate.isNil() || predicate.evaluateWithObject(fieldDetail);
    return isMeant ? NSBindingOptions::withTransformer(_fieldDetailValuesValueTransformer)
                   : QVariantMap();
}

void KTFieldDetailBinder::bindValue(QObject *fieldDetail, QObject *field) const
{
    const QVariant key = fieldDetailValueFor(field);
    auto *const detail = qobject_cast<NSKeyValueBinding *>(fieldDetail);
    if (NSObject::isNil(key) || !detail || !valueSourceObject())
        return;
    detail->bind(NSValueBinding, valueSourceObject(),
                 NSString::stringWithFormat(u"%@.%@", valueSourceKeyPath(), key),
                 valueOptionsFor(fieldDetail));
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
    if (!_observedObjectForFields)
        return {};
    QVariant value =
        NSKeyValueCoding::valueForKeyPath(_observedObjectForFields, _observedKeyPathForFields);
    if (_valueTransformerForFields)
        value = _valueTransformerForFields->transformedValue(value);
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
    const QScopedValueRollback<bool> setting(binding->isSetting, true);
    while (!binding->isOver && std::exchange(binding->mustBeSet, false))
        setFieldsOnce(*binding);
}

void KTFieldDetailBinder::setFieldsOnce(const FieldsBinding &binding)
{
    const Fields fields = fieldsIn(_fieldsBindingValue());
    const Fields removed = fieldsNotIn(_currentValueForFields, fields);
    const Fields added = fieldsNotIn(fields, _currentValueForFields);
    if (removed.size() == _currentValueForFields.size())
        tellOwner(SetAutoScroll, {false});
    if (binding.isOver || !_processRemovedFields(removed))
        return;
    _currentValueForFields = fields;
    if (!_processAddedFields(added))
        return;
    tellOwner(FinishedRearrange);
    if (!binding.isOver)
        tellOwner(SetAutoScroll, {true});
}

/// \return false if the owner has ended the binding; this object may be destroyed then.
bool KTFieldDetailBinder::_processAddedFields(const Fields &fields)
{
    const std::shared_ptr<FieldsBinding> binding = _fieldsBinding;
    for (const Field &field : fields) {
        if (field.object)
            addField(field.object, *binding);
        if (binding->isOver)
            return false;
    }
    tellOwner(FinishedAdding);
    return !binding->isOver;
}

void KTFieldDetailBinder::addField(const QPointer<QObject> &field, const FieldsBinding &binding)
{
    if (!_owner)
        return;
    const QPointer<QObject> detail =
        Invoker(Create, {boxed(field)}).perform(KeyValueTarget::of(_owner)).value<QObject *>();
    if (binding.isOver || !detail || !field)
        return;
    bindNewDetail(detail, field, binding);
    if (binding.isOver || !detail || !field)
        return;
    _fieldDetailObjects.setObject(detail, field);
    tellOwner(WasBound, {boxed(detail), boxed(field)});
}

void KTFieldDetailBinder::bindNewDetail(const QPointer<QObject> &detail,
                                        const QPointer<QObject> &field,
                                        const FieldsBinding &binding)
{
    const QMap<QString, QString> names = _fieldDependentBindingNames;
    for (auto name = names.constBegin(); name != names.constEnd(); ++name) {
        if (binding.isOver || !detail || !field)
            return;
        const auto found = _fieldDependentBinders.find(name.key());
        if (name.key() == _fieldDetailValuesBindingName || found == _fieldDependentBinders.end())
            continue;
        const std::shared_ptr<KTPropertyBinder> binder = found->second;
        _bindFieldDetail(name.value(), detail, field, binder.get());
    }
    if (!binding.isOver && detail && field)
        bindValue(detail, field);
}

/// \return false if the owner has ended the binding; this object may be destroyed then.
bool KTFieldDetailBinder::_processRemovedFields(const Fields &fields)
{
    const std::shared_ptr<FieldsBinding> binding = _fieldsBinding;
    for (const Field &field : fields) {
        removeField(field.address);
        if (binding->isOver)
            return false;
    }
    tellOwner(FinishedRemoving);
    return !binding->isOver;
}

void KTFieldDetailBinder::removeField(const QObject *address)
{
    const QPointer<QObject> detail = _fieldDetailObjects.objectForAddress(address);
    _fieldDetailObjects.removeObjectForKey(address);
    auto *const bound = qobject_cast<NSKeyValueBinding *>(detail.data());
    const QMap<QString, QString> names = _fieldDependentBindingNames;
    for (const QString &subBinding : names) {
        if (bound && detail)
            bound->unbind(subBinding);
    }
    if (detail)
        tellOwner(WillBeDestroyed, {boxed(detail)});
}

/// Calls a method of the owner, if it has it.
void KTFieldDetailBinder::tellOwner(const char *selector, const QVariantList &arguments) const
{
    const KeyValueTarget owner = KeyValueTarget::of(_owner.data());
    if (!Invoker::respondsTo(owner, selector))
        return;
    Invoker invoker(selector, {arguments.value(0), arguments.value(1)});
    invoker.perform(owner);
}
