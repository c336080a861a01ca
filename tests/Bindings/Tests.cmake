target_sources(KTUtilityTests PRIVATE
    Bindings/BinderLifetimeTests.cpp
    Bindings/BinderSupport.h
    Bindings/BinderTransformerTests.cpp
    Bindings/KTFieldDetailBinderTests.cpp
    Bindings/KTPropertyBinderTests.cpp
)
