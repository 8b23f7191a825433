#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "writing/Layout.hpp"

namespace karvel {

/// The layout as Unicode hieroglyphs with the characters that arrange them. A sign without character is "?".
/// UTF-8. Few fonts draw the arrangement.
[[nodiscard]] std::string unicodeWithJoiners(const Layout& layout);

/// Reads a layout that somebody wrote by hand: Manuel de Codage, Unicode hieroglyphs with joiners, or both
/// mixed. Fails as readManuelDeCodage does.
[[nodiscard]] std::optional<Layout> readLayout(std::string_view utf8, std::string& fault);

/// True when `utf8` arranges its signs: it has joiners, ":", "*" or a cartouche.
[[nodiscard]] bool isArranged(std::string_view utf8);

}  // namespace karvel
