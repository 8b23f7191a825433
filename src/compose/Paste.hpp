#pragma once

#include <string_view>

#include "base/UserInterface.hpp"
#include "compose/Palette.hpp"

namespace karvel {

/// Inserts the signs of `utf8` (see readPhrase) with Palette::pressCodes. Unknown signs are reported in one
/// box. Throws like DisplayLine::insert; the phrase is then as it was.
void pastePhrase(Palette& palette, UserInterface& ui, std::string_view utf8);

/// Whether `utf8` is pasted into the phrase while the field "Trova segno" has the focus: it holds known signs
/// and nothing else, several of them, or one while the field is empty.
[[nodiscard]] bool isMeantForPhrase(std::string_view utf8, bool fieldIsEmpty);

}  // namespace karvel
