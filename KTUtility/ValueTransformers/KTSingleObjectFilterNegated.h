#pragma once

#include "KTSingleObjectFilter.h"

/// Whether to hide or disable a control, from the flag that is the only selected object.
///
/// \code
/// const auto filter = KTSingleObjectFilterNegated::valueTransformer();
/// filter->transformedValue(QVariantList{true});    // false
/// filter->transformedValue(QVariantList());        // nil, not true
/// \endcode
class KTUTILITY_EXPORT KTSingleObjectFilterNegated : public KTSingleObjectFilter
{
public:
    /// A new transformer. reversedValueTransformer() is the inherited one, and makes none of this
    /// class.
    static std::shared_ptr<KTSingleObjectFilterNegated> valueTransformer();

    bool allowsReverseTransformation() const override { return false; }
    /// What KTSingleObjectFilter gives, and if that is a number, whether it is 0.
    QVariant transformedValue(const QVariant &value) const override;
};
