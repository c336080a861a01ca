// Every transformer through every way that a binder has, there and back.

#include <KTUtility/KTPropertyBinder>

#include <KTUtility/KTBaseValueTransformer>
#include <KTUtility/KTBoolImageTransformer>
#include <KTUtility/KTFileExtensionValueTransformer>
#include <KTUtility/KTNewlineTabCharTransformer>
#include <KTUtility/KTSingleObjectFilterNegated>
#include <KTUtility/KTStringColorTransformer>
#include <KTUtility/NSObject>

#include "BinderSupport.h"
#include "support/ObservedModel.h"
#include "support/TestSupport.h"

#include <QColor>

using namespace Qt::StringLiterals;

namespace {
struct Case
{
    std::shared_ptr<NSValueTransformer> transformer;
    QVariant model;
    QVariant shown;
    QVariant typed;
    QVariant stored; ///< what the model gets of what is typed
};

std::shared_ptr<NSValueTransformer> images()
{
    auto transformer = std::make_shared<KTBoolImageTransformer>();
    transformer->setOnImage(QImage(1, 1, QImage::Format_RGB32));
    return transformer;
}

QList<Case> cases()
{
    const auto text = [](const char16_t *units) { return QVariant(QString::fromUtf16(units)); };
    return {
        {KTFileExtensionValueTransformer::valueTransformer(), text(u"a.b"), text(u"a"), text(u"c"),
         text(u"c")},
        {KTBaseValueTransformer::valueTransformer(), 0, 1U, 5, 4U},
        {KTBaseValueTransformer::reversedValueTransformer(), 1, 0U, 5, 6U},
        {images(), false, QVariant(), true, true},
        {std::make_shared<KTNewlineTabCharTransformer>(), text(u"a\nb"), text(u"a\tb"),
         text(u"c\td"), text(u"c\nd")},
        {KTSingleObjectFilter::valueTransformer(), QVariantList{1, 2}, 1, 3, QVariantList{3}},
        {KTSingleObjectFilter::reversedValueTransformer(), 1, QVariantList{1}, QVariantList{3, 4},
         3},
        {KTSingleObjectFilterNegated::valueTransformer(), QVariantList{true}, false, true, true},
        {std::make_shared<KTStringColorTransformer>(), text(u"1 0 0 1"), QColor(Qt::red),
         QColor(Qt::blue), text(u"0 0 1 1")},
    };
}

const QString Any = u"any"_s;
} // namespace

TEST(KTPropertyBinderTransformer, TransformIntoTheOwnerWhenBoundAndWhenChanged)
{
    for (const Case &each : cases()) {
        ObservedRecord record;
        record.setAny(each.model);
        BoundView view;
        const QVariantMap options = NSBindingOptions::withTransformer(each.transformer);
        view.bind(NSValueBinding, &record, Any, options);
        EXPECT_TRUE(NSObject::isEqual(view.value(), each.shown));
        EXPECT_TRUE(NSObject::isEqual(view.valueBinder.currentValue(), each.shown));
        record.setAny(QVariant());
        record.setAny(each.model);
        EXPECT_TRUE(NSObject::isEqual(view.value(), each.shown));
        EXPECT_EQ(view.sets, 3);
    }
}

TEST(KTPropertyBinderTransformer, TransformBackIntoTheModel)
{
    for (const Case &each : cases()) {
        ObservedRecord record;
        record.setAny(each.model);
        BoundView view;
        view.bind(NSValueBinding, &record, Any,
                  NSBindingOptions::withTransformer(each.transformer));
        view.type(each.typed);
        EXPECT_TRUE(NSObject::isEqual(record.any(), each.stored));
        record.setAny(each.model);
        view.valueBinder.setCurrentValue(each.typed);
        EXPECT_TRUE(NSObject::isEqual(record.any(), each.stored));
    }
}

TEST(KTPropertyBinderTransformer, TransformNilBothWays)
{
    for (const Case &each : cases()) {
        ObservedRecord record;
        BoundView view;
        view.bind(NSValueBinding, &record, Any,
                  NSBindingOptions::withTransformer(each.transformer));
        const QVariant shown = each.transformer->transformedValue(QVariant());
        EXPECT_TRUE(NSObject::isEqual(view.value(), shown));
        view.type(QVariant());
        const bool isReversible = each.transformer->allowsReverseTransformation();
        EXPECT_TRUE(NSObject::isEqual(
            record.any(),
            isReversible ? each.transformer->reverseTransformedValue(QVariant()) : QVariant()));
    }
}
