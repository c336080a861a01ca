#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSValueTransformer.h>

/// Shows file names without their extension, unless the user wants to see all extensions: that is
/// the flag "AppleShowAllExtensions" of the user defaults, which is asked each time.
///
/// \code
/// const auto transformer = KTFileExtensionValueTransformer::valueTransformer();
/// transformer->transformedValue(u"Report.cobble"_s);    // "Report"
/// \endcode
class KTUTILITY_EXPORT KTFileExtensionValueTransformer : public NSValueTransformer
{
public:
    /// A new transformer.
    static std::shared_ptr<KTFileExtensionValueTransformer> valueTransformer();

    QMetaType transformedValueClass() const override;
    bool allowsReverseTransformation() const override { return false; }
    /// A text without its path extension; everything else as it is.
    QVariant transformedValue(const QVariant &value) const override;
};
