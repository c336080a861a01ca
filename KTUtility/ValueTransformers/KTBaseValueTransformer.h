#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSValueTransformer.h>

/// Between counting from 0, as records do, and counting from 1, as people do.
///
/// Values are read as unsigned numbers of 32 bits, and deliberately run over: one less than 0 is
/// 4294967295.
///
/// \code
/// const auto transformer = KTBaseValueTransformer::valueTransformer();
/// transformer->transformedValue(0);           // 1
/// transformer->reverseTransformedValue(1);    // 0
/// \endcode
class KTUTILITY_EXPORT KTBaseValueTransformer : public NSValueTransformer
{
public:
    /// A new transformer from 0 to 1.
    static std::shared_ptr<KTBaseValueTransformer> valueTransformer();
    /// A new transformer from 1 to 0.
    static std::shared_ptr<KTBaseValueTransformer> reversedValueTransformer();

    QMetaType transformedValueClass() const override;
    bool allowsReverseTransformation() const override { return true; }
    /// One more, or one less if reversed; nil for nil.
    QVariant transformedValue(const QVariant &value) const override;
    /// One less, or one more if reversed; nil for nil.
    QVariant reverseTransformedValue(const QVariant &value) const override;

private:
    void setReversed(bool reversed) { _reversed = reversed; }

    bool _reversed = false;
};
