target_sources(KTUtilityTests PRIVATE
    ValueTransformers/KTBaseValueTransformerTests.cpp
    ValueTransformers/KTString_KTDataTransformerTests.cpp
)
