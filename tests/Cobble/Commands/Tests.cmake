target_sources(CobbleTests PRIVATE
    Cobble/Commands/CobbleTests.cpp
    Cobble/Commands/ComponentNamesTests.cpp
    Cobble/Commands/ExecutableTests.cpp
    Cobble/Commands/ExportCommandTests.cpp
    Cobble/Commands/FormatCommandTests.cpp
    Cobble/Commands/GalleryCommandTests.cpp
    Cobble/Commands/ImportCommandTests.cpp
    Cobble/Commands/LogCommandTests.cpp
    Cobble/Commands/MediaCommandTests.cpp
    Cobble/Commands/NamesCommandTests.cpp
    Cobble/Commands/ParseCommandTests.cpp
    Cobble/Commands/PlugInsCommandTests.cpp
    Cobble/Commands/ProgressLineTests.cpp
    Cobble/Commands/ShowCommandTests.cpp
    Cobble/Commands/StandardStreamsTests.cpp
    Cobble/Commands/WindowCommandTests.cpp
)
