target_sources(CobbleTests PRIVATE
    Cobble/AlignedTableTests.cpp
    Cobble/CSVReaderTests.cpp
    Cobble/CSVSeparatorTests.cpp
    Cobble/CobbleTests.cpp
    Cobble/ComponentNamesTests.cpp
    Cobble/DetailFormTests.cpp
    Cobble/ExecutableTests.cpp
    Cobble/ExportCommandTests.cpp
    Cobble/GalleryCommandTests.cpp
    Cobble/ImportCommandTests.cpp
    Cobble/ImportSchemaTests.cpp
    Cobble/ImportSourceTests.cpp
    Cobble/ImportStoringTests.cpp
    Cobble/ImportTransactionTests.cpp
    Cobble/ImportValuesTests.cpp
    Cobble/JSONTextTests.cpp
    Cobble/LibraryStoreTests.cpp
    Cobble/LogCommandTests.cpp
    Cobble/MediaCommandTests.cpp
    Cobble/MediaReferenceTests.cpp
    Cobble/NamesCommandTests.cpp
    Cobble/ParseCommandTests.cpp
    Cobble/PlugInsCommandTests.cpp
    Cobble/ShowCommandTests.cpp
    Cobble/StandardStreamsTests.cpp
    Cobble/StoredValueTests.cpp
    Cobble/TextFileTests.cpp
    Cobble/ThrowingPlugInsTests.cpp
    Cobble/TypeInferenceTests.cpp
    Cobble/VCardTests.cpp
    Cobble/Window/MainWindowTests.cpp
    Cobble/Window/MediaFieldTests.cpp
    Cobble/Window/SearchTests.cpp
    Cobble/Window/SheetTests.cpp
    Cobble/Window/VisualTests.cpp
    Cobble/Window/WindowCommandTests.cpp
    # The parts of the plug-ins.
    "${PROJECT_SOURCE_DIR}/examples/Cobble/PlugIns/TextExporter/JSONText.cpp"
    "${PROJECT_SOURCE_DIR}/examples/Cobble/PlugIns/VCardImporter/VCardLine.cpp"
    "${PROJECT_SOURCE_DIR}/examples/Cobble/PlugIns/VCardImporter/VCardTable.cpp"
)
target_include_directories(CobbleTests PRIVATE
    "${PROJECT_SOURCE_DIR}/examples/Cobble/PlugIns/TextExporter"
    "${PROJECT_SOURCE_DIR}/examples/Cobble/PlugIns/VCardImporter")
target_link_libraries(CobbleTests PRIVATE CobbleHost)
target_compile_definitions(CobbleTests PRIVATE
    COBBLE_BUNDLE_CONTENTS="${KTUTILITY_BUNDLE_CONTENTS}"
    COBBLE_EXECUTABLE="$<TARGET_FILE:cobble>"
    COBBLE_VERSION="${PROJECT_VERSION}"
    COBBLE_SAMPLES="${PROJECT_SOURCE_DIR}/examples/Cobble/Samples")
# Plug-ins that fail when they are used.
kt_add_plugin(ThrowingPlugIns
    IDENTIFIER org.example.throwing
    PRINCIPAL_CLASS ThrowingExporter
    SOURCES Cobble/Modules/ThrowingPlugIns.cpp
    OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/plugins")
kt_configure_target(ThrowingPlugIns)
set_target_properties(ThrowingPlugIns PROPERTIES AUTOMOC ON)
target_include_directories(ThrowingPlugIns PRIVATE "${PROJECT_SOURCE_DIR}/examples/Cobble/Sources")
target_compile_definitions(CobbleTests PRIVATE
    COBBLE_THROWING_PLUGINS="$<TARGET_FILE:ThrowingPlugIns>")
add_dependencies(CobbleTests ThrowingPlugIns)

# They start it.
add_dependencies(CobbleTests cobble CobbleResources TextExporter VCardImporter)
