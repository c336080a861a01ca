#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSValueTransformer.h>

/// Between data and the text that it holds in UTF-8, for bindings of text views to data columns.
///
/// \code
/// KTString_KTDataTransformer transformer;
/// transformer.transformedValue(QByteArray("\xC3\xA9"));    // "é"
/// transformer.reverseTransformedValue(u"é"_s);    // the two bytes
/// \endcode
class KTUTILITY_EXPORT KTString_KTDataTransformer : public NSValueTransformer
{
public:
    /// The text class.
    QMetaType transformedValueClass() const override;
    bool allowsReverseTransformation() const override { return true; }
    /// Data to text; nil for nil, for what is no data, and for bytes that are not valid UTF-8.
    QVariant transformedValue(const QVariant &value) const override;
    /// Text to data; nil for nil, for what is no text, and for half a surrogate pair, which has no
    /// form in UTF-8.
    QVariant reverseTransformedValue(const QVariant &value) const override;
};
