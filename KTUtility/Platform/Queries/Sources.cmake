target_sources(KTUtility PRIVATE
    Platform/Queries/LocalInstants.cpp
    Platform/Queries/NSPredicate.cpp
    Platform/Queries/NSSortDescriptor.cpp
    Platform/Queries/NumberRanks.cpp
    Platform/Queries/PredicateParser.cpp
    Platform/Queries/SortKeys.cpp
    Platform/Queries/SortedOrder.cpp
)
