target_sources(CobbleTests PRIVATE
    Cobble/Import/ImportSchemaTests.cpp
    Cobble/Import/ImportSourceTests.cpp
    Cobble/Import/ImportTransactionTests.cpp
    Cobble/Import/ImportValuesTests.cpp
    Cobble/Import/LibraryImportTests.cpp
    Cobble/Import/MediaReferenceTests.cpp
    Cobble/Import/TypeInferenceTests.cpp
)
