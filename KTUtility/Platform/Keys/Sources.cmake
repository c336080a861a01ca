target_sources(KTUtility PRIVATE
    Platform/Keys/NSClass.cpp
    Platform/Keys/NSClassRegistry.cpp
    Platform/Keys/NSInvoker.cpp
    Platform/Keys/NSKeyAccessor.cpp
    Platform/Keys/NSKeyPath.cpp
    Platform/Keys/KeyPathObserver.cpp
    Platform/Keys/NSKeyValueCoding.cpp
    Platform/Keys/NSKeyValueObservation.cpp
    Platform/Keys/NSKeyValueObserving.cpp
    Platform/Keys/NSKeyValueTarget.cpp
    Platform/Keys/ObservedKey.cpp
    Platform/Keys/NSPredicate.cpp
    Platform/Keys/PredicateParser.cpp
    Platform/Keys/NSSelectionMarker.cpp
    Platform/Keys/NSSelector.cpp
    Platform/Keys/NSValueTransformer.cpp
)
