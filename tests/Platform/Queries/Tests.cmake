target_sources(KTUtilityTests PRIVATE
    Platform/Queries/LocalInstantsTests.cpp
    Platform/Queries/NSPredicateTests.cpp
    Platform/Queries/NSSortDescriptorTests.cpp
    Platform/Queries/NumberRanksTests.cpp
    Platform/Queries/SortKeysTests.cpp
    Platform/Queries/SortedOrderTests.cpp
    Platform/Queries/ValueMatcherTests.cpp
)
