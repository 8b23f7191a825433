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

/// Copies the files below `tree` that are missing to C:\programmi\Karvel on `drives`. Existing files are not
/// changed, except two that belong to the program: the credits, and the copy of the dictionary from which
/// updates are made. Returns the number of files copied. Throws RuntimeError; files copied before stay, and
/// every file is copied whole or not at all.
std::size_t installTree(const std::filesystem::path& tree, const Drives& drives);

}  // namespace karvel
