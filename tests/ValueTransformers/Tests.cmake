target_sources(KTUtilityTests PRIVATE
    ValueTransformers/KTBaseValueTransformerTests.cpp
    ValueTransformers/KTBoolImageTransformerTests.cpp
    ValueTransformers/KTFileExtensionValueTransformerTests.cpp
    ValueTransformers/KTNewlineTabCharTransformerTests.cpp
    ValueTransformers/KTSingleObjectFilterNegatedTests.cpp
    ValueTransformers/KTSingleObjectFilterTests.cpp
    ValueTransformers/KTStringColorTransformerTests.cpp
    ValueTransformers/KTString_KTDataTransformerTests.cpp
    ValueTransformers/ValueTransformerTableTests.cpp
)
