#pragma once

#include <QByteArray>

#include <csignal>
#include <cstdio>
#include <unistd.h>

/// While it exists, a process that ends by abort(), as broken promises do, says which input it was at.
class InputNote
{
public:
    InputNote(qsizetype index, qsizetype size)
    {
        _length = std::snprintf(_text, sizeof _text, "input %lld of %lld bytes\n",
                                static_cast<long long>(index), static_cast<long long>(size));
        _before = std::signal(SIGABRT, say);
    }
    ~InputNote() { std::signal(SIGABRT, _before); }
    InputNote(const InputNote &) = delete;
    InputNote &operator=(const InputNote &) = delete;

private:
    /// Uses nothing that a signal must not; abort() goes on when it returns.
    static void say(int)
    {
        [[maybe_unused]] const auto written = ::write(STDERR_FILENO, _text, size_t(_length));
    }

    static inline char _text[64];
    static inline int _length = 0;
    void (*_before)(int) = nullptr;
};
