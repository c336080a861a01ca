target_sources(ThreadTests PRIVATE
    Threads/FirstUseThreadsTests.cpp
    Threads/FormatterThreadsTests.cpp
    Threads/KTLoggerThreadsTests.cpp
)
