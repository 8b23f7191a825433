#pragma once

#include <string_view>

#include "files/FileSystem.hpp"

namespace karvel {

/// Whether FileSystem::replace could now put a file at `path`. Nothing is changed.
[[nodiscard]] bool canReplace(const FileSystem& files, std::string_view path);

/// From now on FileSystem::replace leaves the file at `path` as it is: what it is given is kept in memory,
/// for the whole program until that ends, and `open` and `readAll` give it back.
void holdInMemory(const FileSystem& files, std::string_view path);

}  // namespace karvel
