#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSValueTransformer.h>

#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <optional>

/// What an object implements whose values can be bound to those of others: views, and the objects
/// that stand for their rows.
///
/// A binding has a name, such as "value" or "label". Bound to a key path of an object, it follows
/// the value there, and hands back what the user changes. KTPropertyBinder does that for one
/// binding.
///
/// \code
/// class RowView : public QWidget, public NSKeyValueBinding
/// {
///     Q_OBJECT
///     Q_INTERFACES(NSKeyValueBinding)
///
/// public:
///     QStringList exposedBindings() const override { return {NSValueBinding}; }
///     void bind(const QString &binding, QObject *toObject, const QString &withKeyPath,
///               const QVariantMap &options) override;
///     void unbind(const QString &binding) override;
/// };
/// \endcode
class KTUTILITY_EXPORT NSKeyValueBinding
{
public:
    virtual ~NSKeyValueBinding();

    /// The names of the bindings.
    virtual QStringList exposedBindings() const = 0;
    /// Binds to the value at a key path, in place of what was bound before.
    /// \param options by the keys below.
    virtual void bind(const QString &binding, QObject *toObject, const QString &withKeyPath,
                      const QVariantMap &options) = 0;
    /// Ends a binding; nothing if it is not bound.
    virtual void unbind(const QString &binding) = 0;
};

Q_DECLARE_INTERFACE(NSKeyValueBinding, "KTUtility.NSKeyValueBinding/1")

/// "value", the binding that most views have.
KTUTILITY_EXPORT extern const QString NSValueBinding;

/// The option that holds a transformer, as a std::shared_ptr<NSValueTransformer>, or as one to a
/// class of transformers that KT_REGISTER_VALUE_TRANSFORMER names.
KTUTILITY_EXPORT extern const QString NSValueTransformerBindingOption;
/// The option that holds the name of a transformer; see
/// NSValueTransformer::valueTransformerForName().
KTUTILITY_EXPORT extern const QString NSValueTransformerNameBindingOption;

// The options that hold what a view shows where a selection has no single value (see
// NSSelectionMarker). Without them it keeps what it showed before.

/// Shown for NSMultipleValuesMarker().
KTUTILITY_EXPORT extern const QString NSMultipleValuesPlaceholderBindingOption;
/// Shown for NSNoSelectionMarker().
KTUTILITY_EXPORT extern const QString NSNoSelectionPlaceholderBindingOption;
/// Shown for NSNotApplicableMarker().
KTUTILITY_EXPORT extern const QString NSNotApplicablePlaceholderBindingOption;

/// What the options of a binding say.
namespace NSBindingOptions {
/// Options with a transformer; empty if it is null.
KTUTILITY_EXPORT QVariantMap
withTransformer(const std::shared_ptr<NSValueTransformer> &transformer);
/// The transformer that stands under NSValueTransformerBindingOption; null if there is none.
/// \throws NSException NSInvalidArgumentException if something else stands there.
KTUTILITY_EXPORT std::shared_ptr<NSValueTransformer> transformerIn(const QVariantMap &options);
/// What is to be shown for a marker; nothing for other values, and if there is no such option.
KTUTILITY_EXPORT std::optional<QVariant> placeholderIn(const QVariantMap &options,
                                                       const QVariant &forMarker);
} // namespace NSBindingOptions
