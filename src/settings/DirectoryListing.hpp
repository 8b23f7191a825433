#pragma once

#include <string>
#include <vector>

#include "files/Drives.hpp"

namespace karvel {

/// What a directory list shows of a drive.
struct DirectoryListing {
    std::string path;                         ///< without a trailing backslash, but for a root: "C:\"
    std::vector<std::string> subdirectories;  ///< bare names, sorted without regard to case
    bool readable = false;                    ///< false: nothing of that drive can be read
    bool asWanted = false;                    ///< false: `path` is the nearest directory above that exists
};

/// Lists the directory at `path`, or the nearest one above it that can be read. Touches nothing but the disk,
/// so that it can run on another thread: a drive may be slow. Never throws.
[[nodiscard]] DirectoryListing listDirectory(const Drives& drives, const std::string& path);

/// The directories from the drive's root down to `path`, itself included, each as a whole path.
[[nodiscard]] std::vector<std::string> directoryChain(const std::string& path);

/// The path of the directory `name` in `directory`.
[[nodiscard]] std::string pathBelow(const std::string& directory, const std::string& name);

}  // namespace karvel
