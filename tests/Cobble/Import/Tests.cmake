target_sources(CobbleTests PRIVATE
    Cobble/Import/ImportFileTests.cpp
    Cobble/Import/ImportSchemaTests.cpp
    Cobble/Import/ImportTransactionTests.cpp
    Cobble/Import/ImportValuesTests.cpp
    Cobble/Import/InterruptedImportTests.cpp
    Cobble/Import/LibraryImportTests.cpp
    Cobble/Import/MediaDownloadsTests.cpp
    Cobble/Import/MediaReferenceTests.cpp
    Cobble/Import/MediaSourcesTests.cpp
    Cobble/Import/ReplacedLibraryTests.cpp
    Cobble/Import/RowSourceTests.cpp
    Cobble/Import/SeparatedTextTests.cpp
    Cobble/Import/TableTests.cpp
    Cobble/Import/TypeInferenceTests.cpp
    Cobble/Import/UnusedMediaTests.cpp
)
