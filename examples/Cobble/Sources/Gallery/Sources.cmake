target_sources(CobbleHost PRIVATE
    Sources/Gallery/DrawingSamples.cpp
    Sources/Gallery/GalleryPage.cpp
    Sources/Gallery/GallerySample.cpp
    Sources/Gallery/ViewSamples.cpp
)
