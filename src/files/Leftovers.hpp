#pragma once

#include <filesystem>

#include "files/FileSystem.hpp"

namespace karvel {

/// The path at which this program writes a file whole before it puts it in the place of `target`:
/// NAME.~PROCESS.
[[nodiscard]] std::filesystem::path besidePath(const std::filesystem::path& target);

/// Deletes from `directory` the files that programs left there which were ended before they had put them in
/// place. The files of programs that are running stay, and so does what may not be deleted.
void removeLeftoversIn(const std::filesystem::path& directory);

/// The same in all directories of the installation whose files the program replaces.
void removeLeftovers(const FileSystem& files);

}  // namespace karvel
