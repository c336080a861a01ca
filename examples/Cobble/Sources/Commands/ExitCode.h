#pragma once

/// What a run of cobble ends with.
enum class ExitCode {
    Success = 0,
    /// What was asked for could not be done: a file is missing, settings cannot be saved.
    Failure = 1,
    /// It was not clear what was asked for.
    WrongUsage = 2,
};
