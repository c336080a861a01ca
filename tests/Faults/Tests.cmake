target_sources(FaultTests PRIVATE
    Faults/FaultInjector.cpp
    Faults/FaultInjectorTests.cpp
    Faults/FaultScenario.cpp
    Faults/FaultTests.cpp
    Faults/FileCalls.cpp
    Faults/FlushTests.cpp
    Faults/FrameworkScenarios.cpp
    Faults/HostScenarios.cpp
    Faults/KilledImportTests.cpp
    Faults/LogFileFaultTests.cpp
    Faults/PlatformScenarios.cpp
)
# Its functions stand before those of the system, also for what is opened later.
set_target_properties(FaultTests PROPERTIES ENABLE_EXPORTS ON)
target_link_libraries(FaultTests PRIVATE CobbleHost)
add_dependencies(FaultTests TextExporter VCardImporter)
