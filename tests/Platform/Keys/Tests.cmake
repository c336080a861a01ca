target_sources(KTUtilityTests PRIVATE
    Platform/Keys/NSClassTests.cpp
    Platform/Keys/NSInvokerTests.cpp
    Platform/Keys/NSKeyValueCodingTests.cpp
    Platform/Keys/NSKeyValueObservationTests.cpp
    Platform/Keys/NSKeyValueObservingTests.cpp
    Platform/Keys/NSKeyValueSettersTests.cpp
    Platform/Keys/NSPredicateTests.cpp
    Platform/Keys/NSValueMatcherTests.cpp
    support/ObservedModel.h
)
