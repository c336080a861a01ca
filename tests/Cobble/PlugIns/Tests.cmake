set(plugins "${PROJECT_SOURCE_DIR}/examples/Cobble/PlugIns")
target_sources(CobbleTests PRIVATE
    Cobble/PlugIns/JSONTextTests.cpp
    Cobble/PlugIns/ThrowingPlugInsTests.cpp
    Cobble/PlugIns/VCardImporterTests.cpp
    Cobble/PlugIns/VCardLineTests.cpp
    Cobble/PlugIns/VCardTableTests.cpp
    # The parts of the plug-ins.
    "${plugins}/TextExporter/JSONText.cpp"
    "${plugins}/VCardImporter/VCardLine.cpp"
    "${plugins}/VCardImporter/VCardTable.cpp"
)
target_include_directories(CobbleTests PRIVATE
    "${plugins}/TextExporter" "${plugins}/VCardImporter")

# Plug-ins that fail when they are used.
kt_add_plugin(ThrowingPlugIns
    IDENTIFIER org.example.throwing
    PRINCIPAL_CLASS ThrowingExporter
    SOURCES Cobble/PlugIns/ThrowingPlugIns.cpp
    OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/plugins")
kt_configure_target(ThrowingPlugIns)
set_target_properties(ThrowingPlugIns PROPERTIES AUTOMOC ON)
target_include_directories(ThrowingPlugIns PRIVATE "${PROJECT_SOURCE_DIR}/examples/Cobble/Sources")
kt_tell_sources(COBBLE_THROWING_PLUGINS="$<TARGET_FILE:ThrowingPlugIns>"
    Cobble/PlugIns/ThrowingPlugInsTests.cpp)
add_dependencies(CobbleTests ThrowingPlugIns)
