target_sources(KTUtilityTests PRIVATE
    Bindings/BinderSupport.h
    Bindings/KTFieldDetailBinderLifetimeTests.cpp
    Bindings/KTFieldDetailBinderTests.cpp
    Bindings/KTPropertyBinderTests.cpp
    Bindings/KTPropertyBinderTransformerTests.cpp
)
