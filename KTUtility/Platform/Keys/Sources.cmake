target_sources(KTUtility PRIVATE
    Platform/Keys/Invoker.cpp
    Platform/Keys/KeyAccessor.cpp
    Platform/Keys/KeyPath.cpp
    Platform/Keys/KeyPathObserver.cpp
    Platform/Keys/KeyValueTarget.cpp
    Platform/Keys/NSClass.cpp
    Platform/Keys/NSClassRegistry.cpp
    Platform/Keys/NSKeyValueCoding.cpp
    Platform/Keys/NSKeyValueObservation.cpp
    Platform/Keys/NSKeyValueObserving.cpp
    Platform/Keys/NSPredicate.cpp
    Platform/Keys/NSSelectionMarker.cpp
    Platform/Keys/NSSelector.cpp
    Platform/Keys/NSValueTransformer.cpp
    Platform/Keys/ObservedKey.cpp
    Platform/Keys/PredicateParser.cpp
)
