#pragma once

#include <string_view>
#include <vector>

#include "base/UserInterface.hpp"
#include "dictionary/DictionaryEntry.hpp"
#include "files/FileSystem.hpp"

namespace karvel {

/// The dictionary's entries that contain the sign `code`, in file order. A dictionary that cannot be read is
/// reported in the box "ERRORE". Then, and when the user stops the reading, the result is what was found so
/// far.
[[nodiscard]] std::vector<DictionaryEntry> entriesWith(const FileSystem& files, UserInterface& ui,
                                                       std::string_view code);

}  // namespace karvel
