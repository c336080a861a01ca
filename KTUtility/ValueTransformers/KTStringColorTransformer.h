#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSValueTransformer.h>

/// Between a stored text and the color that it stands for; see KTAdditions::ktColorWithString().
///
/// \code
/// KTStringColorTransformer transformer;
/// transformer.transformedValue(u"1 0 0 1"_s).value<QColor>();      // red
/// transformer.reverseTransformedValue(QVariant::fromValue(QColor(Qt::red)));    // "1 0 0 1"
/// \endcode
class KTUTILITY_EXPORT KTStringColorTransformer : public NSValueTransformer
{
public:
    QMetaType transformedValueClass() const override;
    bool allowsReverseTransformation() const override { return true; }
    /// The color; nil for nil.
    /// \throws NSException NSInternalInconsistencyException "value must be NSString" for what is no
    /// text (through the assertion handler).
    QVariant transformedValue(const QVariant &value) const override;
    /// The text; nil for nil.
    /// \throws NSException NSInternalInconsistencyException "value must be NSColor" for what is no
    /// color (through the assertion handler).
    QVariant reverseTransformedValue(const QVariant &value) const override;
};

/// "KTStringColorTransformer", the name by which it is found.
KTUTILITY_EXPORT extern const QString KTStringColorTransformerName;
