target_sources(CobbleHost PRIVATE
    Sources/Drops/DropHint.cpp
    Sources/Drops/FileDrop.cpp
    Sources/Drops/PictureInput.cpp
)
