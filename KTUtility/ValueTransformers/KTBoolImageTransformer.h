#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Keys/NSValueTransformer.h>

#include <QImage>

/// Shows a flag as one of two images.
///
/// \code
/// KTBoolImageTransformer transformer;
/// transformer.setOnImage(QImage(u"locked.png"_s));
/// transformer.setOffImage(QImage(u"open.png"_s));
/// transformer.transformedValue(true);    // the first
/// \endcode
class KTUTILITY_EXPORT KTBoolImageTransformer : public NSValueTransformer
{
public:
    /// The image for true; none unless set.
    void setOnImage(const QImage &image) { _onImage = image; }
    /// The image for false; none unless set.
    void setOffImage(const QImage &image) { _offImage = image; }

    /// The type of numbers, deliberately, although the values are images.
    QMetaType transformedValueClass() const override;
    bool allowsReverseTransformation() const override { return false; }
    /// The image for a number, a text as NSString::boolValue() reads it, or an object with an
    /// invokable boolValue().
    /// \return nil for nil, for values of other types, and if the image was never set.
    QVariant transformedValue(const QVariant &value) const override;

private:
    QImage _onImage;
    QImage _offImage;
};
