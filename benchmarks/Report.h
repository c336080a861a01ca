#pragma once

/// Adds a row to the report: an operation beside its peer and the ratio that it may have.
bool compareWith(const char *operation, const char *peer, double limit);
