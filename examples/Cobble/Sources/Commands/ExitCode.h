#pragma once

/// What a run of cobble ends with.
enum class ExitCode {
    Success = 0,
    /// What was asked for could not be done: a file is missing, settings cannot be saved.
    Failure = 1,
    /// It was not clear what was asked for.
    WrongUsage = 2,

    // Only commands that change data tell these apart from other failures.

    /// A value that was given cannot be read.
    Unread = 3,
    /// There is no such library, field, record or step.
    NotFound = 4,
    /// Something else stands against it: the name is taken, or what is to be undone was changed.
    Conflict = 5,
    /// Somebody else is writing.
    Locked = 6,
};
