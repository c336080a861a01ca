target_sources(ThreadTests PRIVATE
    Threads/FormatterThreadsTests.cpp
    Threads/KTLoggerThreadsTests.cpp
)
