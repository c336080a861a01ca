target_sources(KTUtility PRIVATE
    Platform/Classes/NSClass.cpp
    Platform/Classes/NSClassRegistry.cpp
)
