#pragma once

#include <string_view>

#include "base/UserInterface.hpp"
#include "compose/Palette.hpp"

namespace karvel {

/// Inserts the signs of `utf8` (see readPhrase) with Palette::pressCodes. Unknown signs are told in one box.
/// Throws like DisplayLine::insert; the phrase is then as it was.
void pastePhrase(Palette& palette, UserInterface& ui, std::string_view utf8);

}  // namespace karvel
