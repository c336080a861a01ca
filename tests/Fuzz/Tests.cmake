target_sources(CobbleTests PRIVATE Fuzz/CorpusTests.cpp Fuzz/InputNote.h
    Fuzz/InputNoteTests.cpp Fuzz/InputPackTests.cpp)
target_link_libraries(CobbleTests PRIVATE KTUtilityFuzzTargets)
target_compile_definitions(CobbleTests PRIVATE FUZZ_CORPORA="${PROJECT_SOURCE_DIR}/fuzz/corpora")
