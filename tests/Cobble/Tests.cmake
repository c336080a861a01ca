target_sources(CobbleTests PRIVATE
    Cobble/AlignedTableTests.cpp
    Cobble/CSVReaderTests.cpp
    Cobble/CSVSeparatorTests.cpp
    Cobble/CobbleTests.cpp
    Cobble/ComponentNamesTests.cpp
    Cobble/ExecutableTests.cpp
    Cobble/ImportCommandTests.cpp
    Cobble/ImportSchemaTests.cpp
    Cobble/ImportSourceTests.cpp
    Cobble/ImportValuesTests.cpp
    Cobble/LogCommandTests.cpp
    Cobble/NamesCommandTests.cpp
    Cobble/ParseCommandTests.cpp
    Cobble/StandardStreamsTests.cpp
    Cobble/TextFileTests.cpp
)
target_link_libraries(CobbleTests PRIVATE CobbleHost)
target_compile_definitions(CobbleTests PRIVATE
    COBBLE_BUNDLE_CONTENTS="${KTUTILITY_BUNDLE_CONTENTS}"
    COBBLE_EXECUTABLE="$<TARGET_FILE:cobble>"
    COBBLE_VERSION="${PROJECT_VERSION}"
    COBBLE_SAMPLES="${PROJECT_SOURCE_DIR}/examples/Cobble/Samples")
# They start it.
add_dependencies(CobbleTests cobble CobbleResources)
