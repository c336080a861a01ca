target_sources(CobbleHost PRIVATE
    Sources/Drops/FileDrop.cpp
    Sources/Drops/PictureInput.cpp
)
