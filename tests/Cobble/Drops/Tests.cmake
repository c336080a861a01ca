target_sources(CobbleTests PRIVATE
    Cobble/Drops/FileDropTests.cpp
    Cobble/Drops/PictureInputTests.cpp
)
