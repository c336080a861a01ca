target_sources(CobbleTests PRIVATE Fuzz/CorpusTests.cpp Fuzz/InputNote.h
    Fuzz/InputNoteTests.cpp Fuzz/InputPackTests.cpp)
target_link_libraries(CobbleTests PRIVATE KTUtilityFuzzTargets)
kt_tell_sources(FUZZ_CORPORA="${PROJECT_SOURCE_DIR}/fuzz/corpora" Fuzz/CorpusTests.cpp)
