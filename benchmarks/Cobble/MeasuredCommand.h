#pragma once

#include <QStringList>

/// What a command took, with the programs that it started.
struct MeasuredCommand
{
    /// Of the processors, in seconds.
    double processorTime = 0;
    double time = 0;
    double megabytes = 0;
    bool isDone = true;

    /// Runs a command with so many processors at most, and waits for it. What it prints is nowhere.
    static MeasuredCommand run(const QStringList &words, int processors);
    /// Takes what was quicker in another run: what else the machine does makes no run quicker.
    void merge(const MeasuredCommand &other);
};
