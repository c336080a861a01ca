#pragma once

// Private to the library. For what reads folders entry by entry.

#include <dirent.h>
#include <memory>

namespace KTPrivate {
/// Closes the folder that readdir(3) reads.
struct CloseFolderStream
{
    void operator()(DIR *folder) const { ::closedir(folder); }
};

/// A folder that is being read.
using FolderStream = std::unique_ptr<DIR, CloseFolderStream>;
} // namespace KTPrivate
