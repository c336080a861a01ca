#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSValueTransformer.h>

/// Between a list of selected objects and its one object.
///
/// \code
/// const auto filter = KTSingleObjectFilter::valueTransformer();
/// filter->transformedValue(QVariantList{1, 2});    // 1
/// filter->transformedValue(QVariantList());        // nil
/// filter->reverseTransformedValue(1);              // (1)
/// filter->reverseTransformedValue(QVariant());     // ()
/// \endcode
class KTUTILITY_EXPORT KTSingleObjectFilter : public NSValueTransformer
{
public:
    /// A new transformer from lists to objects.
    static std::shared_ptr<KTSingleObjectFilter> valueTransformer();
    /// A new transformer from objects to lists.
    static std::shared_ptr<KTSingleObjectFilter> reversedValueTransformer();

    /// Any type.
    QMetaType transformedValueClass() const override { return {}; }
    bool allowsReverseTransformation() const override { return true; }
    /// The first element of a list, nil if it is empty; everything else as it is, sets included,
    /// which have no first element. Reversed, it does what reverseTransformedValue() does
    /// otherwise.
    QVariant transformedValue(const QVariant &value) const override;
    /// A list of the value, which is empty for nil. Reversed, it does what transformedValue() does
    /// otherwise.
    QVariant reverseTransformedValue(const QVariant &value) const override;

private:
    void setReversed(bool reversed) { _reversed = reversed; }

    bool _reversed = false;
};
