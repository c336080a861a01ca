#pragma once

#include "KTFieldDetailCallbacks.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSKeyValueObserving.h>
#include <KTUtility/Platform/Keys/NSValueTransformer.h>
#include <KTUtility/Platform/Queries/NSPredicate.h>

#include <QList>
#include <QMap>
#include <QPointer>
#include <QVariantMap>

#include <memory>

class KTPropertyBinder;
namespace KTPrivate {
class FirstFailure;
}

/// Lets a view (the owner) show one detail object for each field of a collection, such as an editor
/// for each column of a record, and keeps these bound while fields are added and removed.
///
/// The owner exposes a binding for the collection of fields; one for the object whose values are
/// shown, the value source; one that says under which key a field's value is found there; and any
/// number that are passed on to every detail object under a name of theirs. A binding that begins
/// where the fields do ("arrangedObjects.label" beside "arrangedObjects") is bound to each field
/// ("label"), others to their own object.
///
/// Fields and detail objects are QObjects; other elements of the collection are passed over. Detail
/// objects implement NSKeyValueBinding, and belong to the owner. Objects that are bound to are not
/// kept alive. The collection is replaced as a whole; changes of single elements fail an assertion.
/// What the owner changes in it while it is called is done after that. A field that stands twice in
/// the collection has two detail objects until it is gone from it. A detail object that cannot be
/// bound, because its field or the value source lacks a key, is shown all the same and does not
/// keep others from being shown; the same is true for a call of the owner that raises. The first
/// exception is thrown when all is done, or written to the log if a signal was the cause.
///
/// The owner may do everything when it is called: bind the fields to something else (which counts,
/// if it happens while they are being bound), unbind them, delete the binder. Every detail object
/// that it has made is told of its end. For the main thread.
///
/// The owner has these invokable methods; without the first three, the constructor fails:
///
/// | method | |
/// |---|---|
/// | `QObject *createNewFieldDetailObjectForField(field)` | makes the detail object of a field |
/// | `fieldDetailObjectWasBound(detail, toField)` | it is bound: show it |
/// | `fieldDetailObjectWillBeDestroyed(detail)` | it is not needed any more |
/// | `fieldDetailObjectsFinishedAdding()` | after all were added |
/// | `fieldDetailObjectsFinishedRemoving()` | after all were removed |
/// | `fieldDetailObjectsFinishedRearrange()` | after every change of the collection |
/// | `setAutoScrollToInsertedObject(bool)` | off while all is replaced, on after each change |
///
/// In place of a view with these methods, the owner may be any object, with functions of the same
/// kinds (KTFieldDetailCallbacks).
///
/// An owner that holds the binder as a member declares it behind the members that these methods
/// use.
///
/// \code
/// KTFieldDetailBinder binder(form);
/// binder.setFieldsBindingName(u"fields"_s);
/// binder.setValueSourceBindingName(u"record"_s);
/// binder.setFieldDetailValuesBindingName(u"keys"_s);
/// binder.addFieldDependentBindingName(u"keys"_s, u"key"_s);
/// binder.addFieldDependentBindingName(u"labels"_s, u"label"_s);
///
/// binder.bind(u"record"_s, controller, u"selection"_s);
/// binder.bind(u"fields"_s, library, u"fields"_s);
/// binder.bind(u"keys"_s, library, u"fields.key"_s);
/// binder.bind(u"labels"_s, library, u"fields.label"_s);
/// library->setFields(fields);    // values are bound for fields that come after the keys
/// \endcode
class KTUTILITY_EXPORT KTFieldDetailBinder : public NSKeyValueObserver
{
public:
    /// \throws NSException NSInternalInconsistencyException "Owner does not respond to selector …"
    /// if the owner lacks a method that it needs (through the assertion handler).
    explicit KTFieldDetailBinder(QObject *owner);
    /// A binder that calls functions. They are not called any more once \a context is destroyed.
    /// \throws NSException as above if there is none that makes detail objects.
    KTFieldDetailBinder(QObject *context, KTFieldDetailCallbacks callbacks);
    /// Unbinds the fields, with all calls to the owner, if that is still there.
    ~KTFieldDetailBinder() override;

    // --- Which bindings of the owner are what; set before binding

    /// The binding whose value is the collection of fields.
    void setFieldsBindingName(const QString &name) { _fieldsBindingName = name; }
    /// The binding whose object the values are read from, such as a record.
    void setValueSourceBindingName(const QString &name) { _valueSourceBindingName = name; }
    /// The binding that says, for each field, under which key its value is read.
    void setFieldDetailValuesBindingName(const QString &name)
    {
        _fieldDetailValuesBindingName = name;
    }
    /// A binding of the owner that is passed on to the detail objects as their \a forSubBinding.
    void addFieldDependentBindingName(const QString &name, const QString &forSubBinding)
    {
        _fieldDependentBindingNames.insert(name, forSubBinding);
    }
    /// The transformer for the detail objects' values.
    /// \param transformer null for none.
    /// \param usingPredicate which detail objects it is for; nil for all.
    void
    setFieldDetailValuesValueTransformer(const std::shared_ptr<NSValueTransformer> &transformer,
                                         const NSPredicate &usingPredicate = {});

    /// Whether this binder is for a binding of the owner.
    bool willHandleBindingName(const QString &name) const;

    // --- Binding

    /// Binds one of the owner's bindings, in place of what it was bound to; other names are
    /// ignored. Bound to fields, all detail objects that are needed are made.
    /// \param options NSValueTransformerBindingOption says which transformer makes the collection.
    /// \throws NSException NSInternalInconsistencyException (through the assertion handler) if the
    /// fields are bound to no object or an empty path, or if a binding for detail objects comes
    /// before the fields; NSUndefinedKeyException for unknown keys.
    void bind(const QString &binding, QObject *toObject, const QString &withKeyPath,
              const QVariantMap &options = {});
    /// Ends a binding. Without fields, no detail object stays; without a binding that is passed on,
    /// those that there are keep it.
    void unbind(const QString &binding);

    /// What the values are read from; null and nil if nothing is bound.
    QObject *valueSourceObject() const;
    /// The key path below which the values are read; nil if nothing is bound.
    QString valueSourceKeyPath() const;

    /// The collection as it is now.
    QVariantList _fieldsBindingValue() const;

    /// The fields have changed. Other contexts are not for this class.
    void observeValueForKeyPath(const QString &keyPath, QObject *ofObject,
                                const NSKeyValueChange &change, const QString &context) override;

private:
    /// A field, which may be destroyed while its detail object is still there.
    struct Field
    {
        QPointer<QObject> object;
        const QObject *address = nullptr;
    };
    using Fields = QList<Field>;
    struct FieldsBinding;

    static Fields fieldsIn(const QVariantList &elements);
    static Fields fieldsNotIn(const Fields &fields, const Fields &others);
    static QVariantList collectionOf(const FieldsBinding &binding);
    static QString restBehindFields(const FieldsBinding &binding, const KTPropertyBinder &binder);
    static void _bindFieldDetail(const FieldsBinding &binding, const QString &subBinding,
                                 QObject *fieldDetail, QObject *field,
                                 const KTPropertyBinder &withPropertyBinder);

    void bindFields(QObject *object, const QString &keyPath, const QVariantMap &options);
    void observeFields(const std::shared_ptr<FieldsBinding> &binding);
    void bindFieldDependent(const QString &name, QObject *object, const QString &keyPath,
                            const QVariantMap &options);
    void bindAllDetails(const std::shared_ptr<FieldsBinding> &binding, const QString &subBinding,
                        const KTPropertyBinder &binder);
    void bindValueSource(QObject *object, const QString &keyPath, const QVariantMap &options);
    void unbindFields();
    void bindValue(const FieldsBinding &binding, const QPointer<QObject> &fieldDetail,
                   QObject *field) const;
    QVariant fieldDetailValueFor(const FieldsBinding &binding, QObject *field) const;
    QVariantMap valueOptionsFor(QObject *fieldDetail) const;
    void setFields();
    void setFieldsOnce(FieldsBinding &binding, KTPrivate::FirstFailure *failure);
    bool _processAddedFields(FieldsBinding &binding, const Fields &fields,
                             KTPrivate::FirstFailure *failure);
    void addField(FieldsBinding &binding, const QPointer<QObject> &field,
                  KTPrivate::FirstFailure *failure);
    void bindNewDetail(const FieldsBinding &binding, const QPointer<QObject> &detail,
                       const QPointer<QObject> &field, KTPrivate::FirstFailure *failure);
    bool _processRemovedFields(FieldsBinding &binding, const Fields &fields,
                               KTPrivate::FirstFailure *failure);

    void needOwner() const;

    QPointer<QObject> _owner;
    std::shared_ptr<const KTFieldDetailCallbacks> _callbacks; // null for the owner's methods
    QString _fieldsBindingName;
    QString _valueSourceBindingName;
    QString _fieldDetailValuesBindingName;
    QMap<QString, QString> _fieldDependentBindingNames;
    std::shared_ptr<NSValueTransformer> _fieldDetailValuesValueTransformer;
    NSPredicate _fieldDetailValuesValueTransformerPredicate;
    Fields _currentValueForFields;
    std::shared_ptr<FieldsBinding> _fieldsBinding; // null while the fields are not bound
    std::unique_ptr<KTPropertyBinder> _valueSourceBinder;
    // Outlives this object while the owner is called.
    std::shared_ptr<bool> _isGone = std::make_shared<bool>(false);
};
