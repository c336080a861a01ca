#pragma once

/// Adds a row to the report: an operation beside its peer and the ratio that it may have.
///
/// A benchmark is named "Group/operation", its peer "Group/peer: what it is". An operation may have
/// several peers.
bool compareWith(const char *operation, const char *peer, double limit);

/// Adds a row for an operation that is held to a time, in nanoseconds, and to no ratio.
bool holdBelow(const char *operation, double limit);
