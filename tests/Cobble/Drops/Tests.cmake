target_sources(CobbleTests PRIVATE
    Cobble/Drops/DropHintTests.cpp
    Cobble/Drops/FileDropTests.cpp
    Cobble/Drops/PictureInputTests.cpp
)
