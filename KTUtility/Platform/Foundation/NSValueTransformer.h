#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QVariant>

/// Turns values of one kind into values of another, for bindings between records and views.
///
/// A transformer has no state of its own; transformers whose allowsReverseTransformation() is true
/// also turn the result back. What cannot be transformed gives nil.
class KTUTILITY_EXPORT NSValueTransformer
{
public:
    NSValueTransformer() = default;
    virtual ~NSValueTransformer();
    NSValueTransformer(const NSValueTransformer &) = delete;
    NSValueTransformer &operator=(const NSValueTransformer &) = delete;

    /// The type of the values that transformedValue() gives.
    virtual QMetaType transformedValueClass() const = 0;
    /// Whether reverseTransformedValue() is meant to be called.
    virtual bool allowsReverseTransformation() const = 0;
    /// The value for the view.
    virtual QVariant transformedValue(const QVariant &value) const = 0;
    /// The value for the record. The base class knows no way back and gives nil.
    virtual QVariant reverseTransformedValue(const QVariant &value) const;
};
