target_sources(KTUtilityTests PRIVATE
    Bindings/BinderSupport.h
    Bindings/KTFieldDetailBinderLifetimeTests.cpp
    Bindings/KTFieldDetailBinderModelTests.cpp
    Bindings/KTFieldDetailBinderTests.cpp
    Bindings/KTFieldDetailCallbacksTests.cpp
    Bindings/KTPropertyBinderLifetimeTests.cpp
    Bindings/KTPropertyBinderModelTests.cpp
    Bindings/KTPropertyBinderRejectionTests.cpp
    Bindings/KTPropertyBinderTests.cpp
    Bindings/KTPropertyBinderTransformerTests.cpp
    Bindings/KeySetterTests.cpp
)
