target_sources(KTUtilityTests PRIVATE
    Platform/Keys/InvokerTests.cpp
    Platform/Keys/NSClassTests.cpp
    Platform/Keys/NSKeyValueCodingSettersTests.cpp
    Platform/Keys/NSKeyValueCodingTests.cpp
    Platform/Keys/NSKeyValueObservationTests.cpp
    Platform/Keys/NSKeyValueObservingTests.cpp
    Platform/Keys/NSPredicateTests.cpp
    Platform/Keys/ValueMatcherTests.cpp
    support/ObservedModel.h
)
