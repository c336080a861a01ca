target_sources(CobbleHost PRIVATE
    Sources/Import/ImportColumn.h
    Sources/Import/ImportFile.cpp
    Sources/Import/ImportRequest.cpp
    Sources/Import/ImportSchema.cpp
    Sources/Import/ImportSink.h
    Sources/Import/ImportTransaction.cpp
    Sources/Import/ImportValues.cpp
    Sources/Import/LibraryImport.cpp
    Sources/Import/MediaDownloads.cpp
    Sources/Import/MediaReference.cpp
    Sources/Import/MediaSources.cpp
    Sources/Import/RowSource.cpp
    Sources/Import/SeparatedText.cpp
    Sources/Import/Table.cpp
    Sources/Import/TypeInference.cpp
    Sources/Import/UnusedMedia.cpp
)
