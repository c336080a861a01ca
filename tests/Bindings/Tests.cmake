target_sources(KTUtilityTests PRIVATE
    Bindings/BinderSupport.h
    Bindings/BinderLifetimeTests.cpp
    Bindings/BinderTransformerTests.cpp
    Bindings/KTFieldDetailBinderTests.cpp
    Bindings/KTPropertyBinderTests.cpp
)
