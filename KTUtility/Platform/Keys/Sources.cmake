target_sources(KTUtility PRIVATE
    Platform/Keys/NSClass.cpp
    Platform/Keys/NSClassRegistry.cpp
    Platform/Keys/NSInvoker.cpp
    Platform/Keys/NSKeyAccessor.cpp
    Platform/Keys/NSKeyPath.cpp
    Platform/Keys/NSKeyPathObserver.cpp
    Platform/Keys/NSKeyValueCoding.cpp
    Platform/Keys/NSKeyValueObservation.cpp
    Platform/Keys/NSKeyValueObserving.cpp
    Platform/Keys/NSKeyValueTarget.cpp
    Platform/Keys/NSObservedKey.cpp
    Platform/Keys/NSPredicate.cpp
    Platform/Keys/NSPredicateParser.cpp
    Platform/Keys/NSSelectionMarker.cpp
    Platform/Keys/NSSelector.cpp
    Platform/Keys/NSValueTransformer.cpp
)
