#pragma once

#include <string>

#include "base/UserInterface.hpp"
#include "settings/Registry.hpp"

namespace karvel {

/// Reads one value of the registry as text, UTF-8. False, with an empty `result`, when the key or the value
/// cannot be read or the value is longer than 1024 characters.
///
/// Kept: the key is opened with full access rights although it is only read, so that only a user who
/// administers the computer gets an answer.
bool GetKeyValue(Registry& registry, Registry::Root root, const std::string& key, const std::string& value,
                 std::string& result);

/// Finds the system's own information program through the registry and starts it; says that it is not
/// available when that fails in any way.
void StartSysInfo(Registry& registry, Programs& programs, UserInterface& ui);

}  // namespace karvel
