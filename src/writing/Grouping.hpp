#pragma once

#include <string_view>

#include "writing/Layout.hpp"

namespace karvel {

/// How a scribe would group the signs of `codes` into blocks, derived from the signs alone. Every sign stands
/// in the layout once, in the order of `codes`. A code that no sign has is a block of its own.
[[nodiscard]] Layout blocksOf(std::string_view codes);

}  // namespace karvel
