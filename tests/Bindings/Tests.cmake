target_sources(KTUtilityTests PRIVATE
    Bindings/BinderSupport.h
    Bindings/BinderTransformerTests.cpp
    Bindings/KTFieldDetailBinderTests.cpp
    Bindings/KTPropertyBinderTests.cpp
)
