#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>

#include "files/Drives.hpp"

namespace karvel {

/// The directory that holds what is installed: the one named by KARVEL_DATA, else the one that belongs to the
/// program at `program` (beside it, in ../share/karvel, or in the source tree above it). Nothing when none is
/// there.
[[nodiscard]] std::optional<std::filesystem::path> findDataTree(const std::filesystem::path& program);

/// The program's own file.
[[nodiscard]] std::filesystem::path ownProgram();

/// Copies what is missing below `tree` to C:\programmi\Karvel on `drives`; what is there already is never
/// touched, but for what is the program's own: the credits, and the copy of the dictionary that updates are
/// made from. Returns the number of files
/// copied. Throws RuntimeError; files copied before stay, and none is ever half written.
std::size_t installTree(const std::filesystem::path& tree, const Drives& drives);

}  // namespace karvel
