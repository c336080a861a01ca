#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSValueTransformer.h>

/// Lets a control of one line show and edit a text of several: line feeds are tabs there.
///
/// A tab that is typed comes back as a line feed, deliberately. Carriage returns stay.
///
/// \code
/// KTNewlineTabCharTransformer transformer;
/// transformer.transformedValue(u"one\ntwo"_s);           // "one\ttwo"
/// transformer.reverseTransformedValue(u"one\ttwo"_s);    // "one\ntwo"
/// \endcode
class KTUTILITY_EXPORT KTNewlineTabCharTransformer : public NSValueTransformer
{
public:
    QMetaType transformedValueClass() const override;
    bool allowsReverseTransformation() const override { return true; }
    /// The text with tabs for line feeds; nil for nil.
    /// \throws NSException NSInternalInconsistencyException "value must be NSString" for everything
    /// else (through the assertion handler).
    QVariant transformedValue(const QVariant &value) const override;
    /// The text with line feeds for tabs; otherwise as transformedValue().
    QVariant reverseTransformedValue(const QVariant &value) const override;
};

/// "KTNewlineTabCharTransformer", the name by which it is found.
KTUTILITY_EXPORT extern const QString KTNewlineTabCharTransformerName;
