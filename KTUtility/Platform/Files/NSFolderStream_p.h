#pragma once

#include <dirent.h>
#include <memory>

/// Closes the folder that readdir(3) reads.
struct NSCloseFolderStream
{
    void operator()(DIR *folder) const { ::closedir(folder); }
};

/// A folder that is being read.
using NSFolderStream = std::unique_ptr<DIR, NSCloseFolderStream>;
