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
    Cobble/ImportStoringTests.cpp
    Cobble/ImportTransactionTests.cpp
    Cobble/ImportValuesTests.cpp
    Cobble/LibraryStoreTests.cpp
    Cobble/LogCommandTests.cpp
    Cobble/MediaCommandTests.cpp
    Cobble/MediaReferenceTests.cpp
    Cobble/NamesCommandTests.cpp
    Cobble/ParseCommandTests.cpp
    Cobble/ShowCommandTests.cpp
    Cobble/StandardStreamsTests.cpp
    Cobble/StoredValueTests.cpp
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
