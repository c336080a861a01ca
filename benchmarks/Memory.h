#pragma once

/// Prints two tables: the bytes that one object of each kind takes, beside a peer, and by how much
/// the memory of the process grows over a million conversions.
void printMemory();
