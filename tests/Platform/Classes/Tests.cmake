target_sources(KTUtilityTests PRIVATE
    Platform/Classes/NSClassTests.cpp
    Platform/Classes/NSProtocolTests.cpp
)
